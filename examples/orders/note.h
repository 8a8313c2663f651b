// A remark on an order.
#pragma once

#include "examples/orders/order_class.h"

namespace KestOrders {

/// Simple content: the text of the element is a property, beside two attributes.
class CNote : public COrderClass {
 public:
  explicit CNote(char16_t const* elementName = u"note");

  std::u16string const& GetText() const { return m_text; }
  void SetText(std::u16string const& value);
  std::u16string const& GetAuthor() const { return m_author; }
  void SetAuthor(std::u16string const& value);
  /// Whether the supplier does not get to see it. Default false.
  bool GetInternal() const { return m_internal; }
  void SetInternal(bool value) { m_internal = value; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::u16string m_text;
  std::u16string m_author;
  bool m_internal = false;
};

}  // namespace KestOrders
