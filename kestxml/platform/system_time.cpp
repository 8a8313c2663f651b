#include "kestxml/platform/system_time.h"

#include <time.h>

namespace KestXmlLib20::platform {
namespace {

constexpr std::uint64_t kStepsPerSecond = 10'000'000;
constexpr std::uint64_t kStepsPerMillisecond = 10'000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;

_SYSTEMTIME ToSystemTime(tm const& fields, std::uint64_t milliseconds) {
  auto const cut = [](auto value) { return static_cast<std::uint16_t>(value); };
  return {cut(fields.tm_year + 1900), cut(fields.tm_mon + 1), cut(fields.tm_wday),
          cut(fields.tm_mday),        cut(fields.tm_hour),    cut(fields.tm_min),
          cut(fields.tm_sec),         cut(milliseconds)};
}

}  // namespace

_SYSTEMTIME LocalTime() {
  timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  tm fields = {};
  localtime_r(&now.tv_sec, &fields);
  return ToSystemTime(fields, static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000);
}

std::optional<_SYSTEMTIME> ToSystemTime(_FILETIME const& time) {
  std::uint64_t const steps = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  if (steps >> 63 != 0) return std::nullopt;
  time_t const seconds = static_cast<time_t>(steps / kStepsPerSecond) - kSecondsFrom1601To1970;
  tm fields = {};
  gmtime_r(&seconds, &fields);
  return ToSystemTime(fields, steps % kStepsPerSecond / kStepsPerMillisecond);
}

int LocalDayOfWeek(std::int64_t time) {
  time_t const seconds = time;
  tm fields = {};
  localtime_r(&seconds, &fields);
  return fields.tm_wday;
}

}  // namespace KestXmlLib20::platform
