// What holds for an order as a whole.
#pragma once

#include <optional>

#include "examples/orders/enumerations.h"
#include "examples/orders/order_class.h"

namespace KestOrders {

/// An all group: its elements may stand in any order.
class CHeader : public COrderClass {
 public:
  explicit CHeader(char16_t const* elementName = u"header");

  Date const& GetDate() const { return m_date; }
  void SetDate(Date const& value);
  std::optional<Date> const& GetDeliverBy() const { return m_deliverBy; }
  void SetDeliverBy(std::optional<Date> const& value);
  /// The number of a framework contract: more digits than 64 bits have.
  std::optional<KestXmlLib20::CBigInteger> const& GetContract() const { return m_contract; }
  void SetContract(std::optional<KestXmlLib20::CBigInteger> const& value);
  Currency GetCurrency() const { return m_currency; }
  void SetCurrency(Currency value) { m_currency = value; }
  /// Default normal, in the document as an element without text.
  Priority GetPriority() const { return m_priority.value_or(Priority::Normal); }
  void SetPriority(std::optional<Priority> value) { m_priority = value; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  Date m_date;
  std::optional<Date> m_deliverBy;
  std::optional<KestXmlLib20::CBigInteger> m_contract;
  Currency m_currency = Currency::Eur;
  std::optional<Priority> m_priority;
};

}  // namespace KestOrders
