// Dates and times, whole or in part.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/platform/system_time.h"

namespace KestXmlLib20 {

class CDateTimeSpan;

namespace internal {
class DigitText;
}

/// A value of one of the eight date and time types of XML Schema, to the nanosecond. Its type says
/// which fields it has; those that it has not are 0.
///
/// The calendar is the Gregorian one, carried on backwards with a year 0 for arithmetic, although a
/// value of that year is refused wherever values are tested. Years have four digits. Seconds end at
/// 59, hours at 23.
///
/// Getters and setters of single fields throw CKestInvalidStateException for a type that lacks the
/// field. The setters store without a test, so they can leave a value that its own text would not
/// be read from; arithmetic can do so too.
class KESTXML_API CDateTime {
 public:
  /// The numbers are part of the interface.
  enum DTType : std::int32_t {
    dt_none = 0,        ///< no value
    dt_dateTime = 1,    ///< CCYY-MM-DDThh:mm:ss[.ff]
    dt_date = 2,        ///< CCYY-MM-DD
    dt_gYearMonth = 3,  ///< CCYY-MM
    dt_gYear = 4,       ///< CCYY
    dt_time = 5,        ///< hh:mm:ss[.ff]
    dt_gDay = 6,        ///< ---DD
    dt_gMonth = 7,      ///< --MM
    dt_gMonthDay = 8,   ///< --MM-DD
  };

  /// How one value stands to another in the order relation of XML Schema, which is partial.
  enum DTCompareResult : std::int32_t {
    DTCompareResult_Equal = 0,
    DTCompareResult_LessThan = 1,
    DTCompareResult_GreaterThan = 2,
    DTCompareResult_Indeterminate = 3,
  };

  CDateTime() = default;
  /// All fields are 0.
  explicit CDateTime(DTType type) : m_type(type) {}
  /// As ParseXSDDateTime: text of a part of a dateTime is refused.
  explicit CDateTime(char16_t const* text);

  // A constructor from values makes a dt_dateTime (from a year, a month and a day a dt_date). It
  // never throws: values that are none give dt_none.
  /// @param time in seconds since 1970-01-01T00:00:00 UTC.
  explicit CDateTime(std::int64_t time);
  explicit CDateTime(_SYSTEMTIME const& time);
  explicit CDateTime(_FILETIME const& time);
  CDateTime(std::int16_t year, unsigned char month, unsigned char day);
  CDateTime(std::int16_t year, unsigned char month, unsigned char day, unsigned char hour,
            unsigned char minute, unsigned char second, std::uint16_t milli = 0,
            std::uint16_t micro = 0, std::uint16_t nano = 0);

  CDateTime(CDateTime const&) = default;
  CDateTime& operator=(CDateTime const&) = default;
  /// As SetDateTime with the fields in UTC. @throws CKestInvalidValueException also where the year
  /// has more than four digits.
  CDateTime& operator=(std::int64_t time);
  CDateTime& operator=(_SYSTEMTIME const& time);
  CDateTime& operator=(_FILETIME const& time);
  virtual ~CDateTime() = default;

  /// The present local time, without a zone.
  static CDateTime GetTickCount();

  DTType GetType() const { return m_type; }
  /// Such as u"gYear"; that of dt_none is u"yearZero", for the sake of messages.
  std::u16string GetTypeAsString() const;

  std::int16_t GetYear() const;  ///< negative before Christ
  void SetYear(std::int16_t year);
  unsigned char GetMonth() const;
  void SetMonth(unsigned char month);
  unsigned char GetDay() const;
  void SetDay(unsigned char day);
  unsigned char GetHour() const;
  void SetHour(unsigned char hour);
  unsigned char GetMinute() const;
  void SetMinute(unsigned char minute);
  unsigned char GetSecond() const;
  void SetSecond(unsigned char second);
  std::uint16_t GetMilliSecond() const;  ///< this and the next two: 0 to 999, added up
  void SetMilliSecond(std::uint16_t milli);
  std::uint16_t GetMicroSecond() const;
  void SetMicroSecond(std::uint16_t micro);
  std::uint16_t GetNanoSecond() const;
  void SetNanoSecond(std::uint16_t nano);
  /// The seconds with their fraction.
  double GetRealSecond() const;

  /// 1 for Sunday to 7, of the moment that GetTime gives in the time zone of the process: west of
  /// Greenwich a date has the day before its own.
  unsigned char GetDayOfWeek() const;
  /// The day counted from 1 January, but a leap year has its extra day in January and February, and
  /// not from March on: 2000-01-01 is day 2, 2000-03-01 day 60.
  std::uint16_t GetDayOfYear() const;

  /// True when the value has a zone of any kind, "Z" or an offset.
  bool IsUTC() const { return m_isUtc; }
  /// True when the zone is an offset.
  bool HasTimeZone() const { return m_hasTimeZone; }
  /// The offset. @throws CKestInvalidStateException when there is none.
  std::int16_t GetZoneHour() const;
  unsigned char GetZoneMinute() const;
  /// @param hour from -23 to 23; its sign is that of the minutes too.
  /// @throws CKestInvalidValueException out of range.
  void SetTimeZone(std::int16_t hour, unsigned char minute);
  /// Marks the value as one with a zone and sets the minutes of the zone to 0; an offset stays one,
  /// with its hours.
  void SetUTC();

  // The setters of whole values give a value without a type theirs, and take the zone away. Fields
  // that the type lacks stay, and are then refused unless they are 0. A value of another type
  // throws CKestInvalidStateException; fields out of range CKestInvalidValueException, stored all
  // the same.
  void SetDateTime(std::int16_t year, unsigned char month, unsigned char day, unsigned char hour,
                   unsigned char minute, unsigned char second, std::uint16_t milli = 0,
                   std::uint16_t micro = 0, std::uint16_t nano = 0);
  void SetDate(std::int16_t year, unsigned char month, unsigned char day);
  void SetTime(unsigned char hour, unsigned char minute, unsigned char second,
               std::uint16_t milli = 0, std::uint16_t micro = 0, std::uint16_t nano = 0);
  /// Sets the fraction of a dt_time and leaves the rest of the time.
  void SetFracTime(std::uint16_t milli, std::uint16_t micro, std::uint16_t nano);
  void SetGYear(std::int16_t year);
  void SetGYearMonth(std::int16_t year, unsigned char month);
  void SetGMonth(unsigned char month);
  void SetGMonthDay(unsigned char month, unsigned char day);
  void SetGDay(unsigned char day);

  /// Takes over all fields of @p other, with type @p type; fields that the type lacks come along.
  /// @throws CKestInvalidValueException where @p other lacks a field of @p type. The types that a
  ///   dt_gYearMonth and a dt_gMonthDay hold can be had, and all from a dt_dateTime.
  void SetDateTime(CDateTime const& other, DTType type);

  /// Seconds since 1970-01-01T00:00:00 UTC of a dt_dateTime or of the midnight of a dt_date; a
  /// value without a zone counts as UTC. @throws CKestInvalidValueException for other types.
  std::int64_t GetTime() const;
  /// The fields of a dt_dateTime, whatever its zone, with the day of GetDayOfWeek.
  /// @throws CKestInvalidValueException for other types.
  _SYSTEMTIME GetAsSystemTime() const;

  // The parsers replace the value; text that is refused leaves what was read of it, but a dateTime
  // without a 'T' leaves the old value. A null unit ends a text. A zone with hour 24 counts as one
  // with hour 0, the sign of a zone with hour 0 is lost, and text behind a time that does not begin
  // as a zone does is passed over.
  // @throws CKestInvalidValueException where the text or a field is out of place.
  void ParseXSDDateTime(char16_t const* text);
  void ParseXSDDateTime(std::u16string_view text);
  /// Reads any form without a time; the form gives the type. `--MM--` is an old form of `--MM`.
  void ParseXSDDate(char16_t const* text);
  void ParseXSDDate(std::u16string_view text);
  void ParseXSDTime(char16_t const* text);
  void ParseXSDTime(std::u16string_view text);

  /// The form of the type, with the fraction and the zone that there are, for the format u"s"; an
  /// empty text for u"G" and null. Without a type, or with nothing but zeros in another than
  /// dt_time, it is "Error: Date Not Set" for any format.
  std::u16string ToString(char16_t const* format = u"s") const;

  /// A value with an offset as one with the offset +00:00; others as they are.
  CDateTime GetNormalized() const;

  /// Where one value has a zone and the other not, they are ordered only if the zones +14:00 and
  /// -14:00 give the same. Of a dt_time the day is lost in that: 12:00:00Z is less than 12:00:00.
  DTCompareResult CompareTo(CDateTime const& other) const;
  // Where CompareTo is indeterminate, != alone is true.
  bool operator==(CDateTime const& other) const;
  bool operator!=(CDateTime const& other) const;
  bool operator<(CDateTime const& other) const;
  bool operator<=(CDateTime const& other) const;
  bool operator>(CDateTime const& other) const;
  bool operator>=(CDateTime const& other) const;

  /// Adds years and months, then days and time, as XML Schema does (Part 2, appendix E), but a day
  /// beyond the end of the new month stays: 2000-03-31 and P1M make 2000-04-31. The result is not
  /// tested; years wrap at 16 bits. A long span takes no more time than a short one.
  CDateTime operator+(CDateTimeSpan const& span) const;
  CDateTime& operator+=(CDateTimeSpan const& span);
  /// Goes back by the span, whatever its sign.
  CDateTime operator-(CDateTimeSpan const& span) const;
  CDateTime& operator-=(CDateTimeSpan const& span);
  /// Always a span of nothing: how long months are would be lost.
  CDateTimeSpan operator-(CDateTime const& other) const;

  /// Back to dt_none, with all fields 0.
  void Clear();

 private:
  void Require(unsigned field, char16_t const* message) const;
  void RequireZone() const;
  void Become(DTType type);
  void Validate() const;
  void SetXSDDate(std::u16string_view text);
  void SetXSDTime(std::u16string_view text);
  bool SetClock(std::u16string_view text);
  void SetZone(std::u16string_view text);
  void AddDateTimeSpan(CDateTimeSpan const& span);
  void AddDays(std::int64_t count);
  DTCompareResult CompareFields(CDateTime const& other) const;
  double RealSecond() const;
  bool IsSet() const;
  void PutField(internal::DigitText& out, char16_t letter) const;
  void PutZone(internal::DigitText& out) const;

  DTType m_type = dt_none;
  std::int16_t m_year = 0;
  std::uint8_t m_month = 0, m_day = 0, m_hour = 0, m_minute = 0, m_second = 0;
  std::uint16_t m_milliSecond = 0, m_microSecond = 0, m_nanoSecond = 0;
  bool m_isUtc = false;        // there is a zone
  bool m_hasTimeZone = false;  // and it is an offset
  std::int16_t m_zoneHour = 0;
  std::uint8_t m_zoneMinute = 0;
};

}  // namespace KestXmlLib20
