#include "kestxml/values/conversions.h"

#include <cmath>
#include <limits>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/internal/number_text.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::NumberFault;

namespace {

using Rule = CConversions::Rule;
using Text = std::u16string_view;

[[noreturn]] void ThrowNotConvertible(Text text, char16_t const* kind) {
  throw CKestInvalidValueException(
      FormatString(u"The value [%s] can not be converted to a %s", text, kind));
}

[[noreturn]] void ThrowTooLarge(Text text, char16_t const* kind) {
  throw CKestInvalidValueException(
      FormatString(u"The value [%s] is to large to fit in a %s", text, kind));
}

template <typename T>
T ReadInteger(Text text, Rule rule, char16_t const* kind) {
  std::u16string buffer;
  Text const ruled = CWhitespaceUtils::ApplyRule(rule, text, buffer);
  T value = 0;
  NumberFault const fault = internal::ParseInteger(ruled, value);
  if (fault == NumberFault::Malformed) ThrowNotConvertible(ruled, kind);
  if (fault == NumberFault::OutOfRange) ThrowTooLarge(ruled, kind);
  return value;
}

// Brings a value that was read in the wider type into its own.
template <typename T, typename Wide>
T Narrow(Wide value, Text text, char16_t const* kind) {
  using Range = std::numeric_limits<T>;
  if (value < Range::min() || value > Range::max()) ThrowTooLarge(text, kind);
  return static_cast<T>(value);
}

std::u16string PrintSigned(std::int64_t value) {
  return internal::PrintInteger(value);
}
std::u16string PrintUnsigned(std::uint64_t value) {
  return internal::PrintInteger(value);
}

// How one of the two kinds of floating-point number is printed.
struct RealForm {
  int digits;
  std::size_t longest;  // of a text by a format of the caller's
};
constexpr RealForm kR4 = {7, 31};
constexpr RealForm kR8 = {16, 47};

std::u16string PrintReal(double value, Text format, RealForm const& form) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value < 0 ? u"-INF" : u"INF";
  if (format.empty()) return internal::PrintReal(value, form.digits);
  std::u16string text = FormatString(std::u16string(format).c_str(), value);
  if (text.size() > form.longest) text.resize(form.longest);
  return text;
}

struct RealName {
  Text text;
  double value;
};
constexpr RealName kRealNames[] = {
    {u"NaN", std::numeric_limits<double>::quiet_NaN()},
    {u"1.#QNAN", std::numeric_limits<double>::quiet_NaN()},  // as old writers of numbers have it
    {u"-NAN", std::numeric_limits<double>::quiet_NaN()},
    {u"-INF", -std::numeric_limits<double>::infinity()},
    {u"INF", std::numeric_limits<double>::infinity()},
};

double ReadReal(Text text, Rule rule, char16_t const* kind) {
  std::u16string buffer;
  Text const ruled = CWhitespaceUtils::ApplyRule(rule, text, buffer);
  double value = 0;
  if (internal::ParseReal(ruled, value)) return value;
  for (RealName const& name : kRealNames) {
    if (ruled == name.text) return name.value;
  }
  ThrowNotConvertible(ruled, kind);
}

struct BooleanName {
  Text text;
  bool value;
};
constexpr BooleanName kBooleanNames[] = {
    {u"true", true}, {u"false", false}, {u"1", true}, {u"0", false}};

}  // namespace

std::u16string CConversions::i1ToString(signed char value) {
  return PrintSigned(value);
}
std::u16string CConversions::i2ToString(std::int16_t value) {
  return PrintSigned(value);
}
std::u16string CConversions::i4ToString(std::int32_t value) {
  return PrintSigned(value);
}
std::u16string CConversions::i8ToString(std::int64_t value) {
  return PrintSigned(value);
}
std::u16string CConversions::ui1ToString(unsigned char value) {
  return PrintUnsigned(value);
}
std::u16string CConversions::ui2ToString(std::uint16_t value) {
  return PrintUnsigned(value);
}
std::u16string CConversions::ui4ToString(std::uint32_t value) {
  return PrintUnsigned(value);
}
std::u16string CConversions::ui8ToString(std::uint64_t value) {
  return PrintUnsigned(value);
}

signed char CConversions::i1FromString(Text text, Rule rule) {
  return Narrow<signed char>(i4FromString(text, rule), text, u"i1");
}

std::int16_t CConversions::i2FromString(Text text, Rule rule) {
  return Narrow<std::int16_t>(i4FromString(text, rule), text, u"i2");
}

std::int32_t CConversions::i4FromString(Text text, Rule rule) {
  return ReadInteger<std::int32_t>(text, rule, u"i4");
}

std::int64_t CConversions::i8FromString(Text text, Rule rule) {
  return ReadInteger<std::int64_t>(text, rule, u"i8");
}

unsigned char CConversions::ui1FromString(Text text, Rule rule) {
  return Narrow<unsigned char>(ui4FromString(text, rule), text, u"ui1");
}

std::uint16_t CConversions::ui2FromString(Text text, Rule rule) {
  return Narrow<std::uint16_t>(ui4FromString(text, rule), text, u"ui2");
}

std::uint32_t CConversions::ui4FromString(Text text, Rule rule) {
  return ReadInteger<std::uint32_t>(text, rule, u"ui4");
}

std::uint64_t CConversions::ui8FromString(Text text, Rule rule) {
  return ReadInteger<std::uint64_t>(text, rule, u"ui8");
}

std::u16string CConversions::r4ToString(float value, Text format) {
  return PrintReal(value, format, kR4);
}

std::u16string CConversions::r8ToString(double value, Text format) {
  return PrintReal(value, format, kR8);
}

float CConversions::r4FromString(Text text, Rule rule) {
  return static_cast<float>(ReadReal(text, rule, u"r4"));
}

double CConversions::r8FromString(Text text, Rule rule) {
  return ReadReal(text, rule, u"r8");
}

std::u16string CConversions::decimalToString(CDecimal const& value, Text format) {
  return format.empty() ? value.ToString() : value.ToString(internal::ParseLeadingInteger(format));
}

CDecimal CConversions::decimalFromString(Text text, Rule rule) {
  std::u16string buffer;
  return CDecimal(CWhitespaceUtils::ApplyRule(rule, text, buffer));
}

std::u16string CConversions::integerToString(CBigInteger const& value) {
  return value.ToString();
}

CBigInteger CConversions::integerFromString(Text text, Rule rule) {
  std::u16string buffer;
  CBigInteger value;
  value.Parse(CWhitespaceUtils::ApplyRule(rule, text, buffer));
  return value;
}

std::u16string CConversions::booleanToString(bool value) {
  return value ? u"true" : u"false";
}

bool CConversions::booleanFromString(Text text, Rule rule) {
  std::u16string buffer;
  Text const ruled = CWhitespaceUtils::ApplyRule(rule, text, buffer);
  for (BooleanName const& name : kBooleanNames) {
    if (internal::EqualsIgnoringCase(ruled, name.text)) return name.value;
  }
  throw CKestInvalidValueException(
      FormatString(u"A Boolean Value read from an XML document was invalid [%s]. Valid values are "
                   u"'true', 'false', '1', or '0'",
                   text));
}

std::u16string CConversions::charToString(char16_t value) {
  return value ? std::u16string(1, value) : std::u16string();
}

char16_t CConversions::charFromString(Text text, Rule rule) {
  std::u16string buffer;
  Text const ruled = CWhitespaceUtils::ApplyRule(rule, text, buffer);
  if (ruled.size() == 1) return ruled.front();
  throw CKestInvalidValueException(
      FormatString(u"The value [%s] can not be a char as it is either empty of greater than 1 char "
                   u"long",
                   ruled));
}

std::u16string CConversions::stringToString(Text value) {
  return std::u16string(value);
}

std::u16string CConversions::stringFromString(Text text, Rule rule) {
  return CWhitespaceUtils::ApplyRule(rule, text);
}

std::u16string CConversions::hexBinaryToString(CBinaryData const& value) {
  return value.GetAsHexString();
}

CBinaryData CConversions::hexBinaryFromString(Text text, Rule rule) {
  CBinaryData value;
  value.SetAsHexString(CWhitespaceUtils::ApplyRule(rule, text).c_str());
  return value;
}

std::u16string CConversions::base64BinaryToString(CBinaryData const& value) {
  return value.GetAsBase64();
}

CBinaryData CConversions::base64BinaryFromString(Text text, Rule rule) {
  CBinaryData value;
  value.SetAsBase64(CWhitespaceUtils::ApplyRule(rule, text).c_str());
  return value;
}

}  // namespace KestXmlLib20
