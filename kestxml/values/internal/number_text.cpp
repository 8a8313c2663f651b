#include "kestxml/values/internal/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <type_traits>

#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/internal/fixed_real.h"

namespace KestXmlLib20::internal {
namespace {

using Text = std::u16string_view;

// The part of the text that is not read yet.
class Scanner {
 public:
  explicit Scanner(Text text) : m_at(text.data()), m_end(text.data() + text.size()) {}

  Text Rest() const { return {m_at, m_end}; }

  // The next unit; null at the end, which so looks like the end of a terminated string.
  char16_t Peek() const { return m_at == m_end ? u'\0' : *m_at; }
  void Skip() { ++m_at; }

  void SkipSpace() {
    while (IsRunTimeSpace(Peek())) Skip();
  }

  // True when there was a minus sign; a plus sign goes unnoticed.
  bool SkipSign() {
    bool const negative = Peek() == u'-';
    if (negative || Peek() == u'+') Skip();
    return negative;
  }

 private:
  char16_t const* m_at;
  char16_t const* m_end;
};

// What a parser of the run-time says of text in which it finds no digit: it stands at the start
// again, and only a terminator there counts as the end.
NumberFault WithoutDigits(Text text) {
  return !text.empty() && text.front() == u'\0' ? NumberFault::None : NumberFault::Malformed;
}

// The largest magnitude that fits; a two's complement number has one more below zero.
template <typename T>
constexpr std::uint64_t Limit(bool negative) {
  auto const largest = static_cast<std::uint64_t>(std::numeric_limits<T>::max());
  return largest + (std::is_signed_v<T> && negative ? 1 : 0);
}

// Reads digits alone, and no more than always fit; that is most numbers.
template <typename T>
bool ParsePlain(Text text, T& value) {
  if (text.empty() || text.size() > std::numeric_limits<T>::digits10) return false;
  std::make_unsigned_t<T> number = 0;
  for (char16_t const unit : text) {
    auto const digit = static_cast<std::make_unsigned_t<T>>(unit - u'0');
    if (digit > 9) return false;
    number = number * 10 + digit;
  }
  value = static_cast<T>(number);
  return true;
}

template <typename T>
NumberFault Parse(Text text, T& value) {
  if (ParsePlain(text, value)) return NumberFault::None;
  Scanner scanner(text);
  scanner.SkipSpace();
  bool const negative = scanner.SkipSign();
  std::uint64_t magnitude = 0;
  if (!IsDigit(scanner.Peek())) {
    NumberFault const fault = WithoutDigits(text);
    if (fault == NumberFault::None) value = 0;
    return fault;
  }
  std::uint64_t const limit = Limit<T>(negative);
  for (; IsDigit(scanner.Peek()); scanner.Skip()) {
    auto const digit = static_cast<std::uint64_t>(scanner.Peek() - u'0');
    if (magnitude > limit / 10 || magnitude * 10 > limit - digit) return NumberFault::OutOfRange;
    magnitude = magnitude * 10 + digit;
  }
  if (scanner.Peek() != u'\0') return NumberFault::Malformed;
  value = static_cast<T>(negative ? 0 - magnitude : magnitude);
  return NumberFault::None;
}

// The digits of a decimal number from the first that is not zero, and the power of ten of the last.
// No more digits are kept than can decide how a double is rounded (767); of the others it only
// counts whether one of them is not zero. So the length of the text does not matter.
class Decimal {
 public:
  void AddDigits(Scanner& scanner, bool fraction) {
    for (; IsDigit(scanner.Peek()); scanner.Skip()) {
      AddDigit(static_cast<char>(scanner.Peek()), fraction);
    }
  }

  bool HasDigits() const { return m_hasDigits; }
  void Scale(std::int64_t exponent) { m_exponent += exponent; }

  double Round() {
    if (m_count == 0) return 0;
    bool const large = m_exponent + static_cast<std::int64_t>(m_count) > 0;
    if (m_inexact) {
      m_text[m_count++] = '1';
      --m_exponent;
    }
    m_text[m_count] = 'e';
    auto const power = std::clamp<std::int64_t>(m_exponent, -kFarPower, kFarPower);
    char* const end = std::to_chars(m_text + m_count + 1, std::end(m_text), power).ptr;
    double value = 0;
    if (std::from_chars(m_text, end, value).ec == std::errc()) return value;
    return large ? std::numeric_limits<double>::infinity() : 0;  // out of range gives no value
  }

 private:
  static constexpr std::size_t kDigits = 768;
  static constexpr std::int64_t kFarPower = 9'999;  // out of range with any kDigits digits

  void AddDigit(char digit, bool fraction) {
    m_hasDigits = true;
    bool const keep = m_count < kDigits;
    if (m_count != 0 || digit != '0') {
      if (keep) m_text[m_count++] = digit;
      if (!keep && digit != '0') m_inexact = true;
    }
    if (fraction && keep) --m_exponent;
    if (!fraction && !keep) ++m_exponent;
  }

  std::size_t m_count = 0;
  std::int64_t m_exponent = 0;
  bool m_hasDigits = false;
  bool m_inexact = false;
  char m_text[kDigits + 16];  // left unset: only what was written is read
};

// The exponent that begins at an e or E; the scanner moves past it. Text without a digit behind
// the e is no exponent, so the scanner then stays.
std::int64_t ParseExponent(Scanner& scanner) {
  constexpr std::int64_t kEnough = 1'000'000'000'000;  // more than the digits of any text make up
  Scanner ahead = scanner;
  ahead.Skip();
  bool const negative = ahead.SkipSign();
  if (!IsDigit(ahead.Peek())) return 0;
  std::int64_t magnitude = 0;
  for (; IsDigit(ahead.Peek()); ahead.Skip()) {
    magnitude = std::min(magnitude * 10 + (ahead.Peek() - u'0'), kEnough);
  }
  scanner = ahead;
  return negative ? -magnitude : magnitude;
}

// Reads most numbers, and leaves the others to ParseAny: what is long, out of range or malformed.
bool ParseShort(Text text, double& value) {
  char buffer[32];
  if (text.empty() || text.size() > sizeof buffer) return false;
  if (!IsDigit(text.front()) && text.front() != u'.') return false;  // such as "inf"
  unsigned all = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    buffer[i] = static_cast<char>(text[i]);
    all |= text[i];
  }
  if (all >= 0x80) return false;
  auto const [end, fault] = std::from_chars(buffer, buffer + text.size(), value);
  return fault == std::errc() && (end == buffer + text.size() || *end == '\0');
}

bool ParseAny(Scanner scanner, double& value) {
  Decimal decimal;
  decimal.AddDigits(scanner, false);
  if (scanner.Peek() == u'.') {
    scanner.Skip();
    decimal.AddDigits(scanner, true);
  }
  if (!decimal.HasDigits()) return false;
  if (ToLower(scanner.Peek()) == u'e') decimal.Scale(ParseExponent(scanner));
  if (scanner.Peek() != u'\0') return false;
  value = decimal.Round();
  return true;
}

template <typename... Arguments>
std::u16string Print(Arguments... arguments) {
  char text[32];  // the longest is that of an r8 such as "-1.797693134862316e+308"
  char* const end = std::to_chars(text, text + sizeof text, arguments...).ptr;
  return WidenAscii({text, static_cast<std::size_t>(end - text)});
}

}  // namespace

NumberFault ParseInteger(Text text, std::int32_t& value) {
  return Parse(text, value);
}
NumberFault ParseInteger(Text text, std::int64_t& value) {
  return Parse(text, value);
}
NumberFault ParseInteger(Text text, std::uint32_t& value) {
  return Parse(text, value);
}
NumberFault ParseInteger(Text text, std::uint64_t& value) {
  return Parse(text, value);
}

std::int32_t ParseLeadingInteger(Text text) {
  Scanner scanner(text);
  scanner.SkipSpace();
  bool const negative = scanner.SkipSign();
  std::int64_t magnitude = 0;
  std::int64_t const limit = std::int64_t{INT32_MAX} + (negative ? 1 : 0);
  for (; IsDigit(scanner.Peek()); scanner.Skip()) {
    magnitude = std::min(magnitude * 10 + (scanner.Peek() - u'0'), limit);
  }
  return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
}

bool ParseReal(Text text, double& value) {
  Scanner scanner(text);
  scanner.SkipSpace();
  bool const negative = scanner.SkipSign();
  double magnitude = 0;
  bool const read = ParseShort(scanner.Rest(), magnitude) || ParseAny(scanner, magnitude);
  if (!read && WithoutDigits(text) == NumberFault::Malformed) return false;
  value = negative ? -magnitude : magnitude;
  return true;
}

std::u16string PrintInteger(std::int64_t value) {
  return Print(value);
}
std::u16string PrintInteger(std::uint64_t value) {
  return Print(value);
}

std::u16string PrintReal(double value, int precision) {
  char text[24];
  if (char const* const end = PrintFixedReal(value, precision, text)) {
    return WidenAscii({text, static_cast<std::size_t>(end - text)});
  }
  return Print(value, std::chars_format::general, precision);
}

}  // namespace KestXmlLib20::internal
