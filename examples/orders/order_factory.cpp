#include "examples/orders/order_factory.h"

#include "examples/orders/address.h"
#include "examples/orders/approval.h"
#include "examples/orders/customer.h"
#include "examples/orders/header.h"
#include "examples/orders/item.h"
#include "examples/orders/payment.h"

namespace KestOrders {

using namespace KestXmlLib20;

CSmartPtr<CXmlObjectBase> COrderFactory::Create(int classId, char16_t const* elementName) {
  switch (static_cast<ClassId>(classId)) {
    case ClassId::Address:
      return new CAddress(elementName);
    case ClassId::Approval:
      return new CApproval(elementName);
    case ClassId::Card:
      return new CCard(elementName);
    case ClassId::Customer:
      return new CCustomer(elementName);
    case ClassId::Header:
      return new CHeader(elementName);
    case ClassId::Payment:
      return new CPayment(elementName);
    case ClassId::Postal:
      return new CPostal(elementName);
  }
  return nullptr;
}

// Without xsi:type an item is what the schema declares: a CItem.
CSmartPtr<CItem> COrderFactory::CreateItem(CXmlElement* element) {
  std::u16string const type = GetElementType(element);
  if (type.empty()) return new CItem;
  if (GetElementTypeNamespaceUri(element) != kOrderNamespace) return nullptr;
  if (type == u"Item") return new CItem;
  if (type == u"BookItem") return new CBookItem;
  if (type == u"ServiceItem") return new CServiceItem;
  return nullptr;
}

}  // namespace KestOrders
