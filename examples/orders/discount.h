// A discount on an item or on a whole order.
#pragma once

#include <optional>

#include "examples/orders/enumerations.h"
#include "examples/orders/order_class.h"

namespace KestOrders {

/// Simple content: the element holds the value, an attribute says what it means.
class CDiscount : public COrderClass {
 public:
  explicit CDiscount(char16_t const* elementName = u"discount");

  Money const& GetValue() const { return m_value; }
  void SetValue(Money const& value);
  DiscountKind GetKind() const { return m_kind; }
  void SetKind(DiscountKind value) { m_kind = value; }
  std::optional<std::u16string> const& GetReason() const { return m_reason; }
  void SetReason(std::optional<std::u16string> const& value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  Money m_value;
  DiscountKind m_kind = DiscountKind::Percent;
  std::optional<std::u16string> m_reason;
};

}  // namespace KestOrders
