#include "examples/orders/discount.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

namespace {

enum Property : std::int32_t { kValueProperty, kKindProperty, kReasonProperty };

}  // namespace

constinit COrderClass::CTables CDiscount::s_tables([] {
  return MakeTables(SimpleContentClass(u"discount", kValueProperty, kDiscountValue), {},
                    {new CAttributeInfoEnum(u"kind", u"", kKindProperty, false,
                                            DiscountKindToString, DiscountKindFromString, nullptr),
                     Attribute(u"reason", kReasonProperty, true, kName)});
});

CDiscount::CDiscount(char16_t const* elementName) : COrderClass(elementName) {
  CDiscount::Init();
}

void CDiscount::Init() {
  m_value = {};
  m_kind = DiscountKind::Percent;
  m_reason.reset();
}

void CDiscount::SetValue(Money const& value) {
  m_value = Checked(u"discount", value, kDiscountValue);
}
void CDiscount::SetReason(std::optional<std::u16string> const& value) {
  m_reason = Checked(u"reason", value, kName);
}

void CDiscount::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kValueProperty:
      return read ? Store(value, m_value) : SetValue(value.GetDecimal());
    case kKindProperty:
      return Access(m_kind, read, value);
    case kReasonProperty:
      return Access(m_reason, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders
