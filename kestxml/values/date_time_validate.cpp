// CDateTime: the test of a value against its type.

#include <iterator>

#include "kestxml/values/date_time.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/calendar.h"
#include "kestxml/values/internal/date_time_kind.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::DateTimeKind;

namespace {

constexpr int kLastYear = 9999;

void ValidateMonth(DateTimeKind const& kind, int month) {
  if (!kind.Has(internal::kMonth)) {
    if (month == 0) return;
    throw CKestInvalidValueException(
        FormatString(u"Invalid Month [%d] for type %s", month, kind.name));
  }
  if (month < 1 || month > internal::kMonths) {
    throw CKestInvalidValueException(FormatString(u"Invalid Month [%d] (1 <= month <= 12)", month));
  }
}

void ValidateYear(DateTimeKind const& kind, int year) {
  if (!kind.Has(internal::kYear)) {
    if (year == 0) return;
    throw CKestInvalidValueException(
        FormatString(u"Invalid Year [%d] for type %s", year, kind.name));
  }
  if (year == 0 || year < -kLastYear || year > kLastYear) {
    throw CKestInvalidValueException(FormatString(
        u"Invalid Year [%d] (%d <= year <= %d && year != 0)", year, -kLastYear, kLastYear));
  }
}

// The month is valid already. A day without a month has no upper bound: it always passed, so
// documents have it.
void ValidateDay(DateTimeKind const& kind, int year, int month, int day) {
  if (!kind.Has(internal::kDay)) {
    if (day == 0) return;
    throw CKestInvalidValueException(FormatString(u"Invalid Day [%d] for type %s", day, kind.name));
  }
  if (!kind.Has(internal::kMonth)) {
    if (day >= 1) return;
    throw CKestInvalidValueException(FormatString(u"Invalid Day [%d] (1 <= day <= 31)", day));
  }
  bool const hasYear = kind.Has(internal::kYear);
  bool const leap = !hasYear || internal::IsLeapYear(year);
  if (day >= 1 && day <= internal::DaysInMonth(month, leap)) return;
  throw CKestInvalidValueException(
      FormatString(hasYear ? u"Invalid Day [%d] (1 <= day <= days in month)"
                           : u"Invalid Day [%d] (1 <= day <= days in month",
                   day));
}

// A field of the time: how far it goes, and what is said of one that goes further, or that stands
// where the type has none.
struct TimeField {
  int last;
  char16_t const* outOfRange;
  char16_t const* notOfType;
};

// clang-format off
constexpr TimeField kTimeFields[] = {
    { 23, u"Invalid Hour [%d] (0 <= hour <= 23)",          u"Invalid Hour [%d] for type %s"},
    { 59, u"Invalid Minute [%d] (0 <= minute <= 59)",      u"Invalid Minute [%d] for type %s"},
    { 59, u"Invalid Second [%d] (0 <= second <= 59)",      u"Invalid Second [%d] for type %s"},
    {999, u"Invalid Milli-Second [%d] (0 <= milli <= 999)", u"Invalid Milli-Second [%d] for type %s"},
    {999, u"Invalid Micro-Second [%d] (0 <= micro <= 999)", u"Invalid Micro-Second [%d] for type %s"},
    {999, u"Invalid Nano-Second [%d] (0 <= nano <= 999)",  u"Invalid Nano-Second [%d] for type %s"},
};
// clang-format on

void ValidateTime(DateTimeKind const& kind, TimeField const& field, int value) {
  bool const hasTime = kind.Has(internal::kTime);
  if (value <= (hasTime ? field.last : 0)) return;
  throw CKestInvalidValueException(
      FormatString(hasTime ? field.outOfRange : field.notOfType, value, kind.name));
}

}  // namespace

void CDateTime::Validate() const {
  if (m_type == dt_none) throw CKestInvalidValueException(u"Invalid Year Zero");
  DateTimeKind const& kind = internal::KindOf(m_type);
  ValidateMonth(kind, m_month);
  ValidateYear(kind, m_year);
  ValidateDay(kind, m_year, m_month, m_day);
  int const time[] = {m_hour, m_minute, m_second, m_milliSecond, m_microSecond, m_nanoSecond};
  for (std::size_t i = 0; i < std::size(time); ++i) ValidateTime(kind, kTimeFields[i], time[i]);
}

}  // namespace KestXmlLib20
