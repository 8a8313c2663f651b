// The common doubles in decimal, by integer arithmetic.
#pragma once

namespace KestXmlLib20::internal {

/// Prints @p value as "%.<digits>g" does, if it is one for which that gives no exponent.
/// @param digits 1 to 16.
/// @param to room for 24 characters.
/// @returns the end of what was printed; null, with nothing printed, for other values.
char* PrintFixedReal(double value, int digits, char* to);

}  // namespace KestXmlLib20::internal
