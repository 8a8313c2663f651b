// Reading of text in which every character has its place.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "kestxml/values/internal/ascii.h"

namespace KestXmlLib20::internal {

/// Goes through a text whose length has been tested. A character out of place shows in IsMatch at
/// the end; until then reading goes on.
class DigitScanner {
 public:
  explicit DigitScanner(std::u16string_view text) : m_at(text.data()) {}

  bool IsMatch() const { return m_matches; }

  int Digits(int count) {
    int number = 0;
    for (; count > 0; --count) {
      int const digit = *m_at++ - u'0';
      m_matches = m_matches && digit >= 0 && digit <= 9;
      number = number * 10 + digit;
    }
    return number;
  }

  void Mark(char16_t mark) { m_matches = *m_at++ == mark && m_matches; }

 private:
  char16_t const* m_at;
  bool m_matches = true;
};

/// Where a terminated string would end.
inline std::u16string_view UpToNull(std::u16string_view text) {
  return text.substr(0, text.find(u'\0'));
}

inline std::u16string_view LeadingDigits(std::u16string_view text) {
  auto const end = std::find_if_not(text.begin(), text.end(), IsDigit);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

/// How many digits of a fraction of a second are read: nanoseconds.
inline constexpr std::size_t kMostFractionDigits = 9;

/// The thousands that the three @p digits of a fraction from position @p at make up, where those
/// that are not there count as 0.
inline std::uint16_t FractionGroup(std::u16string_view digits, std::size_t at) {
  int group = 0;
  for (std::size_t i = at; i < at + 3; ++i) {
    group = group * 10 + (i < digits.size() ? digits[i] - u'0' : 0);
  }
  return static_cast<std::uint16_t>(group);
}

}  // namespace KestXmlLib20::internal
