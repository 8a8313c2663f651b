// The Gregorian calendar, carried on in both directions without end; the year before 1 is 0.
#pragma once

#include <cstdint>

namespace KestXmlLib20::internal {

struct CalendarDate {
  std::int64_t year;
  int month;  ///< from 1
  int day;    ///< from 1
};

inline constexpr int kMonths = 12;

constexpr bool IsLeapYear(std::int64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// How many days @p month has, which is from 1 to 12, in a leap year or another.
int DaysInMonth(int month, bool leap);

/// How many days of the same year are before @p month; 0 for what is no month.
int DaysBeforeMonth(int month, bool leap);

/// Counted from 1970-01-01. Month and day may lie outside of the year and the month.
std::int64_t DayNumber(CalendarDate const& date);

/// The date that DayNumber gives that number.
CalendarDate DateOfDay(std::int64_t number);

constexpr std::int64_t FloorDivide(std::int64_t count, std::int64_t by) {
  return count / by - (count % by < 0 ? 1 : 0);
}

constexpr std::int64_t FloorModulo(std::int64_t count, std::int64_t by) {
  return count % by + (count % by < 0 ? by : 0);
}

}  // namespace KestXmlLib20::internal
