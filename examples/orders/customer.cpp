#include "examples/orders/customer.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

namespace {

enum Property : std::int32_t {
  kNumberProperty,
  kNameProperty,
  kVatIdProperty,
  kEmailProperty,
  kPhoneProperty,
};

}  // namespace

constinit COrderClass::CTables CCustomer::s_tables([] {
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"customer"),
                    {Element<CElementInfoSeqPrimMnd>(u"name", kNameProperty, kName),
                     Element<CElementInfoSeqPrimOpt>(u"vatId", kVatIdProperty, kVatId),
                     Element<CElementInfoSeqPrimMnd>(u"email", kEmailProperty, kEmail),
                     new CElementInfoSeqPrimCol(u"phone", kOrderNamespace, kPhoneProperty)},
                    {Attribute(u"number", kNumberProperty, false, kCustomerId)});
});

CCustomer::CCustomer(char16_t const* elementName) : COrderClass(elementName) {
  CCustomer::Init();
}

void CCustomer::Init() {
  m_number = 0;
  m_name.clear();
  m_vatId.reset();
  m_email.clear();
  m_phones = NewValueCol<CstringCol>(u"phone", kOrderNamespace, 0, 3, kPhone);
}

void CCustomer::SetNumber(std::uint32_t value) {
  m_number = Checked(u"number", value, kCustomerId);
}
void CCustomer::SetName(std::u16string const& value) {
  m_name = Checked(u"name", value, kName);
}
void CCustomer::SetVatId(std::optional<std::u16string> const& value) {
  m_vatId = Checked(u"vatId", value, kVatId);
}
void CCustomer::SetEmail(std::u16string const& value) {
  m_email = Checked(u"email", value, kEmail);
}

void CCustomer::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kNumberProperty:
      return Access(m_number, read, value);
    case kNameProperty:
      return Access(m_name, read, value);
    case kVatIdProperty:
      return Access(m_vatId, read, value);
    case kEmailProperty:
      return Access(m_email, read, value);
    case kPhoneProperty:
      return AccessCollection(m_phones, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders
