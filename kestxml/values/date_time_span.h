// Lengths of time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/values/date_time.h"

namespace KestXmlLib20 {

/// A length of time: counts of each unit under one sign, so that P1M stays a month and PT90M stays
/// ninety minutes (xsd:duration). Only comparison looks through that.
class KESTXML_API CDateTimeSpan {
 public:
  CDateTimeSpan() = default;
  CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
  CDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                std::uint64_t minutes, std::uint64_t seconds, std::uint16_t millis = 0,
                std::uint16_t micros = 0, std::uint16_t nanos = 0);
  CDateTimeSpan(CDateTimeSpan const&) = default;
  CDateTimeSpan& operator=(CDateTimeSpan const&) = default;
  virtual ~CDateTimeSpan() = default;

  // Both leave a span that is not negative.
  /// Also takes years, months and the fraction away, but leaves the days.
  void SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
  void SetDateTimeSpan(std::uint16_t years, std::uint32_t months, std::uint32_t days,
                       std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                       std::uint16_t millis = 0, std::uint16_t micros = 0, std::uint16_t nanos = 0);

  std::uint16_t GetYears() const { return m_years; }
  void SetYears(std::uint16_t years) { m_years = years; }
  std::uint32_t GetMonths() const { return m_months; }
  void SetMonths(std::uint32_t months) { m_months = months; }
  std::uint32_t GetDays() const { return m_days; }
  void SetDays(std::uint32_t days) { m_days = days; }
  std::uint32_t GetHours() const { return m_hours; }
  void SetHours(std::uint32_t hours) { m_hours = hours; }
  std::uint64_t GetMinutes() const { return m_minutes; }
  void SetMinutes(std::uint64_t minutes) { m_minutes = minutes; }
  std::uint64_t GetSeconds() const { return m_seconds; }
  void SetSeconds(std::uint64_t seconds) { m_seconds = seconds; }
  /// This and the next two make up the fraction of a second, 0 to 999 each.
  std::uint16_t GetMilliSeconds() const { return m_milliSeconds; }
  void SetMilliSeconds(std::uint16_t millis) { m_milliSeconds = millis; }
  std::uint16_t GetMicroSeconds() const { return m_microSeconds; }
  void SetMicroSeconds(std::uint16_t micros) { m_microSeconds = micros; }
  std::uint16_t GetNanoSeconds() const { return m_nanoSeconds; }
  void SetNanoSeconds(std::uint16_t nanos) { m_nanoSeconds = nanos; }

  bool IsNegative() const { return m_isNegative; }
  void Negate() { m_isNegative = !m_isNegative; }
  /// A negative span of the same length; of a negative one, the same.
  CDateTimeSpan GetAsNegative() const;

  /// Such as u"-P1Y2M3DT4H5M6.7S", without the units that are 0: nothing at all is u"P".
  std::u16string ToString() const;

  /// Replaces the value with what a text such as u"P1DT4H" says. Years are taken in any place, a
  /// unit without a number counts 0 of it, numbers wrap at 32 bits (years at 16), and of the digits
  /// 7 to 9 of a fraction the last is the number of nanoseconds. A null unit ends the text.
  /// @throws CKestInvalidValueException on any other text.
  void ParseXSDDuration(char16_t const* text);
  void ParseXSDDuration(std::u16string_view text);

  /// Adds both spans to four dates, as XML Schema has it (Part 2, 3.2.6.2), and compares the dates:
  /// indeterminate where these differ, such as for P1M and P30D. They are dates without a time, so
  /// what is left below a day does not count: PT1H equals PT2H, and PT24H equals P1D.
  CDateTime::DTCompareResult CompareTo(CDateTimeSpan const& other) const;
  bool operator==(CDateTimeSpan const& other) const;
  bool operator!=(CDateTimeSpan const& other) const;
  bool operator<(CDateTimeSpan const& other) const;
  bool operator>(CDateTimeSpan const& other) const;

 private:
  void Clear() { *this = CDateTimeSpan(); }

  std::uint16_t m_years = 0;
  std::uint32_t m_months = 0;
  std::uint32_t m_days = 0;
  std::uint32_t m_hours = 0;
  std::uint64_t m_minutes = 0;
  std::uint64_t m_seconds = 0;
  std::uint16_t m_milliSeconds = 0;
  std::uint16_t m_microSeconds = 0;
  std::uint16_t m_nanoSeconds = 0;
  bool m_isNegative = false;
};

}  // namespace KestXmlLib20
