#include "kestxml/values/internal/calendar.h"

#include <algorithm>

namespace KestXmlLib20::internal {
namespace {

constexpr int kDaysBeforeMonth[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

constexpr std::int64_t kDaysIn400Years = 146'097;
constexpr std::int64_t kDaysBefore1970 = 719'528;  // from 0000-01-01

// From 0000-01-01 to @p year-01-01.
std::int64_t DaysBeforeYear(std::int64_t year) {
  std::int64_t const last = year - 1;
  return 365 * year + FloorDivide(last, 4) - FloorDivide(last, 100) + FloorDivide(last, 400) + 1;
}

}  // namespace

int DaysBeforeMonth(int month, bool leap) {
  if (month < 1 || month > kMonths) return 0;
  return kDaysBeforeMonth[month - 1] + (leap && month > 2 ? 1 : 0);
}

int DaysInMonth(int month, bool leap) {
  return kDaysBeforeMonth[month] - kDaysBeforeMonth[month - 1] + (leap && month == 2 ? 1 : 0);
}

std::int64_t DayNumber(CalendarDate const& date) {
  std::int64_t const year = date.year + FloorDivide(date.month - 1, kMonths);
  int const month = static_cast<int>(FloorModulo(date.month - 1, kMonths)) + 1;
  return DaysBeforeYear(year) + DaysBeforeMonth(month, IsLeapYear(year)) + date.day - 1 -
         kDaysBefore1970;
}

CalendarDate DateOfDay(std::int64_t number) {
  std::int64_t const day = number + kDaysBefore1970;
  std::int64_t const era = FloorDivide(day, kDaysIn400Years);
  std::int64_t const dayOfEra = day - era * kDaysIn400Years;
  std::int64_t yearOfEra = dayOfEra * 400 / kDaysIn400Years;  // or a neighbour of it
  while (DaysBeforeYear(yearOfEra) > dayOfEra) --yearOfEra;
  while (DaysBeforeYear(yearOfEra + 1) <= dayOfEra) ++yearOfEra;

  bool const leap = IsLeapYear(yearOfEra);
  int const dayOfYear = static_cast<int>(dayOfEra - DaysBeforeYear(yearOfEra));
  int month = dayOfYear / 32 + 1;  // or the one before it
  while (month < kMonths && DaysBeforeMonth(month + 1, leap) <= dayOfYear) ++month;
  return {era * 400 + yearOfEra, month, dayOfYear - DaysBeforeMonth(month, leap) + 1};
}

}  // namespace KestXmlLib20::internal
