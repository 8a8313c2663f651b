// A purchase order: the document of order.xsd.
#pragma once

#include <optional>

#include "examples/orders/address.h"
#include "examples/orders/approval.h"
#include "examples/orders/customer.h"
#include "examples/orders/discount.h"
#include "examples/orders/enumerations.h"
#include "examples/orders/header.h"
#include "examples/orders/item.h"
#include "examples/orders/note.h"
#include "examples/orders/object_col.h"
#include "examples/orders/payment.h"

namespace KestOrders {

/// The root. A sequence of objects, mandatory and optional, of collections, of a group without an
/// element, and of one element that the schema does not know.
class COrder : public COrderClass {
 public:
  explicit COrder(char16_t const* elementName = u"order");

  std::u16string const& GetId() const { return m_id; }
  void SetId(std::u16string const& value);
  /// Default open.
  OrderStatus GetStatus() const { return m_status; }
  void SetStatus(OrderStatus value) { m_status = value; }
  /// Attributes of other namespaces.
  KestXmlLib20::CAttributeCol& GetOtherAttributes() const { return *m_otherAttributes; }

  // Mandatory objects are always there. Their setters throw
  // KestXmlLib20::CKestInvalidParamException for null, and all setters of objects for one that was
  // made for another element.

  KestXmlLib20::CSmartPtr<CHeader> GetHeader() const { return m_header; }
  void SetHeader(CHeader* value);
  KestXmlLib20::CSmartPtr<CCustomer> GetCustomer() const { return m_customer; }
  void SetCustomer(CCustomer* value);
  KestXmlLib20::CSmartPtr<CAddress> GetBillTo() const { return m_billTo; }
  void SetBillTo(CAddress* value);
  /// Null where it is the address of the bill.
  KestXmlLib20::CSmartPtr<CAddress> GetShipTo() const { return m_shipTo; }
  void SetShipTo(CAddress* value);
  CPayment& GetPayment() const { return *m_payment; }
  /// At least one.
  CObjectCol<CItem>& GetItems() const { return *m_items; }
  /// At most three.
  CObjectCol<CDiscount>& GetDiscounts() const { return *m_discounts; }
  KestXmlLib20::CSmartPtr<CApproval> GetApproval() const { return m_approval; }
  void SetApproval(CApproval* value);
  CObjectCol<CNote>& GetNotes() const { return *m_notes; }
  /// One element of any other namespace, or null.
  KestXmlLib20::CSmartPtr<KestXmlLib20::CElement> GetExtension() const { return m_extension; }
  void SetExtension(KestXmlLib20::CElement* value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;
  static ElementEntries GetElements();

  std::u16string m_id;
  OrderStatus m_status = OrderStatus::Open;
  KestXmlLib20::CSmartPtr<KestXmlLib20::CAttributeCol> m_otherAttributes;
  KestXmlLib20::CSmartPtr<CHeader> m_header;
  KestXmlLib20::CSmartPtr<CCustomer> m_customer;
  KestXmlLib20::CSmartPtr<CAddress> m_billTo;
  KestXmlLib20::CSmartPtr<CAddress> m_shipTo;
  KestXmlLib20::CSmartPtr<CPayment> m_payment;
  KestXmlLib20::CSmartPtr<CObjectCol<CItem>> m_items;
  KestXmlLib20::CSmartPtr<CObjectCol<CDiscount>> m_discounts;
  KestXmlLib20::CSmartPtr<CApproval> m_approval;
  KestXmlLib20::CSmartPtr<CObjectCol<CNote>> m_notes;
  KestXmlLib20::CSmartPtr<KestXmlLib20::CElement> m_extension;
};

}  // namespace KestOrders
