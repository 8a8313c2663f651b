// Arithmetic of natural numbers on limbs of nine decimal digits. A number without limbs counts as
// zero, but Compare sets it below.
#pragma once

#include <cstddef>

#include "kestxml/values/magnitude.h"

namespace KestXmlLib20::internal {

bool IsZero(Magnitude const& number);

/// Negative, zero or positive, as @p left is less than, equal to or greater than @p right.
int Compare(Magnitude const& left, Magnitude const& right);

Magnitude Add(Magnitude const& left, Magnitude const& right);

/// @p right is not greater than @p left.
Magnitude Subtract(Magnitude const& left, Magnitude const& right);

/// In time that grows with the product of the lengths: 4 ms for 10,000 digits by 10,000.
Magnitude Multiply(Magnitude const& left, Magnitude const& right);

struct Quotient {
  Magnitude quotient;
  Magnitude remainder;
};

/// @p divisor is not zero. In time that grows with the product of the lengths of the divisor and
/// the quotient.
Quotient Divide(Magnitude const& dividend, Magnitude const& divisor);

// With powers of ten, in linear time.

Magnitude MultiplyByPowerOf10(Magnitude const& number, std::size_t power);
Quotient DivideByPowerOf10(Magnitude const& number, std::size_t power);

/// Of a number that is not zero.
std::size_t CountTrailingZeros(Magnitude const& number);

}  // namespace KestXmlLib20::internal
