// How the built-in types of XML Schema are held, and read.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

#include "kestxml/values/item_type.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/primitive_restrictions.h"
#include "kestxml/values/unicode.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {

inline constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

struct XsdType {
  std::string_view name;
  ItemType kind;
  CWhitespaceUtils::WhitespaceRule rule = kCollapse;
  char16_t const* least = u"";  // of the type's own facets; they hold for values of its kind
  char16_t const* most = u"";
};

inline constexpr XsdType kXsdTypes[] = {
    {"string", ItemType_string, CWhitespaceUtils::WhitespaceRule_Preserve},
    {"normalizedString", ItemType_string, CWhitespaceUtils::WhitespaceRule_Replace},
    {"token", ItemType_string},
    {"language", ItemType_string},
    {"Name", ItemType_string},
    {"NCName", ItemType_string},
    {"NMTOKEN", ItemType_string},
    {"ID", ItemType_string},
    {"IDREF", ItemType_string},
    {"QName", ItemType_string},
    {"NOTATION", ItemType_string},
    {"anyURI", ItemType_string},
    {"byte", ItemType_i1},
    {"short", ItemType_i2},
    {"int", ItemType_i4},
    {"long", ItemType_i8},
    {"unsignedByte", ItemType_ui1},
    {"unsignedShort", ItemType_ui2},
    {"unsignedInt", ItemType_ui4},
    {"unsignedLong", ItemType_ui8},
    {"float", ItemType_r4},
    {"double", ItemType_r8},
    {"decimal", ItemType_decimal},
    {"integer", ItemType_integer},
    {"nonNegativeInteger", ItemType_integer, kCollapse, u"0", u""},
    {"positiveInteger", ItemType_integer, kCollapse, u"1", u""},
    {"nonPositiveInteger", ItemType_integer, kCollapse, u"", u"0"},
    {"negativeInteger", ItemType_integer, kCollapse, u"", u"-1"},
    {"duration", ItemType_duration},
    {"yearMonthDuration", ItemType_duration},
    {"dayTimeDuration", ItemType_duration},
    {"dateTime", ItemType_datetime},
    {"date", ItemType_date},
    {"time", ItemType_time},
    {"gYearMonth", ItemType_yearMonth},
    {"gMonthDay", ItemType_monthDay},
    {"gYear", ItemType_year},
    {"gMonth", ItemType_month},
    {"gDay", ItemType_day},
    {"boolean", ItemType_boolean},
    {"hexBinary", ItemType_hexBinary},
    {"base64Binary", ItemType_base64Binary},
};

/// Null for a type whose kind of value does not exist here.
inline XsdType const* FindXsdType(std::string_view name) {
  auto const* const found = std::ranges::find(kXsdTypes, name, &XsdType::name);
  return found == std::end(kXsdTypes) ? nullptr : found;
}

/// The value of a property of that type that has a text, as a generated class reads it.
/// @throws CKestException for what is none.
inline KestVariant ReadValue(XsdType const& type, std::string_view text) {
  KestVariant value;
  value.FromString(FromUtf8(text), type.kind, type.rule);
  CPrimitiveRestrictions const own(u"", -1, -1, type.least, type.most, u"", u"", -1, -1, -1);
  CheckPrimitiveRestriction(u"n", value, type.kind, own);
  return value;
}

}  // namespace KestXmlLib20
