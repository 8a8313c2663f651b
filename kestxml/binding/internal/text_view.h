// A view of a text that may be missing.
#pragma once

#include <string_view>

namespace KestXmlLib20::internal {

/// The terminated text at @p text; empty for null.
inline std::u16string_view ViewOf(char16_t const* text) {
  return text ? std::u16string_view(text) : std::u16string_view(u"");
}

}  // namespace KestXmlLib20::internal
