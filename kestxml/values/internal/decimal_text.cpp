#include "kestxml/values/internal/decimal_text.h"

#include <algorithm>
#include <utility>

#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/internal/magnitude_arithmetic.h"
#include "kestxml/values/internal/magnitude_text.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20::internal {
namespace {

using Text = std::u16string_view;

constexpr std::int64_t kMostDigits = 1000;  // on either side of the point, by an exponent

constexpr std::int64_t kFarPower = INT32_MAX;  // more than the digits of any text make up for

bool IsSign(char16_t unit) {
  return unit == u'-' || unit == u'+';
}

// Digits that other characters may interrupt. They are copied only then.
class DigitRun {
 public:
  void Add(char16_t const* digit) {
    if (m_size == 0) m_first = digit;
    if (m_copy.empty() && digit != m_first + m_size) m_copy.assign(m_first, m_size);
    if (!m_copy.empty()) m_copy += *digit;
    ++m_size;
  }

  std::size_t Size() const { return m_size; }
  Magnitude Read() const {
    if (m_size == 0) return Magnitude();
    return ReadDigits(m_copy.empty() ? Text(m_first, m_size) : Text(m_copy));
  }

 private:
  char16_t const* m_first = nullptr;
  std::size_t m_size = 0;
  std::u16string m_copy;
};

// One pass from left to right, in stages.
class Parser {
 public:
  explicit Parser(Text text) : m_text(text), m_at(text.data()), m_end(m_at + text.size()) {}

  DecimalText Parse() {
    ReadInteger();
    if (Peek() == u'.') ReadFraction();
    if (ToLower(Peek()) == u'e') ReadExponent();
    if (m_at != m_end) ThrowAt(m_at);
    return std::move(m_result);
  }

 private:
  // Null at the end: the text has no null unit.
  char16_t Peek() const { return m_at == m_end ? u'\0' : *m_at; }

  [[noreturn]] void ThrowAt(char16_t const* at) const {
    throw CKestInvalidValueException(FormatString(
        u"The string representing a Decimal, contained an invalid char at position %d [%s].",
        at - m_text.data(), m_text));
  }

  // The last sign counts, and a sign may stand among the digits.
  void ReadInteger() {
    DigitRun digits;
    for (; m_at != m_end; ++m_at) {
      char16_t const unit = *m_at;
      if (IsDigit(unit)) {
        digits.Add(m_at);
      } else if (IsSign(unit)) {
        m_result.isNegative = unit == u'-';
      } else if (!CWhitespaceUtils::IsWhiteSpace(unit)) {
        break;
      }
    }
    m_result.integer = digits.Read();
  }

  void ReadFraction() {
    DigitRun digits;
    for (++m_at; m_at != m_end; ++m_at) {
      if (IsDigit(*m_at)) {
        digits.Add(m_at);
      } else if (!CWhitespaceUtils::IsWhiteSpace(*m_at)) {
        break;
      }
    }
    m_result.fraction = digits.Read();
    m_result.places = static_cast<std::int32_t>(digits.Size());
  }

  // White space and signs may stand in front of the exponent's digits, but no longer behind them.
  void ReadExponent() {
    bool& isNegative = m_result.isExponentNegative;
    for (++m_at; IsSign(Peek()) || CWhitespaceUtils::IsWhiteSpace(Peek()); ++m_at) {
      if (IsSign(*m_at)) isNegative = *m_at == u'-';
    }
    char16_t const* const first = m_at;
    std::int64_t exponent = 0;
    for (; IsDigit(Peek()); ++m_at) exponent = std::min(exponent * 10 + (*m_at - u'0'), kFarPower);
    if (!FitsExponent(isNegative ? -exponent : exponent)) ThrowAt(first);
    // Zero takes any exponent, which then does not matter.
    if (IsZero()) exponent = std::min(exponent, kMostDigits);
    m_result.exponent = static_cast<std::int32_t>(exponent);
    m_result.hasExponent = m_at != first;
  }

  bool IsZero() const {
    return internal::IsZero(m_result.integer) && internal::IsZero(m_result.fraction);
  }

  bool FitsExponent(std::int64_t exponent) const {
    if (IsZero()) return true;
    return DigitsBeforePoint() + exponent <= kMostDigits &&
           DigitsBehindPoint() - exponent <= kMostDigits;
  }

  // Of a number that is not zero; negative by the zeros behind the point of one below 0.1.
  std::int64_t DigitsBeforePoint() const {
    if (!internal::IsZero(m_result.integer)) {
      return static_cast<std::int64_t>(CountDigits(m_result.integer));
    }
    return static_cast<std::int64_t>(CountDigits(m_result.fraction)) - m_result.places;
  }

  // Of a number that is not zero; negative by the zeros at the end of a whole one.
  std::int64_t DigitsBehindPoint() const {
    if (!internal::IsZero(m_result.fraction)) {
      return m_result.places - static_cast<std::int64_t>(CountTrailingZeros(m_result.fraction));
    }
    return -static_cast<std::int64_t>(CountTrailingZeros(m_result.integer));
  }

  Text m_text;
  char16_t const* m_at;
  char16_t const* m_end;
  DecimalText m_result;
};

}  // namespace

DecimalText ParseDecimalText(Text text) {
  return Parser(text.substr(0, text.find(u'\0'))).Parse();
}

}  // namespace KestXmlLib20::internal
