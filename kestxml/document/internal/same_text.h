// Equality of texts, quickly.
#pragma once

#include <cstring>
#include <string_view>

namespace KestXmlLib20::internal {

/// As operator==, which compares 16-bit units one by one.
inline bool IsSameText(std::u16string_view left, std::u16string_view right) {
  return left.size() == right.size() &&
         std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;
}

}  // namespace KestXmlLib20::internal
