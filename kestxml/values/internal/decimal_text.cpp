#include "kestxml/values/internal/decimal_text.h"

#include <algorithm>
#include <utility>

#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20::internal {
namespace {

using Text = std::u16string_view;

constexpr std::int64_t kMostDigits = 1000;         // on either side of the point, by an exponent
constexpr std::int64_t kFarPower = 1'000'000'000;  // places and exponents; twice that fits 32 bits

bool IsSign(char16_t unit) {
  return unit == u'-' || unit == u'+';
}

// The number of zeros in front and at the end. Of nothing but zeros, all of them are both.
std::int64_t LeadingZeros(Text digits) {
  return static_cast<std::int64_t>(std::min(digits.find_first_not_of(u'0'), digits.size()));
}
std::int64_t TrailingZeros(Text digits) {
  return static_cast<std::int64_t>(digits.size() - (digits.find_last_not_of(u'0') + 1));
}

// Whether a number keeps within the limit when its point is moved.
bool FitsExponent(Text integer, Text fraction, std::int64_t exponent) {
  auto const places = static_cast<std::int64_t>(fraction.size());
  std::int64_t before = static_cast<std::int64_t>(integer.size()) - LeadingZeros(integer);
  if (before == 0) before = -LeadingZeros(fraction);
  std::int64_t behind = places - TrailingZeros(fraction);
  if (behind == 0) behind = -TrailingZeros(integer);
  return before + exponent <= kMostDigits && behind - exponent <= kMostDigits;
}

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
  // Null at the end.
  char16_t Peek() const { return m_at == m_end ? u'\0' : *m_at; }
  bool IsAtSpace() const { return CWhitespaceUtils::IsWhiteSpace(Peek()); }

  Text TakeDigits() {
    char16_t const* const first = m_at;
    while (m_at != m_end && IsDigit(*m_at)) ++m_at;
    return {first, m_at};
  }

  [[noreturn]] void ThrowAt(char16_t const* at) const {
    throw CKestInvalidValueException(FormatString(
        u"The string representing a Decimal, contained an invalid char at position %d [%s].",
        at - m_text.data(), m_text));
  }

  // The last sign counts, and a sign may stand among the digits.
  void ReadInteger() {
    for (m_result.integer.Add(TakeDigits()); IsSign(Peek()) || IsAtSpace();
         m_result.integer.Add(TakeDigits())) {
      if (IsSign(*m_at)) m_result.isNegative = *m_at == u'-';
      ++m_at;
    }
  }

  void ReadFraction() {
    do {
      ++m_at;
      m_result.fraction.Add(TakeDigits());
    } while (IsAtSpace());
    if (m_result.fraction.Get().size() > kFarPower) ThrowAt(m_at);
  }

  // White space and signs may stand in front of the exponent's digits, but no longer behind them.
  void ReadExponent() {
    bool& isNegative = m_result.isExponentNegative;
    for (++m_at; IsSign(Peek()) || IsAtSpace(); ++m_at) {
      if (IsSign(*m_at)) isNegative = *m_at == u'-';
    }
    Text const digits = TakeDigits();
    if (digits.empty()) return;
    std::int64_t exponent = 0;
    for (char16_t const digit : digits) {
      exponent = std::min(exponent * 10 + (digit - u'0'), kFarPower);
    }
    if (IsZero()) {
      exponent = 0;  // whatever it is, it makes no difference
    } else if (!FitsExponent(m_result.integer.Get(), m_result.fraction.Get(),
                             isNegative ? -exponent : exponent)) {
      ThrowAt(digits.data());
    }
    m_result.exponent = static_cast<std::int32_t>(exponent);
    m_result.hasExponent = true;
  }

  bool IsZero() const {
    auto const isZero = [](Text digits) { return digits.find_first_not_of(u'0') == Text::npos; };
    return isZero(m_result.integer.Get()) && isZero(m_result.fraction.Get());
  }

  Text m_text;
  char16_t const* m_at;
  char16_t const* m_end;
  DecimalText m_result;
};

}  // namespace

DecimalText ParseDecimalText(Text text) {
  return Parser(text).Parse();
}

}  // namespace KestXmlLib20::internal
