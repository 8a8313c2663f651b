#include "kestxml/collections/value_cols.h"

#include <string_view>
#include <utility>

#include "kestxml/values/conversions.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20 {
namespace {

using C = CConversions;
using V = KestVariant;

// How a kind of value is written, read, and put into a variant to be checked. A printer may take
// the collection's format.
template <auto Print, auto Parse, auto Set>
struct Text {
  template <typename T>
  static decltype(auto) ToText(T const& value, std::u16string const& format) {
    if constexpr (std::is_invocable_v<decltype(Print), T const&, std::u16string const&>) {
      return Print(value, format);
    } else {
      return Print(value);
    }
  }
  static auto FromText(std::u16string_view text, C::Rule rule) { return Parse(text, rule); }
  template <typename T>
  static KestVariant ToVariant(T const& value) {
    KestVariant variant;
    (variant.*Set)(value);
    return variant;
  }
};

std::u16string const& ItsOwnText(std::u16string const& value) {
  return value;
}

template <ItemType>
struct Kind;

// clang-format off
//                                            written                   read                        checked as
template <> struct Kind<ItemType_hexBinary>    : Text<C::hexBinaryToString,    C::hexBinaryFromString,    &V::SetHexBinary> {};
template <> struct Kind<ItemType_base64Binary> : Text<C::base64BinaryToString, C::base64BinaryFromString, &V::SetBase64Binary> {};
template <> struct Kind<ItemType_i1>           : Text<C::i1ToString,           C::i1FromString,           &V::SetI1> {};
template <> struct Kind<ItemType_i2>           : Text<C::i2ToString,           C::i2FromString,           &V::SetI2> {};
template <> struct Kind<ItemType_i4>           : Text<C::i4ToString,           C::i4FromString,           &V::SetI4> {};
template <> struct Kind<ItemType_i8>           : Text<C::i8ToString,           C::i8FromString,           &V::SetI8> {};
template <> struct Kind<ItemType_ui1>          : Text<C::ui1ToString,          C::ui1FromString,          &V::SetUI1> {};
template <> struct Kind<ItemType_ui2>          : Text<C::ui2ToString,          C::ui2FromString,          &V::SetUI2> {};
template <> struct Kind<ItemType_ui4>          : Text<C::ui4ToString,          C::ui4FromString,          &V::SetUI4> {};
template <> struct Kind<ItemType_ui8>          : Text<C::ui8ToString,          C::ui8FromString,          &V::SetUI8> {};
template <> struct Kind<ItemType_r4>           : Text<C::r4ToString,           C::r4FromString,           &V::SetR4> {};
template <> struct Kind<ItemType_r8>           : Text<C::r8ToString,           C::r8FromString,           &V::SetR8> {};
template <> struct Kind<ItemType_duration>     : Text<C::durationToString,     C::durationFromString,     &V::SetDuration> {};
template <> struct Kind<ItemType_year>         : Text<C::yearToString,         C::yearFromString,         &V::SetYear> {};
template <> struct Kind<ItemType_month>        : Text<C::monthToString,        C::monthFromString,        &V::SetMonth> {};
template <> struct Kind<ItemType_day>          : Text<C::dayToString,          C::dayFromString,          &V::SetDay> {};
template <> struct Kind<ItemType_decimal>      : Text<C::decimalToString,      C::decimalFromString,      &V::SetDecimal> {};
template <> struct Kind<ItemType_integer>      : Text<C::integerToString,      C::integerFromString,      &V::SetInteger> {};
template <> struct Kind<ItemType_string>       : Text<ItsOwnText,              C::stringFromString,       &V::SetStringReference> {};
template <> struct Kind<ItemType_boolean>      : Text<C::booleanToString,      C::booleanFromString,      &V::SetBoolean> {};
// clang-format on

}  // namespace

template <ItemType kItemType, typename T>
CValueCol<kItemType, T>::CValueCol(char16_t const* elementName, char16_t const* namespaceURI,
                                   std::int32_t minOccurs, std::int32_t maxOccurs,
                                   char16_t const* pattern, std::int32_t minLength,
                                   std::int32_t maxLength, char16_t const* minInclusive,
                                   char16_t const* maxInclusive, char16_t const* minExclusive,
                                   char16_t const* maxExclusive, std::int32_t length,
                                   std::int32_t totalDigits, std::int32_t fractionDigits,
                                   CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                   char16_t const* format)
    : CXmlTypeCollection(kItemType, elementName, namespaceURI, minOccurs, maxOccurs, pattern,
                         minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                         maxExclusive, length, totalDigits, fractionDigits, whitespaceRule,
                         format) {}

template <ItemType kItemType, typename T>
CValueCol<kItemType, T>::~CValueCol() = default;

template <ItemType kItemType, typename T>
void CValueCol<kItemType, T>::Remove(std::int32_t index) {
  BeginRemove(index);
  m_values.Erase(index);
  EndRemove();
}

template <ItemType kItemType, typename T>
void CValueCol<kItemType, T>::Add(Argument value) {
  AddAt(GetCount(), std::forward<Argument>(value));
}

// Without listeners nobody sees whether the argument is still the value at the end.
template <ItemType kItemType, typename T>
void CValueCol<kItemType, T>::AddAt(std::int32_t index, Argument value) {
  if constexpr (std::is_reference_v<Argument>) {
    if (m_values.Holds(value)) return AddAt(index, T(value));
  }
  BeginAdd(index, &value);
  if (HasFacets()) CheckFacets(Kind<kItemType>::ToVariant(value));
  if (HasEventListeners()) {
    m_values.Insert(index, value);
  } else {
    m_values.Insert(index, std::forward<Argument>(value));
  }
  EndAdd(&value);
}

template <ItemType kItemType, typename T>
T CValueCol<kItemType, T>::Item(std::int32_t index) const {
  TestIndex(index, GetCount());
  return m_values.Get(index);
}

template <ItemType kItemType, typename T>
void CValueCol<kItemType, T>::AddFromString(std::u16string_view text) {
  Add(Kind<kItemType>::FromText(text, GetWhitespaceRule()));
}

template <ItemType kItemType, typename T>
void CValueCol<kItemType, T>::ToXml_Int(CXmlWriter* writer, bool /*registerNamespaces*/,
                                        char16_t const* /*namespaceUri*/,
                                        CSerializationContext const& context,
                                        bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  std::u16string const name = GetElementName();
  for (auto const& value : m_values) {
    WriteValue(*writer, name, Kind<kItemType>::ToText(value, GetFormat()), kItemType);
  }
}

template class CValueCol<ItemType_hexBinary, CBinaryData>;
template class CValueCol<ItemType_base64Binary, CBinaryData>;
template class CValueCol<ItemType_i1, signed char>;
template class CValueCol<ItemType_i2, std::int16_t>;
template class CValueCol<ItemType_i4, std::int32_t>;
template class CValueCol<ItemType_i8, std::int64_t>;
template class CValueCol<ItemType_ui1, unsigned char>;
template class CValueCol<ItemType_ui2, std::uint16_t>;
template class CValueCol<ItemType_ui4, std::uint32_t>;
template class CValueCol<ItemType_ui8, std::uint64_t>;
template class CValueCol<ItemType_r4, float>;
template class CValueCol<ItemType_r8, double>;
template class CValueCol<ItemType_duration, CDateTimeSpan>;
template class CValueCol<ItemType_year, std::uint16_t>;
template class CValueCol<ItemType_month, unsigned char>;
template class CValueCol<ItemType_day, unsigned char>;
template class CValueCol<ItemType_decimal, CDecimal>;
template class CValueCol<ItemType_integer, CBigInteger>;
template class CValueCol<ItemType_string, std::u16string>;
template class CValueCol<ItemType_boolean, bool>;

}  // namespace KestXmlLib20
