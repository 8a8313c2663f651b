#include "kestxml/values/big_integer.h"

#include <algorithm>
#include <cmath>

#include "kestxml/values/decimal.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/internal/magnitude_arithmetic.h"
#include "kestxml/values/internal/magnitude_text.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {

using internal::Magnitude;

namespace {

using Limb = Magnitude::Limb;
using Text = std::u16string_view;

constexpr Limb kMaxLong[] = {147'483'647, 2};
constexpr Limb kMinLong[] = {147'483'648, 2};
constexpr Limb kMaxLongLong[] = {854'775'807, 223'372'036, 9};
constexpr Limb kMinLongLong[] = {854'775'808, 223'372'036, 9};
constexpr struct MaxDouble {
  constexpr MaxDouble() { limbs[34] = 170; }
  Limb limbs[35] = {};
} kMaxDouble;

bool IsIntegerUnit(char16_t unit) {
  return internal::IsDigit(unit) || unit == u'-' || unit == u'+' ||
         CWhitespaceUtils::IsWhiteSpace(unit);
}

Text WithoutBlanks(Text text) {
  std::size_t const first = std::min(text.find_first_not_of(u' '), text.size());
  return text.substr(first, text.find_last_not_of(u' ') + 1 - first);
}

Text DigitsAtTheEnd(Text text) {
  std::size_t first = text.size();
  while (first > 0 && internal::IsDigit(text[first - 1])) --first;
  return text.substr(first);
}

}  // namespace

// Constants, not even the load of the library runs code for them: static objects of generated code
// may use them.
constinit CBigInteger const CBigInteger::MAX_LONG(1, kMaxLong);
constinit CBigInteger const CBigInteger::MIN_LONG(-1, kMinLong);
constinit CBigInteger const CBigInteger::MAX_LONGLONG(1, kMaxLongLong);
constinit CBigInteger const CBigInteger::MIN_LONGLONG(-1, kMinLongLong);
constinit CBigInteger const CBigInteger::MAX_DOUBLE(1, kMaxDouble.limbs);
constinit CBigInteger const CBigInteger::MIN_DOUBLE(-1, kMaxDouble.limbs);

CBigInteger::CBigInteger(double value) : m_sign(value < 0 ? -1 : 1) {
  if (!std::isfinite(value)) {
    throw CKestInvalidValueException(u"ERROR: Value out of bound of double.");
  }
  Digits digits;
  BuildDouble(std::abs(value), digits);
  m_magnitude = CBigInteger(1, digits).m_magnitude;
}

CBigInteger::CBigInteger(CDecimal const& value) : CBigInteger(value.ToBigInteger()) {}

void CBigInteger::Parse(char16_t const* text) {
  ParseWhole(text ? Text(text) : Text());
}

void CBigInteger::Parse(Text text) {
  ParseWhole(text.substr(0, text.find(u'\0')));
}

// The text holds no null unit.
void CBigInteger::ParseWhole(Text text) {
  Text const number = WithoutBlanks(text);
  Text const digits = DigitsAtTheEnd(number);
  Text const front = number.substr(0, number.size() - digits.size());
  if (!std::all_of(front.begin(), front.end(), IsIntegerUnit)) {
    *this = CDecimal(text).ToBigInteger();
    return;
  }
  m_sign = front.starts_with(u'-') ? -1 : 1;
  internal::ReadDigits(number.empty() ? u"0" : digits, m_magnitude);
}

std::u16string CBigInteger::ToString() const {
  if (internal::IsZero(m_magnitude)) return u"0";
  std::size_t const sign = m_sign == -1 ? 1 : 0;
  std::u16string text(sign + internal::CountDigits(m_magnitude), u'-');
  internal::WriteDigits(m_magnitude, text.data() + text.size());
  return text;
}

CBigInteger CBigInteger::Sum(std::int32_t otherSign, CBigInteger const& other) const {
  if (m_sign == otherSign) return {m_sign, internal::Add(m_magnitude, other.m_magnitude)};
  int const order = internal::Compare(m_magnitude, other.m_magnitude);
  if (order == 0) return {};
  if (order > 0) return {m_sign, internal::Subtract(m_magnitude, other.m_magnitude)};
  return {otherSign, internal::Subtract(other.m_magnitude, m_magnitude)};
}

CBigInteger CBigInteger::operator*(CBigInteger const& other) const {
  auto const sign = static_cast<std::uint32_t>(m_sign) * static_cast<std::uint32_t>(other.m_sign);
  return {static_cast<std::int32_t>(sign), internal::Multiply(m_magnitude, other.m_magnitude)};
}

// Signs are multiplied as 16-bit numbers and the product is not extended: callers have seen the
// sign 65535 for so long that they count on it.
CBigInteger& CBigInteger::operator*=(CBigInteger const& other) {
  constexpr std::uint32_t kLow = 0xFFFF;
  std::uint32_t const sign = (static_cast<std::uint32_t>(m_sign) & kLow) *
                             (static_cast<std::uint32_t>(other.m_sign) & kLow);
  m_magnitude = internal::Multiply(m_magnitude, other.m_magnitude);
  m_sign = static_cast<std::int32_t>(sign & kLow);
  return *this;
}

CBigInteger CBigInteger::Quotient(CBigInteger const& divisor) const {
  if (m_magnitude == Magnitude()) return {};
  return {m_sign == divisor.m_sign ? 1 : -1,
          internal::Divide(m_magnitude, divisor.m_magnitude).quotient};
}

CBigInteger CBigInteger::Remainder(CBigInteger const& divisor) const {
  if (m_magnitude == Magnitude()) return {};
  return {m_sign, internal::Divide(m_magnitude, divisor.m_magnitude).remainder};
}

// Times ten to the power @p power.
CBigInteger CBigInteger::GetShifted(int power) const {
  return {m_sign, internal::MultiplyByPowerOf10(m_magnitude, static_cast<std::size_t>(power))};
}

bool CBigInteger::IsNegative() const {
  return m_sign == -1 && !internal::IsZero(m_magnitude);
}

bool CBigInteger::IsPositive() const {
  return m_sign != -1 && !internal::IsZero(m_magnitude);
}

// The division operators differ in the divisors that they refuse: negative ones are allowed here
// alone, and callers know it.
CBigInteger CBigInteger::operator/(CBigInteger const& divisor) const {
  if (internal::IsZero(divisor.m_magnitude)) {
    throw CKestInvalidValueException(u"ERROR: Overflow in operator/.");
  }
  return Quotient(divisor);
}

CBigInteger CBigInteger::operator%(CBigInteger const& divisor) const {
  if (!divisor.IsPositive()) throw CKestInvalidValueException(u"ERROR: Overflow in operator%.");
  return Remainder(divisor);
}

CBigInteger& CBigInteger::operator/=(CBigInteger const& divisor) {
  if (!divisor.IsPositive()) throw CKestInvalidValueException(u"ERROR: Overflow in operator /=.");
  return *this = Quotient(divisor);
}

CBigInteger& CBigInteger::operator%=(CBigInteger const& divisor) {
  if (!divisor.IsPositive()) throw CKestInvalidValueException(u"ERROR: Overflow in operator%=.");
  return *this = Remainder(divisor);
}

bool CBigInteger::operator==(CBigInteger const& other) const {
  return m_magnitude == other.m_magnitude && (m_sign == other.m_sign || m_magnitude == Magnitude());
}

// Signs other than 1 and -1 decide nothing.
bool CBigInteger::operator<(CBigInteger const& other) const {
  if (m_sign == -1 && other.m_sign == 1) return true;
  if (m_sign == 1 && other.m_sign == -1) return false;
  int const order = internal::Compare(m_magnitude, other.m_magnitude);
  return m_sign == -1 && other.m_sign == -1 ? order > 0 : order < 0;
}

CBigInteger::operator int() const {
  if (*this < MIN_LONG || *this > MAX_LONG) {
    throw CKestInvalidValueException(u"ERROR: Value out of bound of int.");
  }
  std::uint32_t sum = 0;
  for (std::size_t i = m_magnitude.Size(); i-- > 0;) sum = sum * Magnitude::kBase + m_magnitude[i];
  return static_cast<int>(m_sign == -1 ? 0 - sum : sum);
}

// The power of ten and each product wrap at 32 bits, only their sum has 64: what comes of larger
// numbers is wrong, but always has been the same.
std::int64_t CBigInteger::ToWrapped64() const {
  if (*this < MIN_LONGLONG || *this > MAX_LONGLONG) {
    throw CKestInvalidValueException(u"ERROR: Value out of bound of LONGLONG.");
  }
  std::uint64_t sum = 0;
  std::uint32_t power = 1;
  for (std::size_t i = 0; i < m_magnitude.Size(); ++i) {
    Limb rest = m_magnitude[i];
    for (std::size_t digit = 0; digit < Magnitude::kLimbDigits; ++digit, rest /= 10, power *= 10) {
      std::uint32_t const part = rest % 10 * power;
      sum += part;
    }
  }
  return static_cast<std::int64_t>(m_sign == -1 ? 0 - sum : sum);
}

// Newton's iteration, from a power of ten above the root downward.
CBigInteger CBigInteger::SquareRoot() const {
  CBigInteger const zero;
  if (*this < zero) {
    throw CKestInvalidValueException(u"ERROR: Negative Number in function SquareRoot().");
  }
  CBigInteger const two(2);
  CBigInteger const ten(10);
  CBigInteger const hundred(100);
  CBigInteger root(10);
  for (CBigInteger rest = *this; (rest /= hundred) > zero;) root = root * ten;
  CBigInteger previous;
  do {
    previous = root;
    root = (*this / root + root) / two;
  } while (root < previous);
  return previous;
}

CBigInteger CBigInteger::Pow10(unsigned power) {
  return {1, internal::MultiplyByPowerOf10(Magnitude(1), power)};
}

}  // namespace KestXmlLib20
