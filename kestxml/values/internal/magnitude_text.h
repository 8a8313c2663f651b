// Natural numbers of any length as decimal digits.
#pragma once

#include <cstddef>
#include <string_view>

#include "kestxml/values/magnitude.h"

namespace KestXmlLib20::internal {

/// Replaces @p number. @p digits holds nothing else; without any the number has none either.
void ReadDigits(std::u16string_view digits, Magnitude& number);

/// Without leading zeros: 1 for zero, 0 for a number without digits.
std::size_t CountDigits(Magnitude const& number);

/// Writes that many digits, which end in front of @p end.
void WriteDigits(Magnitude const& number, char16_t* end);

}  // namespace KestXmlLib20::internal
