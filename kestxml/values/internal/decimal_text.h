// The text of decimal numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace KestXmlLib20::internal {

/// Digits that other characters may interrupt. They are copied only then.
class DigitRun {
 public:
  void Add(std::u16string_view digits) {
    if (digits.empty()) return;
    if (m_digits.empty()) {
      m_digits = digits;
      return;
    }
    if (m_copy.empty()) m_copy = m_digits;
    m_copy += digits;
  }

  std::u16string_view Get() const { return m_copy.empty() ? m_digits : m_copy; }

 private:
  std::u16string_view m_digits;
  std::u16string m_copy;
};

struct DecimalText {
  bool isNegative = false;
  DigitRun integer;
  DigitRun fraction;
  bool hasExponent = false;
  bool isExponentNegative = false;
  std::int32_t exponent = 0;  // without its sign
};

/// See CDecimal::Parse. The result refers to @p text, in which no unit is null.
/// @throws CKestInvalidValueException on the first character out of place and on an exponent that
///   makes too long a number.
DecimalText ParseDecimalText(std::u16string_view text);

}  // namespace KestXmlLib20::internal
