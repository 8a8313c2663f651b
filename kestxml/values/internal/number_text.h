// Decimal text of machine numbers, by the rules of the C run-time's parsers and printers but
// without its locale and with the widths of this library.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace KestXmlLib20::internal {

enum class NumberFault : std::uint8_t { None, Malformed, OutOfRange };

// Each parser takes leading whitespace, a sign, and digits up to the end of the text or its first
// null unit. Text that begins with a null unit reads as 0; empty text is malformed. A number that
// does not fit is out of range whatever follows it. The value is set only where there is no fault.
// An unsigned parser takes a minus sign as well: the value is then negated modulo its width.
NumberFault ParseInteger(std::u16string_view text, std::int32_t& value);
NumberFault ParseInteger(std::u16string_view text, std::int64_t& value);
NumberFault ParseInteger(std::u16string_view text, std::uint32_t& value);
NumberFault ParseInteger(std::u16string_view text, std::uint64_t& value);

/// What a text begins with, as atoi reads it: whitespace, a sign and digits. Zero where no digit
/// stands; the nearest where the number does not fit.
std::int32_t ParseLeadingInteger(std::u16string_view text);

/// As above with a fraction and an exponent, rounded to nearest. Too large a number gives infinity,
/// too small a one zero, each with its sign. False where the text is malformed; words and
/// hexadecimal forms are.
bool ParseReal(std::u16string_view text, double& value);

std::u16string PrintInteger(std::int64_t value);
std::u16string PrintInteger(std::uint64_t value);

/// As "%.*g" prints a finite number.
std::u16string PrintReal(double value, int precision);

}  // namespace KestXmlLib20::internal
