// Short text of digits and marks, put together without allocation.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

namespace KestXmlLib20::internal {

/// Holds what the longest duration takes; nothing longer is put in.
class DigitText {
 public:
  void Mark(char16_t unit) { *m_end++ = unit; }

  void Put(std::uint64_t number) { Put(number, 1); }

  /// With zeros in front up to @p width digits, and with all its digits.
  void Put(std::uint64_t number, int width) {
    char16_t digits[20];
    char16_t* first = std::end(digits);
    for (; number != 0 || width > 0; number /= 10, --width) {
      *--first = static_cast<char16_t>(u'0' + number % 10);
    }
    m_end = std::copy(first, std::end(digits), m_end);
  }

  /// With two digits, or with more where it has more.
  void PutPair(unsigned number) {
    if (number > 99) return Put(number, 2);
    Mark(static_cast<char16_t>(u'0' + number / 10));
    Mark(static_cast<char16_t>(u'0' + number % 10));
  }

  /// A point and the groups of three digits up to the last that is not 0, without the zeros at the
  /// end of that; nothing when all are 0.
  void PutFraction(std::uint16_t milli, std::uint16_t micro, std::uint16_t nano) {
    if (milli == 0 && micro == 0 && nano == 0) return;
    Mark(u'.');
    Put(milli, 3);
    if (micro != 0 || nano != 0) Put(micro, 3);
    if (nano != 0) Put(nano, 3);
    while (m_end[-1] == u'0') --m_end;
  }

  std::u16string ToString() const { return {m_text, static_cast<std::size_t>(m_end - m_text)}; }

 private:
  char16_t m_text[128];
  char16_t* m_end = m_text;
};

}  // namespace KestXmlLib20::internal
