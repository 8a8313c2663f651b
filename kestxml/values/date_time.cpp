#include "kestxml/values/date_time.h"

#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/calendar.h"
#include "kestxml/values/internal/date_time_kind.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::kDay;
using internal::KindOf;
using internal::kMonth;
using internal::kTime;
using internal::kYear;

namespace {

// Setters have the messages of their getters.
constexpr char16_t kNoYear[] = u"Failed to GetYear. Invalid Date Type: %s.";
constexpr char16_t kNoMonth[] = u"Failed to GetMonth. Invalid Date Type: %s.";
constexpr char16_t kNoDay[] = u"Failed to GetDay. Invalid Date Type: %s.";
constexpr char16_t kNoHour[] = u"Failed to GetHour. Invalid Date Type: %s.";
constexpr char16_t kNoMinute[] = u"Failed to GetMinute. Invalid Date Type: %s.";
constexpr char16_t kNoSecond[] = u"Failed to GetSecond. Invalid Date Type: %s.";
constexpr char16_t kNoMilliSecond[] = u"Failed to GetMilliSecond. Invalid Date Type: %s.";
constexpr char16_t kNoMicroSecond[] = u"Failed to GetMicroSecond. Invalid Date Type: %s.";
constexpr char16_t kNoNanoSecond[] = u"Failed to GetNanoSecond. Invalid Date Type: %s.";

}  // namespace

void CDateTime::Clear() {
  *this = CDateTime();
}

std::u16string CDateTime::GetTypeAsString() const {
  return KindOf(m_type).name;
}

void CDateTime::Require(unsigned field, char16_t const* message) const {
  if (KindOf(m_type).Has(field)) return;
  throw CKestInvalidStateException(FormatString(message, GetTypeAsString()));
}

std::int16_t CDateTime::GetYear() const {
  Require(kYear, kNoYear);
  return m_year;
}
void CDateTime::SetYear(std::int16_t year) {
  Require(kYear, kNoYear);
  m_year = year;
}

unsigned char CDateTime::GetMonth() const {
  Require(kMonth, kNoMonth);
  return m_month;
}
void CDateTime::SetMonth(unsigned char month) {
  Require(kMonth, kNoMonth);
  m_month = month;
}

unsigned char CDateTime::GetDay() const {
  Require(kDay, kNoDay);
  return m_day;
}
void CDateTime::SetDay(unsigned char day) {
  Require(kDay, kNoDay);
  m_day = day;
}

unsigned char CDateTime::GetHour() const {
  Require(kTime, kNoHour);
  return m_hour;
}
void CDateTime::SetHour(unsigned char hour) {
  Require(kTime, kNoHour);
  m_hour = hour;
}

unsigned char CDateTime::GetMinute() const {
  Require(kTime, kNoMinute);
  return m_minute;
}
void CDateTime::SetMinute(unsigned char minute) {
  Require(kTime, kNoMinute);
  m_minute = minute;
}

unsigned char CDateTime::GetSecond() const {
  Require(kTime, kNoSecond);
  return m_second;
}
void CDateTime::SetSecond(unsigned char second) {
  Require(kTime, kNoSecond);
  m_second = second;
}

std::uint16_t CDateTime::GetMilliSecond() const {
  Require(kTime, kNoMilliSecond);
  return m_milliSecond;
}
void CDateTime::SetMilliSecond(std::uint16_t milli) {
  Require(kTime, kNoMilliSecond);
  m_milliSecond = milli;
}

std::uint16_t CDateTime::GetMicroSecond() const {
  Require(kTime, kNoMicroSecond);
  return m_microSecond;
}
void CDateTime::SetMicroSecond(std::uint16_t micro) {
  Require(kTime, kNoMicroSecond);
  m_microSecond = micro;
}

std::uint16_t CDateTime::GetNanoSecond() const {
  Require(kTime, kNoNanoSecond);
  return m_nanoSecond;
}
void CDateTime::SetNanoSecond(std::uint16_t nano) {
  Require(kTime, kNoNanoSecond);
  m_nanoSecond = nano;
}

double CDateTime::RealSecond() const {
  return m_second + m_milliSecond / 1000.0 + m_microSecond / 1e6 + m_nanoSecond / 1e9;
}

double CDateTime::GetRealSecond() const {
  Require(kTime, u"Failed to GetRealSecond. Invalid Date Type: %s.");
  return RealSecond();
}

// The leap day is counted where it has not come yet, and not where it has: callers have such
// numbers stored.
std::uint16_t CDateTime::GetDayOfYear() const {
  Require(internal::kWholeDate, u"Failed to GetDayOfYear. Invalid Date Type: %s.");
  int const extra = internal::IsLeapYear(m_year) && m_month <= 2 ? 1 : 0;
  return static_cast<std::uint16_t>(m_day + internal::DaysBeforeMonth(m_month, false) + extra);
}

std::int16_t CDateTime::GetZoneHour() const {
  RequireZone();
  return m_zoneHour;
}
unsigned char CDateTime::GetZoneMinute() const {
  RequireZone();
  return m_zoneMinute;
}

void CDateTime::RequireZone() const {
  if (!m_hasTimeZone) throw CKestInvalidStateException(u"TimeZone is not been used");
}

void CDateTime::SetTimeZone(std::int16_t hour, unsigned char minute) {
  if (hour < -23 || hour > 23 || minute > 59) {
    throw CKestInvalidValueException(FormatString(u"Invalid TimeZone [%d:%d]", hour, minute));
  }
  m_isUtc = true;
  m_hasTimeZone = true;
  m_zoneHour = hour;
  m_zoneMinute = minute;
}

void CDateTime::SetUTC() {
  m_isUtc = true;
  m_zoneMinute = 0;
}

}  // namespace KestXmlLib20
