#include "examples/orders/order.h"

#include "examples/orders/order_factory.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

namespace {

enum Property : std::int32_t {
  kIdProperty,
  kStatusProperty,
  kOtherAttributesProperty,
  kHeaderProperty,
  kCustomerProperty,
  kBillToProperty,
  kShipToProperty,
  kPaymentProperty,
  kItemProperty,
  kDiscountProperty,
  kApprovalProperty,
  kNoteProperty,
  kExtensionProperty,
};

constexpr char16_t const* kOtherNamespaces = u"##other";

// An object that Init makes.
CElementInfo* Object(char16_t const* name, Property index, ClassId classId,
                     XmlElementType elementType = XmlElementType_Element) {
  constexpr bool kHasMandatoryContent = true;
  return new CElementInfoSeqClsMnd(name, kOrderNamespace, index, elementType, COrderFactory::Create,
                                   static_cast<int>(classId), kHasMandatoryContent);
}

// An object that the library has made where its element is.
CElementInfo* OptionalObject(char16_t const* name, Property index, ClassId classId) {
  return new CElementInfoSeqClsOpt(name, kOrderNamespace, index, XmlElementType_Element,
                                   COrderFactory::Create, static_cast<int>(classId));
}

}  // namespace

// For items of several classes the collection asks a factory for each. "AnyElement" is the name of
// wildcards.
COrderClass::ElementEntries COrder::GetElements() {
  return {
      Object(u"header", kHeaderProperty, ClassId::Header),
      Object(u"customer", kCustomerProperty, ClassId::Customer),
      Object(u"billTo", kBillToProperty, ClassId::Address),
      OptionalObject(u"shipTo", kShipToProperty, ClassId::Address),
      Object(u"payment", kPaymentProperty, ClassId::Payment, XmlElementType_PseudoElement),
      new CElementInfoSeqAbsClsCol(u"item", kOrderNamespace, kItemProperty, XmlElementType_Element),
      new CElementInfoSeqClsCol(u"discount", kOrderNamespace, kDiscountProperty,
                                XmlElementType_Element),
      OptionalObject(u"approval", kApprovalProperty, ClassId::Approval),
      new CElementInfoSeqClsCol(u"note", kOrderNamespace, kNoteProperty, XmlElementType_Element),
      new CElementInfoSeqUntpdOpt(u"AnyElement", u"", kExtensionProperty, kOtherNamespaces,
                                  kOrderNamespace)};
}

// The wildcard of the attributes stands last: entries are asked in order, and it takes what its
// restriction allows, whatever the names behind it.
constinit COrderClass::CTables COrder::s_tables([] {
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"order"), GetElements(),
                    {Attribute(u"id", kIdProperty, false, kOrderId),
                     new CAttributeInfoEnum(u"status", u"", kStatusProperty, true,
                                            OrderStatusToString, OrderStatusFromString, u"open"),
                     new CAttributeInfoAny(u"AnyAttribute", u"", kOtherAttributesProperty, true,
                                           kOtherNamespaces, kOrderNamespace, nullptr)});
});

COrder::COrder(char16_t const* elementName) : COrderClass(elementName) {
  COrder::Init();
}

void COrder::Init() {
  m_id.clear();
  m_status = OrderStatus::Open;
  m_otherAttributes = new CAttributeCol(u"", kOtherNamespaces, kOrderNamespace);
  m_header = new CHeader;
  m_customer = new CCustomer;
  m_billTo = new CAddress(u"billTo");
  m_shipTo = nullptr;
  m_payment = new CPayment;
  m_items = new CObjectCol<CItem>(u"item", 1, -1, COrderFactory::CreateItem);
  m_discounts = new CObjectCol<CDiscount>(u"discount", 0, 3);
  m_approval = nullptr;
  m_notes = new CObjectCol<CNote>(u"note", 0, -1);
  m_extension = nullptr;
}

void COrder::SetId(std::u16string const& value) {
  m_id = Checked(u"id", value, kOrderId);
}
void COrder::SetHeader(CHeader* value) {
  CheckObject(u"header", value);
  m_header = value;
}
void COrder::SetCustomer(CCustomer* value) {
  CheckObject(u"customer", value);
  m_customer = value;
}
void COrder::SetBillTo(CAddress* value) {
  CheckObject(u"billTo", value);
  m_billTo = value;
}
void COrder::SetShipTo(CAddress* value) {
  Throw_IfElementNameDiffers(value, u"shipTo");
  m_shipTo = value;
}
void COrder::SetApproval(CApproval* value) {
  Throw_IfElementNameDiffers(value, u"approval");
  m_approval = value;
}
void COrder::SetExtension(CElement* value) {
  if (value) TestNamespace(value->GetNamespace().data(), kOtherNamespaces, kOrderNamespace);
  m_extension = value;
}

void COrder::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kIdProperty:
      return Access(m_id, read, value);
    case kStatusProperty:
      return Access(m_status, read, value);
    case kOtherAttributesProperty:
      return AccessCollection(m_otherAttributes, value);
    case kHeaderProperty:
      return Access(m_header, read, value);
    case kCustomerProperty:
      return Access(m_customer, read, value);
    case kBillToProperty:
      return Access(m_billTo, read, value);
    case kShipToProperty:
      return Access(m_shipTo, read, value);
    case kPaymentProperty:
      return Access(m_payment, read, value);
    case kItemProperty:
      return AccessCollection(m_items, value);
    case kDiscountProperty:
      return AccessCollection(m_discounts, value);
    case kApprovalProperty:
      return Access(m_approval, read, value);
    case kNoteProperty:
      return AccessCollection(m_notes, value);
    case kExtensionProperty:
      return Access(m_extension, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders
