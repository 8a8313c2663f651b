// xsd:integer: a whole number of any length.
#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kestxml/platform/api.h"
#include "kestxml/values/magnitude.h"

namespace KestXmlLib20 {

class CDecimal;

/// A whole number of any length, as a sign and decimal digits (xsd:integer). A plain value: copies
/// share nothing. Numbers of up to 54 digits take no memory beside the object; time grows with the
/// product of the lengths in multiplication and division, and with the length in all else.
///
/// Zero is normally positive. A negative zero can come from its text, from a change of sign, a
/// multiplication or a division; it prints as "0" and is equal to zero, but it is also less than
/// zero, since two different signs decide the order by themselves.
class KESTXML_API CBigInteger {
 public:
  /// The ranges of the fixed types. They stand before any code runs.
  static CBigInteger const MAX_LONG;      ///< 2147483647
  static CBigInteger const MIN_LONG;      ///< -2147483648
  static CBigInteger const MAX_LONGLONG;  ///< 9223372036854775807
  static CBigInteger const MIN_LONGLONG;  ///< -9223372036854775808
  static CBigInteger const MAX_DOUBLE;    ///< 17 and 307 zeros
  static CBigInteger const MIN_DOUBLE;    ///< the same below zero

  CBigInteger() = default;
  CBigInteger(int value) : CBigInteger(static_cast<long long>(value)) {}
  CBigInteger(unsigned value) : CBigInteger(static_cast<unsigned long long>(value)) {}
  CBigInteger(long value) : CBigInteger(static_cast<long long>(value)) {}
  CBigInteger(unsigned long value) : CBigInteger(static_cast<unsigned long long>(value)) {}
  CBigInteger(long long value)
      : m_magnitude(value < 0 ? 0 - static_cast<std::uint64_t>(value)
                              : static_cast<std::uint64_t>(value)),
        m_sign(value < 0 ? -1 : 1) {}
  CBigInteger(unsigned long long value) : m_magnitude(std::uint64_t{value}) {}
  /// Rounded to the nearest, halves toward zero: 2.5 gives 2 and 2.6 gives 3. Digits are those of a
  /// repeated division by ten in double precision, so above 2 to the 53rd the low ones may be off.
  /// @throws CKestInvalidValueException for a NaN and for infinities.
  CBigInteger(double value);
  /// Rounded to the nearest, halves toward zero. It drops a part of the value, so it is explicit.
  explicit CBigInteger(CDecimal const& value);
  /// See Parse.
  CBigInteger(char16_t const* text) { Parse(text); }
  virtual ~CBigInteger() = default;
  CBigInteger(CBigInteger const&) = default;
  CBigInteger(CBigInteger&&) = default;
  CBigInteger& operator=(CBigInteger const&) = default;
  CBigInteger& operator=(CBigInteger&&) = default;

  /// Replaces the value with the one that @p text gives. Text of digits, signs and white space is
  /// never refused: blanks around it are left out, a minus sign in front counts, and the number is
  /// the run of digits at the end. What stands before that run is ignored, so that u"+5" is 5,
  /// u"12 34" is 34 and u"12\t" is 0. Empty text is 0; so are a null pointer and text without a
  /// digit. Any other text, such as u"12.9" and u"1E3", is read as a CDecimal and rounded.
  /// @throws CKestInvalidValueException as CDecimal::Parse does; the value is then unchanged.
  void Parse(char16_t const* text);
  /// The text ends at its first null unit, if it has one.
  void Parse(std::u16string_view text);

  /// Digits with a minus sign in front of a negative number, without leading zeros.
  std::u16string ToString() const;

  CBigInteger GetAbs() const { return {1, m_magnitude}; }
  CBigInteger GetNegative() const { return {Opposite(m_sign), m_magnitude}; }
  void Abs() { m_sign = 1; }
  void Negate() { m_sign = Opposite(m_sign); }
  /// Changes the sign of the operand itself, and gives it back: see GetNegative for a copy.
  CBigInteger& operator-() {
    Negate();
    return *this;
  }

  CBigInteger operator+(CBigInteger const& other) const { return Sum(other.m_sign, other); }
  CBigInteger operator-(CBigInteger const& other) const {
    return Sum(Opposite(other.m_sign), other);
  }
  CBigInteger operator*(CBigInteger const& other) const;
  /// The quotient, truncated toward zero.
  /// @throws CKestInvalidValueException when @p divisor is zero.
  CBigInteger operator/(CBigInteger const& divisor) const;
  /// What remains of a truncated division, with the sign of the left operand.
  /// @throws CKestInvalidValueException when @p divisor is not positive.
  CBigInteger operator%(CBigInteger const& divisor) const;
  CBigInteger& operator+=(CBigInteger const& other) { return *this = *this + other; }
  CBigInteger& operator-=(CBigInteger const& other) { return *this = *this - other; }
  /// As operator* but for the sign: a product that should be negative gets a sign of its own,
  /// 65535, which prints as a positive number and compares with others by magnitude alone.
  CBigInteger& operator*=(CBigInteger const& other);
  /// @throws CKestInvalidValueException when @p divisor is not positive: operator/ alone divides by
  ///   negative numbers.
  CBigInteger& operator/=(CBigInteger const& divisor);
  /// @throws CKestInvalidValueException when @p divisor is not positive.
  CBigInteger& operator%=(CBigInteger const& divisor);

  bool operator==(CBigInteger const& other) const;
  bool operator!=(CBigInteger const& other) const { return !(*this == other); }
  bool operator<(CBigInteger const& other) const;
  bool operator>(CBigInteger const& other) const { return other < *this; }
  bool operator<=(CBigInteger const& other) const { return !(other < *this); }
  bool operator>=(CBigInteger const& other) const { return !(*this < other); }

  /// @throws CKestInvalidValueException for a value outside the range of int.
  operator int() const;
  /// Exact up to 4294967296. Above that, the powers of ten and their products with digits are those
  /// of 32-bit arithmetic: 9999999999 gives 1410065407. CDecimal::ToLongLong is exact throughout.
  /// @throws CKestInvalidValueException for a value outside the range of 64 bits.
  operator long() const { return static_cast<long>(ToWrapped64()); }
  operator long long() const { return ToWrapped64(); }

  /// The whole part of the square root.
  /// @throws CKestInvalidValueException for a negative value, and for zero, on which the iteration
  ///   ends in a division by zero.
  CBigInteger SquareRoot() const;

  /// Ten to the power @p power.
  static CBigInteger Pow10(unsigned power);

 protected:
  /// Decimal digits as the numbers 0 to 9, least significant first.
  using Digits = std::vector<std::uint16_t>;

  CBigInteger(std::int32_t sign, Digits const& digits);

  // Arithmetic of bare digits. Results replace what their argument held.
  static void Build(unsigned value, Digits& digits);
  static void BuildDWORDLONG(std::uint64_t value, Digits& digits);
  /// @p value is finite and not negative. See the constructor.
  static void BuildDouble(double value, Digits& digits);
  /// The run of digits at the end of @p text.
  static void Build(std::u16string_view text, Digits& digits);
  /// Drops zeros at the most significant end but keeps one digit.
  static void Clean(Digits& digits);
  /// -1, 0 or 1.
  static int Compare(Digits const& left, Digits const& right);
  static void Add(Digits const& left, Digits const& right, Digits& result);
  /// @p right is not greater than @p left.
  static void Subtract(Digits const& left, Digits const& right, Digits& result);
  static void Multiply(Digits const& left, Digits const& right, Digits& result);
  static void Multiply(Digits const& left, std::uint16_t digit, Digits& result);
  /// Inserts @p count zeros at the least significant end; none when it is below 1.
  static void ShiftLeft(Digits& digits, int count);
  /// The number of digits, at least 1.
  static int Position(Digits const& digits);
  static void Pow10(unsigned power, Digits& digits);
  /// @p divisor is not zero.
  static void Divide(Digits const& dividend, Digits const& divisor, Digits& quotient,
                     Digits& remainder);

 private:
  friend class CDecimal;

  constexpr CBigInteger(std::int32_t sign, std::span<internal::Magnitude::Limb const> constant)
      : m_magnitude(constant), m_sign(sign) {}
  CBigInteger(std::int32_t sign, internal::Magnitude magnitude)
      : m_magnitude(std::move(magnitude)), m_sign(sign) {}

  // Any number may be a sign: products of 65535 come to.
  static std::int32_t Opposite(std::int32_t sign) {
    return static_cast<std::int32_t>(0 - static_cast<std::uint32_t>(sign));
  }
  void ParseWhole(std::u16string_view text);
  CBigInteger Sum(std::int32_t otherSign, CBigInteger const& other) const;
  CBigInteger Quotient(CBigInteger const& divisor) const;
  CBigInteger Remainder(CBigInteger const& divisor) const;
  CBigInteger GetShifted(int power) const;
  bool IsPositive() const;
  bool IsNegative() const;
  std::int64_t ToWrapped64() const;

  internal::Magnitude m_magnitude;
  std::int32_t m_sign = 1;
};

namespace internal {
template <typename L, typename R>
concept BigAndMachineInteger = (std::derived_from<L, CBigInteger> && std::integral<R>) ||
                               (std::integral<L> && std::derived_from<R, CBigInteger>);
}  // namespace internal

// With a machine integer on one side: since CBigInteger converts from and to those, the operators
// above would be no better than those of machine integers, and the expression ambiguous.

template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R> CBigInteger operator+(L const& left, R const& right) {
  return CBigInteger(left) + CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R> CBigInteger operator-(L const& left, R const& right) {
  return CBigInteger(left) - CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R> CBigInteger operator*(L const& left, R const& right) {
  return CBigInteger(left) * CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R> CBigInteger operator/(L const& left, R const& right) {
  return CBigInteger(left) / CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R> CBigInteger operator%(L const& left, R const& right) {
  return CBigInteger(left) % CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R>
bool operator==(L const& left, R const& right) {
  return CBigInteger(left) == CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R>
bool operator<(L const& left, R const& right) {
  return CBigInteger(left) < CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R>
bool operator>(L const& left, R const& right) {
  return CBigInteger(left) > CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R>
bool operator<=(L const& left, R const& right) {
  return CBigInteger(left) <= CBigInteger(right);
}
template <typename L, typename R>
requires internal::BigAndMachineInteger<L, R>
bool operator>=(L const& left, R const& right) {
  return CBigInteger(left) >= CBigInteger(right);
}

}  // namespace KestXmlLib20
