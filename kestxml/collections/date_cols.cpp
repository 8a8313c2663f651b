#include "kestxml/collections/date_cols.h"

#include "kestxml/values/conversions.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20 {
namespace {

using C = CConversions;
using V = KestVariant;

// How a kind of date is read, and put into a variant to be checked.
template <auto Parse, auto Set>
struct Form {
  static CDateTime FromText(std::u16string_view text, C::Rule rule) { return Parse(text, rule); }
  static KestVariant ToVariant(CDateTime const& value) {
    KestVariant variant;
    (variant.*Set)(value);
    return variant;
  }
};

template <ItemType>
struct Kind;

// clang-format off
template <> struct Kind<ItemType_date>      : Form<C::dateFromString,      &V::SetDate> {};
template <> struct Kind<ItemType_datetime>  : Form<C::datetimeFromString,  &V::SetDateTime> {};
template <> struct Kind<ItemType_time>      : Form<C::timeFromString,      &V::SetTime> {};
template <> struct Kind<ItemType_monthDay>  : Form<C::monthDayFromString,  &V::SetMonthDay> {};
template <> struct Kind<ItemType_yearMonth> : Form<C::yearMonthFromString, &V::SetYearMonth> {};
// clang-format on

}  // namespace

CdatetimeBaseCol::~CdatetimeBaseCol() = default;

void CdatetimeBaseCol::Remove(std::int32_t index) {
  BeginRemove(index);
  m_values.Erase(index);
  EndRemove();
}

void CdatetimeBaseCol::Add(CDateTime const& value) {
  AddAt(GetCount(), value);
}

CDateTime CdatetimeBaseCol::Item(std::int32_t index) const {
  TestIndex(index, GetCount());
  return m_values.Get(index);
}

void CdatetimeBaseCol::BaseAddAt(std::int32_t index, CDateTime const& value) {
  if (m_values.Holds(value)) return BaseAddAt(index, CDateTime(value));
  BeginAdd(index, &value);
  m_values.Insert(index, value);
  EndAdd(&value);
}

// Writers of other formats know one kind of date: this one.
void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool /*registerNamespaces*/,
                                 char16_t const* /*namespaceUri*/,
                                 CSerializationContext const& context,
                                 bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  std::u16string const name = GetElementName();
  for (CDateTime const& value : m_values) {
    WriteValue(*writer, name, ItemToString(value), ItemType_datetime);
  }
}

template <ItemType kItemType, CDateTime::DTType kType>
CDateKindCol<kItemType, kType>::CDateKindCol(
    char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
    std::int32_t maxOccurs, char16_t const* pattern, std::int32_t minLength, std::int32_t maxLength,
    char16_t const* minInclusive, char16_t const* maxInclusive, char16_t const* minExclusive,
    char16_t const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
    std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule whitespaceRule,
    char16_t const* format)
    : CdatetimeBaseCol(kItemType, elementName, namespaceURI, minOccurs, maxOccurs, pattern,
                       minLength, maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive,
                       length, totalDigits, fractionDigits, whitespaceRule, format) {}

template <ItemType kItemType, CDateTime::DTType kType>
CDateKindCol<kItemType, kType>::~CDateKindCol() = default;

template <ItemType kItemType, CDateTime::DTType kType>
void CDateKindCol<kItemType, kType>::AddAt(std::int32_t index, CDateTime const& value) {
  if (value.GetType() != kType) {
    throw CKestInvalidParamException(
        FormatString(u"Dates added to this collection must be of type dt_%s",
                     CDateTime(kType).GetTypeAsString()));
  }
  if (HasFacets()) CheckFacets(Kind<kItemType>::ToVariant(value));
  BaseAddAt(index, value);
}

template <ItemType kItemType, CDateTime::DTType kType>
std::u16string CDateKindCol<kItemType, kType>::ItemToString(CDateTime const& value) const {
  return value.ToString(u"s");
}

template <ItemType kItemType, CDateTime::DTType kType>
void CDateKindCol<kItemType, kType>::AddFromString(std::u16string_view text) {
  AddAt(GetCount(), Kind<kItemType>::FromText(text, GetWhitespaceRule()));
}

template class CDateKindCol<ItemType_date, CDateTime::dt_date>;
template class CDateKindCol<ItemType_datetime, CDateTime::dt_dateTime>;
template class CDateKindCol<ItemType_time, CDateTime::dt_time>;
template class CDateKindCol<ItemType_monthDay, CDateTime::dt_gMonthDay>;
template class CDateKindCol<ItemType_yearMonth, CDateTime::dt_gYearMonth>;

}  // namespace KestXmlLib20
