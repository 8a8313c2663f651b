// What is done with text that can only be ASCII, or is compared with such.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace KestXmlLib20::internal {

constexpr bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

/// What the C run-time's number parsers skip.
constexpr bool IsRunTimeSpace(char16_t unit) {
  return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

constexpr char16_t ToLower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// @p lower holds no upper-case letter. No locale has a say, so a dotted I is no i.
constexpr bool EqualsIgnoringCase(std::u16string_view text, std::u16string_view lower) {
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                    [](char16_t left, char16_t right) { return ToLower(left) == right; });
}

inline std::u16string WidenAscii(std::string_view text) {
  return {text.begin(), text.end()};
}

}  // namespace KestXmlLib20::internal
