// xsd:decimal: a decimal number with any number of digits before the point.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/values/big_integer.h"

namespace KestXmlLib20 {

/// A decimal number (xsd:decimal), as a whole part, the digits of its fraction, and the number of
/// places that these stand for: 1.05 is 1, 5 and 2. Both parts carry the sign. A plain value:
/// copies share nothing.
///
/// What is parsed, multiplied or divided keeps at most GetMaxDecimalPlaces places; the last one is
/// rounded to the nearest, halves toward zero. That rounding does not carry into the whole part: 31
/// nines behind the point become a fraction of a one and 30 zeros. Sums keep all places.
class KESTXML_API CDecimal {
 public:
  CDecimal() = default;
  CDecimal(int value) : m_integer(value) {}
  CDecimal(unsigned value) : m_integer(value) {}
  CDecimal(long value) : m_integer(value) {}
  CDecimal(unsigned long value) : m_integer(value) {}
  CDecimal(long long value) : m_integer(value) {}
  CDecimal(unsigned long long value) : m_integer(value) {}
  /// The value to 13 places, no more.
  /// @throws CKestInvalidValueException for a NaN and for infinities, as text that is no number.
  CDecimal(double value);
  CDecimal(CBigInteger const& value) : m_integer(value) {}
  /// See Parse.
  CDecimal(char16_t const* text) { Parse(text); }
  explicit CDecimal(std::u16string_view text) { Parse(text); }
  virtual ~CDecimal() = default;
  CDecimal(CDecimal const&) = default;
  CDecimal(CDecimal&&) = default;
  CDecimal& operator=(CDecimal const&) = default;
  CDecimal& operator=(CDecimal&&) = default;

  /// Replaces the value with the one that @p text gives: digits with or without a point, then with
  /// or without an exponent. White space may stand anywhere but behind and inside the exponent's
  /// digits. A sign may stand anywhere in front of the point, and the last one counts. Digits may
  /// be missing on either side of the point, behind the e, or altogether, which gives 0, as an
  /// empty text and a null pointer do.
  /// @throws CKestInvalidValueException on the first character out of place, with its position; and
  ///   on the exponent of a number of more than 1,000 digits before or behind the point.
  void Parse(char16_t const* text);
  /// The text ends at its first null unit, if it has one.
  void Parse(std::u16string_view text);

  /// The exact value, without an exponent, and without a point where there is no fraction.
  std::u16string ToString() const;
  /// The value rounded to @p places, 0 to 1,023, halves away from zero. Where rounding clears the
  /// places, one zero is left: 1.5 to two places is "1.50", but 1.995 is "2.0". The point is always
  /// there: 1.5 to none is "2.".
  /// @throws CKestInvalidParamException for another number of places.
  std::u16string ToString(int places) const;

  /// The whole part: 12.9 gives 12, unlike ToLong.
  /// @throws CKestOverFlowException when that does not fit.
  std::int64_t ToLongLong() const;
  /// Rounded to the nearest, halves toward zero: 12.9 gives 13, 12.5 gives 12.
  /// @throws CKestOverFlowException when that does not fit.
  std::int32_t ToLong() const;
  /// The nearest double.
  /// @throws CKestOverFlowException when the whole part is beyond CBigInteger::MAX_DOUBLE.
  double ToDouble() const;
  /// Rounded as ToLong.
  CBigInteger ToBigInteger() const;

  CBigInteger GetIntegerPart() const { return m_integer; }
  /// The digits behind the point as a number, without their leading zeros, with the sign.
  CBigInteger GetFractionPart() const { return m_fraction; }
  /// The number of places of the fraction, normally at least 1.
  int GetFractionDivider() const { return m_divider; }

  CDecimal GetNegative() const;
  void Negate();

  CDecimal operator+(CDecimal const& other) const;
  CDecimal operator-(CDecimal const& other) const { return *this + other.GetNegative(); }
  CDecimal operator*(CDecimal const& other) const;
  /// Two places more than are kept are computed and the rest cut off, before rounding.
  /// @throws CKestInvalidValueException when @p divisor is zero.
  CDecimal operator/(CDecimal const& divisor) const;
  CDecimal& operator+=(CDecimal const& other) { return *this = *this + other; }
  CDecimal& operator-=(CDecimal const& other) { return *this = *this - other; }
  CDecimal& operator*=(CDecimal const& other) { return *this = *this * other; }
  CDecimal& operator/=(CDecimal const& divisor) { return *this = *this / divisor; }
  CDecimal& operator++() { return *this += CDecimal(1); }
  CDecimal& operator--() { return *this -= CDecimal(1); }
  CDecimal operator++(int);
  CDecimal operator--(int);

  /// Zeros are equal whatever their sign, but a negative zero is less than a positive one, as with
  /// CBigInteger. The fraction of a whole number has such a sign: that of a negative number read
  /// from text without a point is negative, that of one made from a number is positive.
  bool operator==(CDecimal const& other) const;
  bool operator!=(CDecimal const& other) const { return !(*this == other); }
  bool operator<(CDecimal const& other) const;
  bool operator>(CDecimal const& other) const { return other < *this; }
  bool operator<=(CDecimal const& other) const { return !(other < *this); }
  bool operator>=(CDecimal const& other) const { return !(*this < other); }

  /// How many places parsed values, products and quotients keep, for the whole process; 30 unless
  /// set. To be set before other threads use decimals. Any number is stored; those below 0 count as
  /// 0 and those above 10,000 as 10,000.
  static int GetMaxDecimalPlaces();
  static void SetMaxDecimalPlaces(int places);

 private:
  CDecimal(CBigInteger integer, CBigInteger fraction, int divider);

  void ParseWhole(std::u16string_view text);
  static CDecimal FromUnscaled(CBigInteger const& value, int places);
  CBigInteger GetUnscaled(int places) const;
  CBigInteger GetFractionAt(int places) const;
  std::u16string PrintParts() const;
  void Rationalise();
  void LimitPlaces();
  void ChangeFractionalDivider(int places);
  void AlignSigns();

  static int m_maxDivider;

  CBigInteger m_integer;
  CBigInteger m_fraction;
  std::int32_t m_divider = 1;
};

}  // namespace KestXmlLib20
