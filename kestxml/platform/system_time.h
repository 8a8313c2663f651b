// The structures in which systems hand out dates and times, and what is asked of the clock.
#pragma once

#include <cstdint>
#include <optional>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

// NOLINTBEGIN(bugprone-reserved-identifier): applications know the two by these names.

/// A date and a time, field by field.
struct _SYSTEMTIME {
  std::uint16_t wYear;
  std::uint16_t wMonth;      ///< from 1
  std::uint16_t wDayOfWeek;  ///< 0 for Sunday
  std::uint16_t wDay;        ///< from 1
  std::uint16_t wHour;
  std::uint16_t wMinute;
  std::uint16_t wSecond;
  std::uint16_t wMilliseconds;
};

/// A count of 100-nanosecond steps since 1601-01-01T00:00:00 UTC, in two halves.
struct _FILETIME {
  std::uint32_t dwLowDateTime;
  std::uint32_t dwHighDateTime;
};

// NOLINTEND(bugprone-reserved-identifier)

namespace platform {

/// The clock on the wall: the present time in the time zone of the process (`TZ`).
_SYSTEMTIME LocalTime();

/// In UTC, cut to milliseconds. Nothing for a count of 2^63 steps or more.
std::optional<_SYSTEMTIME> ToSystemTime(_FILETIME const& time);

/// The day that the time zone of the process has at @p time, in seconds since 1970-01-01T00:00:00
/// UTC; 0 for Sunday.
int LocalDayOfWeek(std::int64_t time);

}  // namespace platform
}  // namespace KestXmlLib20
