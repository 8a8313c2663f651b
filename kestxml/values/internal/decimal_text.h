// The text of decimal numbers.
#pragma once

#include <cstdint>
#include <string_view>

#include "kestxml/values/magnitude.h"

namespace KestXmlLib20::internal {

struct DecimalText {
  bool isNegative = false;
  Magnitude integer;
  Magnitude fraction;       // the digits behind the point, as a whole number
  std::int32_t places = 0;  // how many digits these were
  bool hasExponent = false;
  bool isExponentNegative = false;
  std::int32_t exponent = 0;  // without its sign
};

/// See CDecimal::Parse.
/// @throws CKestInvalidValueException on the first character out of place and on an exponent that
///   makes too long a number.
DecimalText ParseDecimalText(std::u16string_view text);

}  // namespace KestXmlLib20::internal
