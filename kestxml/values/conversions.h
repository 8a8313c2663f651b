// The text forms of the primitives of XML Schema.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;

/// A pair of functions for each primitive. xToString gives the form that is written; xFromString
/// applies the whitespace rule and reads what then stands there. The user's locale has no say.
///
/// @throws CKestInvalidValueException where the text is not of the type or its value does not fit;
///   both too large and too small are said to be "to large". The message shows the text behind the
///   whitespace rule; the range messages of i1, i2, ui1 and ui2 and the message of boolean show it
///   as it came in.
/// @throws CKestException when the rule is none of the enumerators.
class KESTXML_API CConversions {
 public:
  using Rule = CWhitespaceUtils::WhitespaceRule;

  // Integers are read as the run-time's base-10 parsers do: whitespace in front and either sign are
  // taken, whitespace behind is not, and reading ends at a null unit. The unsigned kinds take a
  // minus sign too and wrap: "-1" is the largest value.
  static std::u16string i1ToString(signed char value);
  static signed char i1FromString(std::u16string_view text, Rule rule);
  static std::u16string i2ToString(std::int16_t value);
  static std::int16_t i2FromString(std::u16string_view text, Rule rule);
  static std::u16string i4ToString(std::int32_t value);
  static std::int32_t i4FromString(std::u16string_view text, Rule rule);
  static std::u16string i8ToString(std::int64_t value);
  static std::int64_t i8FromString(std::u16string_view text, Rule rule);
  static std::u16string ui1ToString(unsigned char value);
  static unsigned char ui1FromString(std::u16string_view text, Rule rule);
  static std::u16string ui2ToString(std::uint16_t value);
  static std::uint16_t ui2FromString(std::u16string_view text, Rule rule);
  static std::u16string ui4ToString(std::uint32_t value);
  static std::uint32_t ui4FromString(std::u16string_view text, Rule rule);
  static std::u16string ui8ToString(std::uint64_t value);
  static std::uint64_t ui8FromString(std::u16string_view text, Rule rule);

  /// "NaN", "INF", "-INF", or up to 7 significant digits (r8: 16) without trailing zeros, with an
  /// exponent below 1e-4 and where there are more digits before the point than that. A @p format
  /// that is not empty is that of FormatString with one conversion of a double, such as u"%.2f";
  /// its text is cut at 31 units (r8: 47).
  static std::u16string r4ToString(float value, std::u16string_view format = {});
  static std::u16string r8ToString(double value, std::u16string_view format = {});
  /// Reads decimal forms, with an exponent or not, and exactly "NaN", "1.#QNAN", "-NAN", "INF" and
  /// "-INF". White space before a number is skipped, and a null unit ends it. A number out of range
  /// becomes infinity or zero. An r4 is read as r8 and narrowed.
  static float r4FromString(std::u16string_view text, Rule rule);
  static double r8FromString(std::u16string_view text, Rule rule);

  /// CDecimal::ToString. Of a @p format that is not empty, the integer at its start is the number
  /// of places, as in u"2".
  static std::u16string decimalToString(CDecimal const& value, std::u16string_view format = {});
  static CDecimal decimalFromString(std::u16string_view text, Rule rule);

  static std::u16string integerToString(CBigInteger const& value);
  /// Lenient: see CBigInteger::Parse.
  static CBigInteger integerFromString(std::u16string_view text, Rule rule);

  /// "true" or "false".
  static std::u16string booleanToString(bool value);
  /// "true", "false", "1" or "0", the words in any case.
  static bool booleanFromString(std::u16string_view text, Rule rule);

  /// The unit alone; empty for the null unit.
  static std::u16string charToString(char16_t value);
  /// The one unit that the text has.
  static char16_t charFromString(std::u16string_view text, Rule rule);

  static std::u16string stringToString(std::u16string_view value);
  static std::u16string stringFromString(std::u16string_view text, Rule rule);

  /// Two upper-case digits a byte.
  static std::u16string hexBinaryToString(CBinaryData const& value);
  /// @throws CKestException for an odd number of digits and for anything that is no digit.
  static CBinaryData hexBinaryFromString(std::u16string_view text, Rule rule);

  /// RFC 4648 with padding, without line ends.
  static std::u16string base64BinaryToString(CBinaryData const& value);
  /// Text that is not base64 gives no bytes, and no error.
  static CBinaryData base64BinaryFromString(std::u16string_view text, Rule rule);

  /// See CDateTimeSpan.
  static std::u16string durationToString(CDateTimeSpan const& value);
  static CDateTimeSpan durationFromString(std::u16string_view text, Rule rule);

  /// The form of the value's own type, see CDateTime.
  static std::u16string dateToString(CDateTime const& value);
  // But for datetime and time these read any form without a time, and give a value of its type.
  static CDateTime datetimeFromString(std::u16string_view text, Rule rule);
  static CDateTime timeFromString(std::u16string_view text, Rule rule);
  static CDateTime dateFromString(std::u16string_view text, Rule rule);
  static CDateTime yearMonthFromString(std::u16string_view text, Rule rule);
  static CDateTime monthDayFromString(std::u16string_view text, Rule rule);

  /// The forms of gYear, gMonth ("--07") and gDay ("---07"); a year without zeros in front.
  static std::u16string yearToString(std::uint16_t value);
  static std::u16string monthToString(unsigned char value);
  static std::u16string dayToString(unsigned char value);
  /// A field of any form without a time that has it; a year before Christ wraps.
  /// @throws CKestInvalidStateException for a form that lacks the field.
  static std::uint16_t yearFromString(std::u16string_view text, Rule rule);
  static unsigned char monthFromString(std::u16string_view text, Rule rule);
  static unsigned char dayFromString(std::u16string_view text, Rule rule);
};

}  // namespace KestXmlLib20
