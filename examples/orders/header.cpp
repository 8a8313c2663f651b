#include "examples/orders/header.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

namespace {

enum Property : std::int32_t {
  kDateProperty,
  kDeliverByProperty,
  kContractProperty,
  kCurrencyProperty,
  kPriorityProperty,
};

}  // namespace

// The order of the table is the order of writing.
constinit COrderClass::CTables CHeader::s_tables([] {
  return MakeTables(
      ElementClass(XmlElementGroupType_All, u"header"),
      {Element<CElementInfoAllPrimMnd>(u"date", kDateProperty, kDate),
       Element<CElementInfoAllPrimOpt>(u"deliverBy", kDeliverByProperty, kDate),
       Element<CElementInfoAllPrimOpt>(u"contract", kContractProperty, kContract),
       new CElementInfoAllEnumMnd(u"currency", kOrderNamespace, kCurrencyProperty, false,
                                  CurrencyToString, CurrencyFromString, nullptr),
       new CElementInfoAllEnumOpt(u"priority", kOrderNamespace, kPriorityProperty, false,
                                  PriorityToString, PriorityFromString, u"normal")},
      {});
});

CHeader::CHeader(char16_t const* elementName) : COrderClass(elementName) {
  CHeader::Init();
}

void CHeader::Init() {
  m_date = {};
  m_deliverBy.reset();
  m_contract.reset();
  m_currency = Currency::Eur;
  m_priority.reset();
}

void CHeader::SetDate(Date const& value) {
  m_date = Checked(u"date", value, kDate);
}
void CHeader::SetDeliverBy(std::optional<Date> const& value) {
  m_deliverBy = Checked(u"deliverBy", value, kDate);
}
void CHeader::SetContract(std::optional<CBigInteger> const& value) {
  m_contract = Checked(u"contract", value, kContract);
}

void CHeader::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kDateProperty:
      return Access(m_date, read, value);
    case kDeliverByProperty:
      return Access(m_deliverBy, read, value);
    case kContractProperty:
      return Access(m_contract, read, value);
    case kCurrencyProperty:
      return Access(m_currency, read, value);
    case kPriorityProperty:
      return Access(m_priority, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders
