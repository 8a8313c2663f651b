// Who has approved an order.
#pragma once

#include <optional>

#include "examples/orders/order_class.h"

namespace KestOrders {

/// An element that may be nil: `<approval xsi:nil="true"/>` says that approval was asked for and
/// has not been given. A nil object has no content, whatever its properties hold.
class CApproval : public COrderClass, public KestXmlLib20::INillable {
 public:
  explicit CApproval(char16_t const* elementName = u"approval");

  bool IsNil() override { return m_isNil; }
  void SetNil(bool nil) override { m_isNil = nil; }

  std::u16string const& GetBy() const { return m_by; }
  void SetBy(std::u16string const& value);
  Date const& GetOn() const { return m_on; }
  void SetOn(Date const& value);
  std::optional<KestXmlLib20::CBinaryData> const& GetSignature() const { return m_signature; }
  void SetSignature(std::optional<KestXmlLib20::CBinaryData> const& value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  bool m_isNil = false;
  std::u16string m_by;
  Date m_on;
  std::optional<KestXmlLib20::CBinaryData> m_signature;
};

}  // namespace KestOrders
