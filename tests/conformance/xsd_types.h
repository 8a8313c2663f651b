// How the built-in types of XML Schema are held.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

#include "kestxml/values/item_type.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {

struct XsdType {
  std::string_view name;
  ItemType kind;
  CWhitespaceUtils::WhitespaceRule rule = CWhitespaceUtils::WhitespaceRule_Collapse;
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
    {"nonNegativeInteger", ItemType_integer},
    {"positiveInteger", ItemType_integer},
    {"nonPositiveInteger", ItemType_integer},
    {"negativeInteger", ItemType_integer},
    {"boolean", ItemType_boolean},
    {"hexBinary", ItemType_hexBinary},
    {"base64Binary", ItemType_base64Binary},
};

/// Null for a type whose kind of value does not exist here.
inline XsdType const* FindXsdType(std::string_view name) {
  auto const* const found = std::ranges::find(kXsdTypes, name, &XsdType::name);
  return found == std::end(kXsdTypes) ? nullptr : found;
}

}  // namespace KestXmlLib20
