// The arithmetic of bare digits that classes derived from CBigInteger use. Where it takes more than
// a few lines it is done on limbs.
#include <algorithm>
#include <cmath>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/internal/magnitude_arithmetic.h"
#include "kestxml/values/internal/magnitude_text.h"

namespace KestXmlLib20 {
namespace {

using internal::Magnitude;
using Digits = std::vector<std::uint16_t>;

Magnitude ToMagnitude(Digits const& digits) {
  std::u16string text(digits.rbegin(), digits.rend());
  for (char16_t& unit : text) unit = static_cast<char16_t>(u'0' + unit % 10);
  Magnitude number;
  internal::ReadDigits(text, number);
  return number;
}

Digits ToDigits(Magnitude const& number) {
  std::u16string text(internal::CountDigits(number), u'0');
  internal::WriteDigits(number, text.data() + text.size());
  Digits digits(text.rbegin(), text.rend());
  for (std::uint16_t& digit : digits) digit = static_cast<std::uint16_t>(digit - u'0');
  return digits;
}

}  // namespace

CBigInteger::CBigInteger(std::int32_t sign, Digits const& digits)
    : CBigInteger(sign, ToMagnitude(digits)) {}

void CBigInteger::Build(unsigned value, Digits& digits) {
  BuildDWORDLONG(value, digits);
}

void CBigInteger::BuildDWORDLONG(std::uint64_t value, Digits& digits) {
  digits = ToDigits(Magnitude(value));
}

void CBigInteger::BuildDouble(double value, Digits& digits) {
  digits.clear();
  double rest = std::ceil(value - 0.5);
  do {
    digits.push_back(static_cast<std::uint16_t>(std::fmod(rest, 10.0)));
    std::modf(rest / 10.0, &rest);
  } while (rest > 0);
}

void CBigInteger::Build(std::u16string_view text, Digits& digits) {
  digits.clear();
  for (auto unit = text.rbegin(); unit != text.rend() && internal::IsDigit(*unit); ++unit) {
    digits.push_back(static_cast<std::uint16_t>(*unit - u'0'));
  }
  Clean(digits);
}

void CBigInteger::Clean(Digits& digits) {
  while (digits.size() > 1 && digits.back() == 0) digits.pop_back();
}

int CBigInteger::Compare(Digits const& left, Digits const& right) {
  if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
  auto const [at, other] = std::mismatch(left.rbegin(), left.rend(), right.rbegin());
  if (at == left.rend()) return 0;
  return *at < *other ? -1 : 1;
}

void CBigInteger::Add(Digits const& left, Digits const& right, Digits& result) {
  result = ToDigits(internal::Add(ToMagnitude(left), ToMagnitude(right)));
}

void CBigInteger::Subtract(Digits const& left, Digits const& right, Digits& result) {
  result = ToDigits(internal::Subtract(ToMagnitude(left), ToMagnitude(right)));
}

void CBigInteger::Multiply(Digits const& left, Digits const& right, Digits& result) {
  result = ToDigits(internal::Multiply(ToMagnitude(left), ToMagnitude(right)));
}

void CBigInteger::Multiply(Digits const& left, std::uint16_t digit, Digits& result) {
  result = ToDigits(internal::Multiply(ToMagnitude(left), Magnitude(std::uint64_t{digit})));
}

void CBigInteger::ShiftLeft(Digits& digits, int count) {
  if (count > 0) digits.insert(digits.begin(), static_cast<std::size_t>(count), 0);
}

int CBigInteger::Position(Digits const& digits) {
  return static_cast<int>(std::max<std::size_t>(digits.size(), 1));
}

void CBigInteger::Pow10(unsigned power, Digits& digits) {
  digits.assign(std::size_t{power} + 1, 0);
  digits.back() = 1;
}

void CBigInteger::Divide(Digits const& dividend, Digits const& divisor, Digits& quotient,
                         Digits& remainder) {
  internal::Quotient const result = internal::Divide(ToMagnitude(dividend), ToMagnitude(divisor));
  quotient = ToDigits(result.quotient);
  remainder = ToDigits(result.remainder);
}

}  // namespace KestXmlLib20
