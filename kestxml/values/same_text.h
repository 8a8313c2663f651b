// Equality of texts, quickly.
#pragma once

#include <cstring>
#include <string_view>

namespace KestXmlLib20 {

/// As operator==, which compares 16-bit units one by one.
inline bool IsSameText(std::u16string_view left, std::u16string_view right) {
  std::size_t const length = left.size();
  return length == right.size() &&
         (length == 0 || std::memcmp(left.data(), right.data(), length * sizeof(char16_t)) == 0);
}

}  // namespace KestXmlLib20
