#include "kestxml/values/decimal.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/internal/decimal_text.h"
#include "kestxml/values/internal/magnitude_arithmetic.h"
#include "kestxml/values/internal/magnitude_text.h"
#include "kestxml/values/internal/number_text.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::Magnitude;

namespace {

constexpr int kMostPlaces = 10'000;  // that the setting is taken for
constexpr int kMostPrinted = 1'023;  // places of a rounded text
constexpr int kGuardPlaces = 2;      // of a quotient

int MaxPlaces() {
  return std::clamp(CDecimal::GetMaxDecimalPlaces(), 0, kMostPlaces);
}

CBigInteger PowerOf10(int power) {
  return CBigInteger::Pow10(static_cast<unsigned>(power));
}

std::u16string PrintDouble(double value) {
  char text[336];  // 309 digits before the point
  char* end = std::to_chars(text, std::end(text) - 1, value, std::chars_format::fixed, 13).ptr;
  *end++ = '\n';  // seen in the message about a NaN, so it stays
  return internal::WidenAscii({text, end});
}

}  // namespace

constinit int CDecimal::m_maxDivider = 30;

int CDecimal::GetMaxDecimalPlaces() {
  return m_maxDivider;
}

void CDecimal::SetMaxDecimalPlaces(int places) {
  m_maxDivider = places;
}

CDecimal::CDecimal(double value) {
  Parse(PrintDouble(value));
}

CDecimal::CDecimal(CBigInteger integer, CBigInteger fraction, int divider)
    : m_integer(std::move(integer)), m_fraction(std::move(fraction)), m_divider(divider) {}

void CDecimal::Parse(char16_t const* text) {
  ParseWhole(text ? std::u16string_view(text) : std::u16string_view());
}

void CDecimal::Parse(std::u16string_view text) {
  ParseWhole(text.substr(0, text.find(u'\0')));
}

// The text holds no null unit.
void CDecimal::ParseWhole(std::u16string_view text) {
  internal::DecimalText const parsed = internal::ParseDecimalText(text);
  auto const read = [&](std::u16string_view digits, CBigInteger& part) {
    internal::ReadDigits(digits.empty() ? u"0" : digits, part.m_magnitude);
    part.m_sign = parsed.isNegative ? -1 : 1;
  };
  read(parsed.integer.Get(), m_integer);
  read(parsed.fraction.Get(), m_fraction);
  m_divider = std::max(static_cast<int>(parsed.fraction.Get().size()), 1);
  Rationalise();
  if (parsed.hasExponent) {
    CDecimal const power(PowerOf10(parsed.exponent));
    *this = parsed.isExponentNegative ? *this / power : *this * power;
    Rationalise();
  }
  LimitPlaces();
}

// Drops zeros at the end of the fraction, but keeps one place.
void CDecimal::Rationalise() {
  int const most = m_divider - 1;
  if (most <= 0) return;
  Magnitude const& fraction = m_fraction.m_magnitude;
  if (internal::IsZero(fraction)) {
    m_fraction = CBigInteger();
    m_divider = 1;
    return;
  }
  std::size_t const zeros =
      std::min(internal::CountTrailingZeros(fraction), static_cast<std::size_t>(most));
  if (zeros == 0) return;
  m_fraction.m_magnitude = internal::DivideByPowerOf10(fraction, zeros).quotient;
  m_divider -= static_cast<int>(zeros);
}

void CDecimal::LimitPlaces() {
  int const most = MaxPlaces();
  if (m_divider > most) ChangeFractionalDivider(most);
}

// Half a unit of the last place rounds toward zero. A fraction that is rounded up to a whole stays
// where it is: the results of nines beyond the limit are known to others and compared with.
void CDecimal::ChangeFractionalDivider(int places) {
  if (places >= m_divider) {
    m_fraction = GetFractionAt(places);
    m_divider = places;
    return;
  }
  auto const dropped = static_cast<std::size_t>(m_divider - places);
  auto [kept, rest] = internal::DivideByPowerOf10(m_fraction.m_magnitude, dropped);
  int const sign = internal::IsZero(m_fraction.m_magnitude) ? 1 : m_fraction.m_sign;
  m_fraction = CBigInteger(sign, std::move(kept));
  m_divider = places;
  Magnitude const half = internal::MultiplyByPowerOf10(Magnitude(5), dropped - 1);
  if (internal::Compare(rest, half) <= 0) return;
  if (places == 0) {
    m_integer += CBigInteger(sign);
  } else {
    m_fraction += CBigInteger(sign);
    AlignSigns();
  }
}

// Gives both parts the same sign. A part that is zero agrees with any: by its order, a negative
// zero would be below zero, and the sum wrong.
void CDecimal::AlignSigns() {
  CBigInteger const one(1);
  if (m_integer.IsPositive() && m_fraction.IsNegative()) {
    m_fraction += PowerOf10(m_divider);
    m_integer -= one;
  }
  if (m_integer.IsNegative() && m_fraction.IsPositive()) {
    m_fraction -= PowerOf10(m_divider);
    m_integer += one;
  }
  if (m_integer == CBigInteger()) m_integer.m_sign = m_fraction.m_sign;
}

// The fraction in more places than it has.
CBigInteger CDecimal::GetFractionAt(int places) const {
  return places == m_divider ? m_fraction : m_fraction.GetShifted(places - m_divider);
}

// The value times ten to the power @p places, of which the fraction has no more.
CBigInteger CDecimal::GetUnscaled(int places) const {
  return m_integer.GetShifted(places) + GetFractionAt(places);
}

// What arithmetic results in: @p value divided by ten to the power @p places, within the limit.
CDecimal CDecimal::FromUnscaled(CBigInteger const& value, int places) {
  auto [integer, fraction] =
      internal::DivideByPowerOf10(value.m_magnitude, static_cast<std::size_t>(places));
  int const sign = value.m_sign == 1 || internal::IsZero(value.m_magnitude) ? 1 : -1;
  CDecimal result(CBigInteger(sign, std::move(integer)), CBigInteger(sign, std::move(fraction)),
                  places);
  result.Rationalise();
  result.LimitPlaces();
  return result;
}

CDecimal CDecimal::GetNegative() const {
  return {m_integer.GetNegative(), m_fraction.GetNegative(), m_divider};
}

void CDecimal::Negate() {
  m_integer.Negate();
  m_fraction.Negate();
}

CDecimal CDecimal::operator+(CDecimal const& other) const {
  int const places = std::max(m_divider, other.m_divider);
  CBigInteger const one(1);
  CBigInteger const whole = PowerOf10(places);
  CBigInteger const minusWhole = whole.GetNegative();
  CDecimal sum(m_integer + other.m_integer, GetFractionAt(places) + other.GetFractionAt(places),
               places);
  for (; sum.m_fraction >= whole; sum.m_integer += one) sum.m_fraction -= whole;
  for (; sum.m_fraction <= minusWhole; sum.m_integer -= one) sum.m_fraction += whole;
  sum.AlignSigns();
  sum.Rationalise();
  return sum;
}

CDecimal CDecimal::operator*(CDecimal const& other) const {
  int const places = std::max(m_divider, other.m_divider);
  return FromUnscaled(GetUnscaled(places) * other.GetUnscaled(places), 2 * places);
}

CDecimal CDecimal::operator/(CDecimal const& divisor) const {
  int const places = std::max(m_divider, divisor.m_divider);
  int const computed = MaxPlaces() + kGuardPlaces;
  CBigInteger const dividend = GetUnscaled(places).GetShifted(computed);
  return FromUnscaled(dividend / divisor.GetUnscaled(places), computed);
}

CDecimal CDecimal::operator++(int) {
  CDecimal old = *this;
  ++*this;
  return old;
}

CDecimal CDecimal::operator--(int) {
  CDecimal old = *this;
  --*this;
  return old;
}

bool CDecimal::operator==(CDecimal const& other) const {
  int const places = std::max(m_divider, other.m_divider);
  return m_integer == other.m_integer && GetFractionAt(places) == other.GetFractionAt(places);
}

bool CDecimal::operator<(CDecimal const& other) const {
  if (m_integer != other.m_integer) return m_integer < other.m_integer;
  int const places = std::max(m_divider, other.m_divider);
  return GetFractionAt(places) < other.GetFractionAt(places);
}

// With a point, whatever the fraction.
std::u16string CDecimal::PrintParts() const {
  Magnitude const& integer = m_integer.m_magnitude;
  Magnitude const& fraction = m_fraction.m_magnitude;
  std::size_t const sign = m_integer.m_sign == -1 ? 1 : 0;
  std::size_t const point = sign + std::max<std::size_t>(internal::CountDigits(integer), 1);
  std::size_t const places =
      std::max(internal::CountDigits(fraction), static_cast<std::size_t>(m_divider));
  std::u16string text(point + 1 + places, u'0');
  if (sign != 0) text.front() = u'-';
  text[point] = u'.';
  internal::WriteDigits(integer, text.data() + point);
  internal::WriteDigits(fraction, text.data() + text.size());
  return text;
}

std::u16string CDecimal::ToString() const {
  return internal::IsZero(m_fraction.m_magnitude) ? m_integer.ToString() : PrintParts();
}

std::u16string CDecimal::ToString(int places) const {
  if (places < 0 || places > kMostPrinted) {
    throw CKestInvalidParamException(
        FormatString(u"Invalid number of decimal places [%d]", places));
  }
  int const sign = m_integer.m_sign == -1 ? -1 : 1;
  CDecimal half(CBigInteger(sign, Magnitude()), CBigInteger(sign, Magnitude(5)), places + 1);
  half.LimitPlaces();
  std::u16string text = (*this + half).PrintParts();
  std::size_t const longest = text.find(u'.') + 1 + static_cast<std::size_t>(places);
  if (text.size() > longest) text.resize(longest);
  return text;
}

std::int64_t CDecimal::ToLongLong() const {
  if (m_integer < CBigInteger::MIN_LONGLONG || m_integer > CBigInteger::MAX_LONGLONG) {
    throw CKestOverFlowException(u"The Decimal value if to large to fit into a LONGLONG");
  }
  std::int64_t value = 0;
  internal::ParseInteger(m_integer.ToString(), value);
  return value;
}

std::int32_t CDecimal::ToLong() const {
  CBigInteger const rounded = ToBigInteger();
  if (rounded < CBigInteger::MIN_LONG || rounded > CBigInteger::MAX_LONG) {
    throw CKestOverFlowException(u"The Decimal value if to large to fit into a LONG");
  }
  return rounded;
}

double CDecimal::ToDouble() const {
  if (m_integer < CBigInteger::MIN_DOUBLE || m_integer > CBigInteger::MAX_DOUBLE) {
    throw CKestOverFlowException(u"The Decimal value if to large to fit into a Double");
  }
  double value = 0;
  internal::ParseReal(ToString(), value);
  return value;
}

CBigInteger CDecimal::ToBigInteger() const {
  CDecimal rounded = *this;
  rounded.ChangeFractionalDivider(0);
  return std::move(rounded.m_integer);
}

}  // namespace KestXmlLib20
