#include "kestxml/values/date_time_span.h"

#include <span>

#include "kestxml/values/internal/digit_text.h"

namespace KestXmlLib20 {

CDateTimeSpan::CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
    : m_hours(hours), m_minutes(minutes), m_seconds(seconds) {}

CDateTimeSpan::CDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                             std::uint16_t millis, std::uint16_t micros, std::uint16_t nanos)
    : m_years(years),
      m_months(months),
      m_days(days),
      m_hours(hours),
      m_minutes(minutes),
      m_seconds(seconds),
      m_milliSeconds(millis),
      m_microSeconds(micros),
      m_nanoSeconds(nanos) {}

// That the days stay is what callers count on who set them first.
void CDateTimeSpan::SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes,
                                    std::uint64_t seconds) {
  *this = CDateTimeSpan(0, 0, m_days, hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, std::uint64_t minutes,
                                    std::uint64_t seconds, std::uint16_t millis,
                                    std::uint16_t micros, std::uint16_t nanos) {
  *this = CDateTimeSpan(years, months, days, hours, minutes, seconds, millis, micros, nanos);
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const {
  CDateTimeSpan span = *this;
  span.m_isNegative = true;
  return span;
}

std::u16string CDateTimeSpan::ToString() const {
  internal::DigitText out;
  auto const put = [&out](std::uint64_t count, char16_t unit) {
    if (count == 0) return;
    out.Put(count);
    out.Mark(unit);
  };
  if (m_isNegative) out.Mark(u'-');
  out.Mark(u'P');
  put(m_years, u'Y');
  put(m_months, u'M');
  put(m_days, u'D');
  bool const hasSeconds =
      m_seconds != 0 || m_milliSeconds != 0 || m_microSeconds != 0 || m_nanoSeconds != 0;
  if (m_hours != 0 || m_minutes != 0 || hasSeconds) out.Mark(u'T');
  put(m_hours, u'H');
  put(m_minutes, u'M');
  if (hasSeconds) {
    out.Put(m_seconds);
    out.PutFraction(m_milliSeconds, m_microSeconds, m_nanoSeconds);
    out.Mark(u'S');
  }
  return out.ToString();
}

CDateTime::DTCompareResult CDateTimeSpan::CompareTo(CDateTimeSpan const& other) const {
  struct Reference {
    std::int16_t year;
    unsigned char month;
  };
  // Months of all the lengths that can follow one another.
  constexpr Reference kReferences[] = {{1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};
  auto const compareFrom = [&](Reference const& reference) {
    CDateTime date(reference.year, reference.month, 1);
    date.SetUTC();
    return (date + *this).CompareTo(date + other);
  };
  CDateTime::DTCompareResult const first = compareFrom(kReferences[0]);
  for (Reference const& reference : std::span(kReferences).subspan(1)) {
    if (compareFrom(reference) != first) return CDateTime::DTCompareResult_Indeterminate;
  }
  return first;
}

bool CDateTimeSpan::operator==(CDateTimeSpan const& other) const {
  return CompareTo(other) == CDateTime::DTCompareResult_Equal;
}
bool CDateTimeSpan::operator!=(CDateTimeSpan const& other) const {
  return CompareTo(other) != CDateTime::DTCompareResult_Equal;
}
bool CDateTimeSpan::operator<(CDateTimeSpan const& other) const {
  return CompareTo(other) == CDateTime::DTCompareResult_LessThan;
}
bool CDateTimeSpan::operator>(CDateTimeSpan const& other) const {
  return CompareTo(other) == CDateTime::DTCompareResult_GreaterThan;
}

}  // namespace KestXmlLib20
