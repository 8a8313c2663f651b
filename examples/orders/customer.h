// Who orders.
#pragma once

#include <optional>

#include "examples/orders/order_class.h"

namespace KestOrders {

/// A sequence with mandatory, optional and repeated values, and an attribute.
class CCustomer : public COrderClass {
 public:
  explicit CCustomer(char16_t const* elementName = u"customer");

  std::uint32_t GetNumber() const { return m_number; }
  void SetNumber(std::uint32_t value);
  std::u16string const& GetName() const { return m_name; }
  void SetName(std::u16string const& value);
  std::optional<std::u16string> const& GetVatId() const { return m_vatId; }
  void SetVatId(std::optional<std::u16string> const& value);
  std::u16string const& GetEmail() const { return m_email; }
  void SetEmail(std::u16string const& value);
  /// Up to three.
  KestXmlLib20::CstringCol& GetPhones() const { return *m_phones; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::uint32_t m_number = 0;
  std::u16string m_name;
  std::optional<std::u16string> m_vatId;
  std::u16string m_email;
  KestXmlLib20::CSmartPtr<KestXmlLib20::CstringCol> m_phones;
};

}  // namespace KestOrders
