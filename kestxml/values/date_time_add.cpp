// CDateTime: adding a span.

#include <cmath>
#include <limits>

#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/internal/calendar.h"

namespace KestXmlLib20 {

using internal::CalendarDate;
using internal::kMonths;

namespace {

// Wraps at 64 bits: a span holds more than a signed number.
template <typename... Counts>
std::int64_t Sum(Counts... counts) {
  return static_cast<std::int64_t>((static_cast<std::uint64_t>(counts) + ...));
}

// Leaves in @p field what is below the limit, and gives how many times the limit is in the count.
// Quotients are those of single precision: from some 16 million on they can be one off or more,
// with a remainder that is out of range and is cut to the field. Sums made elsewhere from the same
// spans have these figures.
template <typename Field>
std::int64_t Carry(std::int64_t count, std::int64_t limit, Field& field) {
  auto const carry =
      static_cast<std::int64_t>(std::floor(static_cast<float>(count) / static_cast<float>(limit)));
  field = static_cast<Field>(static_cast<std::uint64_t>(count) -
                             static_cast<std::uint64_t>(carry) * static_cast<std::uint64_t>(limit));
  return carry;
}

// Years have 16 bits and wrap, so the calendar comes back to a date after this number of days.
constexpr std::int64_t kFirstYear = std::numeric_limits<std::int16_t>::min();
constexpr std::int64_t kLastYear = std::numeric_limits<std::int16_t>::max();

CalendarDate AddOnCircle(CalendarDate const& date, std::int64_t count) {
  static std::int64_t const first = internal::DayNumber({kFirstYear, 1, 1});
  static std::int64_t const days = internal::DayNumber({kLastYear + 1, 1, 1}) - first;
  std::int64_t const day = internal::DayNumber(date) - first + count;
  return internal::DateOfDay(first + internal::FloorModulo(day, days));
}

}  // namespace

void CDateTime::AddDateTimeSpan(CDateTimeSpan const& span) {
  auto const of = [&span](std::uint64_t count) { return span.IsNegative() ? 0 - count : count; };
  std::int64_t carry = Carry(Sum(m_month - 1, of(span.GetMonths())), kMonths, m_month);
  ++m_month;
  m_year = static_cast<std::int16_t>(Sum(m_year, of(span.GetYears()), carry));
  carry = Carry(Sum(m_nanoSecond, of(span.GetNanoSeconds())), 1000, m_nanoSecond);
  carry = Carry(Sum(m_microSecond, of(span.GetMicroSeconds()), carry), 1000, m_microSecond);
  carry = Carry(Sum(m_milliSecond, of(span.GetMilliSeconds()), carry), 1000, m_milliSecond);
  carry = Carry(Sum(m_second, of(span.GetSeconds()), carry), 60, m_second);
  carry = Carry(Sum(m_minute, of(span.GetMinutes()), carry), 60, m_minute);
  carry = Carry(Sum(m_hour, of(span.GetHours()), carry), 24, m_hour);
  AddDays(Sum(of(span.GetDays()), carry));
}

// Within a month a day beyond its end stays one; only a step into another month finds a place for
// it.
void CDateTime::AddDays(std::int64_t count) {
  if (count == 0) return;
  // A quotient that is one off can have left a month that is none.
  m_year = static_cast<std::int16_t>(m_year + internal::FloorDivide(m_month - 1, kMonths));
  m_month = static_cast<std::uint8_t>(internal::FloorModulo(m_month - 1, kMonths) + 1);
  std::int64_t const day = m_day + count;
  int const length = internal::DaysInMonth(m_month, internal::IsLeapYear(m_year));
  if (count > 0 ? day <= length : day > 0) {
    m_day = static_cast<std::uint8_t>(day);
    return;
  }
  CalendarDate const date = AddOnCircle({m_year, m_month, m_day}, count);
  m_year = static_cast<std::int16_t>(date.year);
  m_month = static_cast<std::uint8_t>(date.month);
  m_day = static_cast<std::uint8_t>(date.day);
}

CDateTime& CDateTime::operator+=(CDateTimeSpan const& span) {
  AddDateTimeSpan(span);
  return *this;
}

CDateTime CDateTime::operator+(CDateTimeSpan const& span) const {
  CDateTime sum = *this;
  return sum += span;
}

CDateTime& CDateTime::operator-=(CDateTimeSpan const& span) {
  return *this += span.GetAsNegative();
}

CDateTime CDateTime::operator-(CDateTimeSpan const& span) const {
  return *this + span.GetAsNegative();
}

CDateTimeSpan CDateTime::operator-(CDateTime const& /*other*/) const {
  return {};
}

}  // namespace KestXmlLib20
