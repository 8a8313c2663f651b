// Text that a caller may leave out by a null pointer.
#pragma once

#include <string_view>

namespace KestXmlLib20::internal {

/// @p text; an empty one for null.
inline char16_t const* TextOf(char16_t const* text) {
  return text ? text : u"";
}

/// The terminated text at @p text; empty for null.
inline std::u16string_view ViewOf(char16_t const* text) {
  return TextOf(text);
}

}  // namespace KestXmlLib20::internal
