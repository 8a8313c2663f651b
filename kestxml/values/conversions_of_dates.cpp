// CConversions: dates, times and spans.

#include "kestxml/values/conversions.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/number_text.h"

namespace KestXmlLib20 {
namespace {

using Rule = CConversions::Rule;
using Text = std::u16string_view;

template <typename Value>
Value Read(void (Value::*parse)(Text), Text text, Rule rule) {
  std::u16string buffer;
  Value value;
  (value.*parse)(CWhitespaceUtils::ApplyRule(rule, text, buffer));
  return value;
}

CDateTime ReadDate(Text text, Rule rule) {
  return Read<CDateTime>(&CDateTime::ParseXSDDate, text, rule);
}

}  // namespace

std::u16string CConversions::durationToString(CDateTimeSpan const& value) {
  return value.ToString();
}

CDateTimeSpan CConversions::durationFromString(Text text, Rule rule) {
  return Read<CDateTimeSpan>(&CDateTimeSpan::ParseXSDDuration, text, rule);
}

std::u16string CConversions::dateToString(CDateTime const& value) {
  return value.ToString();
}

CDateTime CConversions::datetimeFromString(Text text, Rule rule) {
  return Read<CDateTime>(&CDateTime::ParseXSDDateTime, text, rule);
}

CDateTime CConversions::timeFromString(Text text, Rule rule) {
  return Read<CDateTime>(&CDateTime::ParseXSDTime, text, rule);
}

CDateTime CConversions::dateFromString(Text text, Rule rule) {
  return ReadDate(text, rule);
}

CDateTime CConversions::yearMonthFromString(Text text, Rule rule) {
  return ReadDate(text, rule);
}

CDateTime CConversions::monthDayFromString(Text text, Rule rule) {
  return ReadDate(text, rule);
}

std::u16string CConversions::yearToString(std::uint16_t value) {
  return internal::PrintInteger(std::uint64_t{value});
}

std::u16string CConversions::monthToString(unsigned char value) {
  return FormatString(u"--%02u", value);
}

std::u16string CConversions::dayToString(unsigned char value) {
  return FormatString(u"---%02u", value);
}

std::uint16_t CConversions::yearFromString(Text text, Rule rule) {
  return static_cast<std::uint16_t>(ReadDate(text, rule).GetYear());
}

unsigned char CConversions::monthFromString(Text text, Rule rule) {
  return ReadDate(text, rule).GetMonth();
}

unsigned char CConversions::dayFromString(Text text, Rule rule) {
  return ReadDate(text, rule).GetDay();
}

}  // namespace KestXmlLib20
