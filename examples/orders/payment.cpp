#include "examples/orders/payment.h"

#include "examples/orders/order_factory.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

// ---------------------------------------------------------------------------- CCard

namespace {

enum CardProperty : std::int32_t { kNumberProperty, kExpiresProperty };

}  // namespace

constinit COrderClass::CTables CCard::s_tables([] {
  return MakeTables(SimpleContentClass(u"card", kNumberProperty, kCardNumber), {},
                    {Attribute(u"expires", kExpiresProperty, false, kMonth)});
});

CCard::CCard(char16_t const* elementName) : COrderClass(elementName) {
  CCard::Init();
}

void CCard::Init() {
  m_number.clear();
  m_expires = {};
}

void CCard::SetNumber(std::u16string const& value) {
  m_number = Checked(u"card", value, kCardNumber);
}
void CCard::SetExpires(Month const& value) {
  m_expires = Checked(u"expires", value, kMonth);
}

void CCard::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kNumberProperty:
      return read ? Store(value, m_number) : SetNumber(value.GetString());
    case kExpiresProperty:
      return Access(m_expires, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

// ---------------------------------------------------------------------------- CInstalment

namespace {

enum InstalmentProperty : std::int32_t { kAmountProperty, kDueProperty };

}  // namespace

constinit COrderClass::CTables CInstalment::s_tables([] {
  return MakeTables(SimpleContentClass(u"instalment", kAmountProperty, kMoney), {},
                    {Attribute(u"due", kDueProperty, false, kDate)});
});

CInstalment::CInstalment(char16_t const* elementName) : COrderClass(elementName) {
  CInstalment::Init();
}

void CInstalment::Init() {
  m_amount = {};
  m_due = {};
}

void CInstalment::SetAmount(Money const& value) {
  m_amount = Checked(u"instalment", value, kMoney);
}
void CInstalment::SetDue(Date const& value) {
  m_due = Checked(u"due", value, kDate);
}

void CInstalment::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kAmountProperty:
      return read ? Store(value, m_amount) : SetAmount(value.GetDecimal());
    case kDueProperty:
      return Access(m_due, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

// ---------------------------------------------------------------------------- CPayment

namespace {

enum PaymentProperty : std::int32_t { kInvoiceProperty, kCardProperty, kInstalmentProperty };

}  // namespace

// The record of a group: a pseudo-element, which must not fail for unknown attributes, since those
// that it is offered are its parent's.
constinit COrderClass::CTables CPayment::s_tables([] {
  return MakeTables(
      new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_PseudoElement, u"payment",
                             kOrderNamespace, false, false, -1, ItemType_Invalid,
                             CWhitespaceUtils::WhitespaceRule_None, nullptr, false),
      {Element<CElementInfoChoicePrimOpt>(u"invoice", kInvoiceProperty, kDaysToPay),
       new CElementInfoChoiceClsOpt(u"card", kOrderNamespace, kCardProperty, XmlElementType_Element,
                                    COrderFactory::Create, static_cast<int>(ClassId::Card)),
       new CElementInfoChoiceClsCol(u"instalment", kOrderNamespace, kInstalmentProperty,
                                    XmlElementType_Element)},
      {});
});

CPayment::CPayment(char16_t const* elementName) : COrderClass(elementName) {
  CPayment::Init();
}

CPayment::~CPayment() {
  ReleaseInstalments();
}

// Whoever still holds the collection keeps it, but it tells this object nothing any more.
void CPayment::ReleaseInstalments() {
  if (m_instalments) m_instalments->RemoveEventListener(this);
  m_instalments = nullptr;
}

void CPayment::Init() {
  m_selection.clear();
  m_invoice.reset();
  m_card = nullptr;
  ReleaseInstalments();
  m_instalments = new CObjectCol<CInstalment>(u"instalment", 2, 12);
  m_instalments->AddEventListener(this);
}

// Before an item joins, so that one which is refused stays out; and after any change.
void CPayment::OnEvent(CXmlObjectBase*, MsgType type, void*) {
  std::int32_t const count = m_instalments->GetCount();
  if (type == MsgType_CollectionAdd)
    Choice_CollectionChanged(u"instalment", count + 1, m_selection);
  if (type == MsgType_CollectionChange) Choice_CollectionChanged(u"instalment", count, m_selection);
}

void CPayment::SetInvoice(std::optional<std::int16_t> value) {
  Checked(u"invoice", value, kDaysToPay);
  SelectInChoice(u"invoice", value.has_value(), m_selection);
  m_invoice = value;
}
void CPayment::SetCard(CCard* value) {
  Throw_IfElementNameDiffers(value, u"card");
  SelectInChoice(u"card", value, m_selection);
  m_card = value;
}

void CPayment::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kInvoiceProperty:
      return read ? Access(m_invoice, true, value) : SetInvoice(value.GetI2());
    case kCardProperty:
      return read ? Access(m_card, true, value)
                  : SetCard(static_cast<CCard*>(value.GetXmlObject().Get()));
    case kInstalmentProperty:
      return AccessCollection(m_instalments, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders
