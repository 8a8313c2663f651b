// CDateTime: whole values, from fields, from the structures of systems and from one another.

#include <algorithm>
#include <limits>

#include "kestxml/values/date_time.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/calendar.h"
#include "kestxml/values/internal/date_time_kind.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::KindOf;

namespace {

constexpr std::int64_t kSecondsPerDay = 86'400;

// Brings a number into a field, where one that is too large for it stays out of range.
template <typename Field>
Field Saturate(std::int64_t number) {
  using Range = std::numeric_limits<Field>;
  return static_cast<Field>(std::clamp<std::int64_t>(number, Range::min(), Range::max()));
}

// A number that is no type has no fields, and a dateTime alone may take it.
bool CheckConversion(CDateTime::DTType from, CDateTime::DTType to) {
  if (from == to || to == CDateTime::dt_none) return true;
  if (!internal::IsDateTimeKind(from)) {
    throw CKestInvalidValueException(FormatString(u"Unknown date type %d.", from));
  }
  if (from == CDateTime::dt_dateTime) return true;
  return internal::IsDateTimeKind(to) && KindOf(from).Has(KindOf(to).fields);
}

template <typename Set>
void SetOrClear(CDateTime& value, Set const& set) {
  try {
    set();
  } catch (CKestInvalidValueException const&) {
    value.Clear();
  }
}

}  // namespace

CDateTime::CDateTime(char16_t const* text) {
  ParseXSDDateTime(text);
}

CDateTime::CDateTime(std::int64_t time) {
  SetOrClear(*this, [&] { *this = time; });
}

CDateTime::CDateTime(_SYSTEMTIME const& time) {
  SetOrClear(*this, [&] { *this = time; });
}

CDateTime::CDateTime(_FILETIME const& time) {
  SetOrClear(*this, [&] { *this = time; });
}

CDateTime::CDateTime(std::int16_t year, unsigned char month, unsigned char day) {
  SetOrClear(*this, [&] { SetDate(year, month, day); });
}

CDateTime::CDateTime(std::int16_t year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, std::uint16_t milli,
                     std::uint16_t micro, std::uint16_t nano) {
  SetOrClear(*this,
             [&] { SetDateTime(year, month, day, hour, minute, second, milli, micro, nano); });
}

CDateTime& CDateTime::operator=(std::int64_t time) {
  internal::CalendarDate const date =
      internal::DateOfDay(internal::FloorDivide(time, kSecondsPerDay));
  auto const second = static_cast<int>(internal::FloorModulo(time, kSecondsPerDay));
  SetDateTime(Saturate<std::int16_t>(date.year), static_cast<unsigned char>(date.month),
              static_cast<unsigned char>(date.day), static_cast<unsigned char>(second / 3600),
              static_cast<unsigned char>(second / 60 % 60),
              static_cast<unsigned char>(second % 60));
  return *this;
}

CDateTime& CDateTime::operator=(_SYSTEMTIME const& time) {
  using Byte = unsigned char;
  SetDateTime(Saturate<std::int16_t>(time.wYear), Saturate<Byte>(time.wMonth),
              Saturate<Byte>(time.wDay), Saturate<Byte>(time.wHour), Saturate<Byte>(time.wMinute),
              Saturate<Byte>(time.wSecond), time.wMilliseconds);
  return *this;
}

CDateTime& CDateTime::operator=(_FILETIME const& time) {
  auto const fields = platform::ToSystemTime(time);
  if (!fields) throw CKestInvalidValueException(u"Failed to convert FILETIME to SYSTEMTIME");
  return *this = *fields;
}

CDateTime CDateTime::GetTickCount() {
  return CDateTime(platform::LocalTime());
}

std::int64_t CDateTime::GetTime() const {
  if (!KindOf(m_type).Has(internal::kWholeDate)) {
    throw CKestInvalidValueException(
        FormatString(u"Failed to GetTime, Date Status must be dateTime or date. Invalid Date "
                     u"Type: %s.",
                     GetTypeAsString()));
  }
  CDateTime const utc = GetNormalized();
  std::int64_t const day = internal::DayNumber({utc.m_year, utc.m_month, utc.m_day});
  int const second = utc.m_hour * 3600 + utc.m_minute * 60 + utc.m_second;
  return day * kSecondsPerDay + (m_type == dt_dateTime ? second : 0);
}

unsigned char CDateTime::GetDayOfWeek() const {
  Require(internal::kWholeDate, u"Failed to GetDayOfWeek. Invalid Date Type: %s.");
  return static_cast<unsigned char>(platform::LocalDayOfWeek(GetTime()) + 1);
}

_SYSTEMTIME CDateTime::GetAsSystemTime() const {
  if (m_type != dt_dateTime) {
    throw CKestInvalidValueException(
        FormatString(u"Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date "
                     u"Type: %s.",
                     GetTypeAsString()));
  }
  return {static_cast<std::uint16_t>(m_year),
          m_month,
          static_cast<std::uint16_t>(GetDayOfWeek() - 1),
          m_day,
          m_hour,
          m_minute,
          m_second,
          m_milliSecond};
}

void CDateTime::Become(DTType type) {
  if (m_type != dt_none && m_type != type) {
    throw CKestInvalidStateException(
        FormatString(u"Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                     GetTypeAsString(), KindOf(type).name));
  }
  m_type = type;
  m_isUtc = false;
  m_hasTimeZone = false;
  m_zoneHour = 0;
  m_zoneMinute = 0;
}

void CDateTime::SetDateTime(std::int16_t year, unsigned char month, unsigned char day,
                            unsigned char hour, unsigned char minute, unsigned char second,
                            std::uint16_t milli, std::uint16_t micro, std::uint16_t nano) {
  Become(dt_dateTime);
  m_year = year;
  m_month = month;
  m_day = day;
  m_hour = hour;
  m_minute = minute;
  m_second = second;
  m_milliSecond = milli;
  m_microSecond = micro;
  m_nanoSecond = nano;
  Validate();
}

void CDateTime::SetDate(std::int16_t year, unsigned char month, unsigned char day) {
  Become(dt_date);
  m_year = year;
  m_month = month;
  m_day = day;
  Validate();
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second,
                        std::uint16_t milli, std::uint16_t micro, std::uint16_t nano) {
  Become(dt_time);
  m_hour = hour;
  m_minute = minute;
  m_second = second;
  m_milliSecond = milli;
  m_microSecond = micro;
  m_nanoSecond = nano;
  Validate();
}

void CDateTime::SetFracTime(std::uint16_t milli, std::uint16_t micro, std::uint16_t nano) {
  Become(dt_time);
  m_milliSecond = milli;
  m_microSecond = micro;
  m_nanoSecond = nano;
  Validate();
}

void CDateTime::SetGYear(std::int16_t year) {
  Become(dt_gYear);
  m_year = year;
  Validate();
}

void CDateTime::SetGYearMonth(std::int16_t year, unsigned char month) {
  Become(dt_gYearMonth);
  m_year = year;
  m_month = month;
  Validate();
}

void CDateTime::SetGMonth(unsigned char month) {
  Become(dt_gMonth);
  m_month = month;
  Validate();
}

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day) {
  Become(dt_gMonthDay);
  m_month = month;
  m_day = day;
  Validate();
}

void CDateTime::SetGDay(unsigned char day) {
  Become(dt_gDay);
  m_day = day;
  Validate();
}

void CDateTime::SetDateTime(CDateTime const& other, DTType type) {
  if (!CheckConversion(other.m_type, type)) {
    throw CKestInvalidValueException(FormatString(
        u"Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. The source "
        u"CDateTime does not contian enough data to allow the conversion.",
        KindOf(type).name, other.GetTypeAsString()));
  }
  *this = other;
  m_type = type;
}

}  // namespace KestXmlLib20
