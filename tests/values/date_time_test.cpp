// CDateTime: its forms, its fields, its conversions and its clock. Order and arithmetic have a file
// of their own, date_time_order_test.cpp.

#include "kestxml/values/date_time.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>

#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using Parser = void (CDateTime::*)(char16_t const*);
constexpr Parser kDateTime = &CDateTime::ParseXSDDateTime;
constexpr Parser kDate = &CDateTime::ParseXSDDate;
constexpr Parser kTime = &CDateTime::ParseXSDTime;

CDateTime Read(Parser parser, char16_t const* text) {
  CDateTime value;
  (value.*parser)(text);
  return value;
}

struct TextCase {
  char const* name;
  Parser parser;
  char16_t const* text;
  char16_t const* type;
  char16_t const* printed = nullptr;  // null: as it was read
};

// clang-format off
constexpr TextCase kTexts[] = {
    {"DateTimeAllOfIt",    kDateTime, u"-0044-03-15T23:59:59.123456789-05:30", u"dateTime"},
    {"DateTimeAfterZone",  kDateTime, u"2004-07-09ZT10:11:12", u"dateTime", u"2004-07-09T10:11:12Z"},
    {"SecondTIsNoZone",    kDateTime, u"2004-07-09T10:11:12T", u"dateTime", u"2004-07-09T10:11:12"},
    {"LeapDay",            kDate, u"2000-02-29", u"date"},
    {"BeforeChrist",       kDate, u"-0001-01-01", u"date"},
    {"YearMonth",          kDate, u"2001-07Z", u"gYearMonth"},
    {"Year",               kDate, u"2001", u"gYear"},
    {"Month",              kDate, u"--07", u"gMonth"},
    {"MonthOldForm",       kDate, u"--07--", u"gMonth", u"--07"},
    {"MonthAnyEnd",        kDate, u"--07xyZ", u"gMonth", u"--07Z"},
    {"MonthDay",           kDate, u"--02-29+01:00", u"gMonthDay"},
    {"Day",                kDate, u"---31", u"gDay"},
    {"DayBeyondAnyMonth",  kDate, u"---45", u"gDay"},
    {"NoZoneByItsFirst",   kDate, u"2001x05:00", u"gYear", u"2001"},
    {"NullEndsDate",       kDate, u"2001\0x", u"gYear", u"2001"},
    {"TimeUtc",            kTime, u"12:00:00Z", u"time"},
    {"TimeZone",           kTime, u"12:00:00+05:30", u"time"},
    {"ZuluAndMore",        kTime, u"12:00:00Zulu", u"time", u"12:00:00Z"},
    {"TimeAndMore",        kTime, u"12:00:00abc", u"time", u"12:00:00"},
    {"ZoneHour24",         kTime, u"12:00:00-24:30", u"time", u"12:00:00+00:30"},
    {"ZoneSignNeedsHour",  kTime, u"12:00:00-00:30", u"time", u"12:00:00+00:30"},
    {"Point",              kTime, u"12:00:00.", u"time", u"12:00:00"},
    {"Nanoseconds",        kTime, u"23:59:59.123456789", u"time"},
    {"FractionOfNano",     kTime, u"00:00:00.00000001", u"time"},
    {"FractionOfMilli",    kTime, u"00:00:00.5000000", u"time", u"00:00:00.5"},
};

constexpr TextCase kRefused[] = {
    {"DateTimeEmpty",      kDateTime, u"", u"Invalid XSD DateTime []."},
    {"DateTimeWithoutT",   kDateTime, u"2004-07-09", u"Invalid XSD DateTime [2004-07-09]."},
    {"DateTimeWithoutDate", kDateTime, u"T10:11:12", u"Invalid Date (Empty String)"},
    {"DateTimeWithoutTime", kDateTime, u"2004-07-09T", u"Invalid XSD Time (Empty String)"},
    {"DateTimeOfMonth",    kDateTime, u"2004-07T10:11:12", u"Invalid XSD DateTime [2004-07T10:11:12] expected CCYY-MM-DDThh:mm:ss[.ff]"},
    {"DateTimeMidnight24", kDateTime, u"2004-07-09T24:00:00", u"Invalid XSD Time [24:00:00] expected hh:mm:ss[.ff]"},
    {"DateEmpty",          kDate, u"", u"Invalid Date (Empty String)"},
    {"DateWithT",          kDate, u"2004-07-09T10:11:12", u"Invalid Date ('T' not allowed)"},
    {"DateTwoZones",       kDate, u"2004-07-09+01:00Z", u"Invalid Date (Bad Zone value)"},
    {"DateShorterThanZone", kDate, u"01:00", u"Invalid XSD Date [01:00] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    {"DateOnlyZone",       kDate, u"Z", u"Invalid XSD Date [Z] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    {"DateDayOneDigit",    kDate, u"---1", u"Invalid XSD Date [---1] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    {"DateOtherDigits",    kDate, u"200\u0664", u"Invalid XSD Date [200\u0664] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    {"DateFiveDigits",     kDate, u"12345-01-01", u"Invalid XSD Date [12345-01-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    {"YearZero",           kDate, u"0000-01-01", u"Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
    {"MonthBeforeYear",    kDate, u"0000-13", u"Invalid Month [13] (1 <= month <= 12)"},
    {"DayOfNoLeapCentury", kDate, u"1900-02-29", u"Invalid Day [29] (1 <= day <= days in month)"},
    {"DayOfMonth",         kDate, u"--04-31", u"Invalid Day [31] (1 <= day <= days in month"},
    {"DayZero",            kDate, u"---00", u"Invalid Day [0] (1 <= day <= 31)"},
    {"ZoneHour25",         kDate, u"2004-07-09-25:01", u"Invalid TimeZone [-25:1]"},
    {"TimeEmpty",          kTime, u"", u"Invalid XSD Time (Empty String)"},
    {"TimeLeapSecond",     kTime, u"23:59:60", u"Invalid XSD Time [23:59:60] expected hh:mm:ss[.ff]"},
    {"TimeTenthDigit",     kTime, u"10:11:12.1234567890", u"Invalid XSD Time [10:11:12.1234567890] Fraction part too long"},
    {"TimeZoneShort",      kTime, u"10:11:12+5:00", u"Invalid XSD Time Zone [+5:00]."},
    {"TimeZoneNoDigit",    kTime, u"10:11:12-0a:00", u"Invalid XSD Time Zone [-0a:00]."},
    {"DateTimeNull",       kDateTime, nullptr, u"Invalid DateTime (Null String)"},
    {"DateNull",           kDate, nullptr, u"Invalid Date (Null String)"},
    {"TimeNull",           kTime, nullptr, u"Invalid Time (Null String)"},
};
// clang-format on

class DateText : public testing::TestWithParam<TextCase> {};
class NoDateText : public testing::TestWithParam<TextCase> {};

TEST_P(DateText, IsPrintedAsItWasRead) {
  TextCase const& row = GetParam();
  CDateTime const value = Read(row.parser, row.text);
  EXPECT_EQ(value.ToString(), row.printed ? row.printed : row.text);
  EXPECT_EQ(value.GetTypeAsString(), row.type);
}

TEST_P(NoDateText, IsRefused) {
  TextCase const& row = GetParam();
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { Read(row.parser, row.text); }), row.type);
}

INSTANTIATE_TEST_SUITE_P(Forms, DateText, testing::ValuesIn(kTexts), RowName());
INSTANTIATE_TEST_SUITE_P(Forms, NoDateText, testing::ValuesIn(kRefused), RowName());

TEST(DateTime, IsGivenUpForTextOfNoShape) {
  struct {
    Parser parser;
    char16_t const* text;
    char16_t const* left;
  } const rows[] = {
      {kDate, nullptr, u"Error: Date Not Set"}, {kDate, u"T", u"Error: Date Not Set"},
      {kDate, u"x", u"Error: Date Not Set"},    {kTime, nullptr, u"Error: Date Not Set"},
      {kTime, u"x", u"Error: Date Not Set"},    {kDateTime, u"xTx", u"Error: Date Not Set"},
      {kDateTime, nullptr, u"2004-07-09"},      {kDateTime, u"x", u"2004-07-09"},
  };
  for (auto const& row : rows) {
    CDateTime value(2004, 7, 9);
    EXPECT_THROW((value.*row.parser)(row.text), CKestInvalidValueException);
    EXPECT_EQ(value.ToString(), row.left);
  }
}

TEST(DateTime, PrintsNothingButItsForm) {
  CDateTime const value(2004, 7, 9);
  EXPECT_EQ(value.ToString(nullptr), u"");
  EXPECT_EQ(value.ToString(u"G"), u"");
  EXPECT_EQ(value.ToString(u"x"), u"Unknown Format: x");
  // What is not set is told before the format is looked at.
  EXPECT_EQ(CDateTime().ToString(nullptr), u"Error: Date Not Set");
  EXPECT_EQ(CDateTime(CDateTime::dt_gDay).ToString(u"x"), u"Error: Date Not Set");
  EXPECT_EQ(CDateTime(CDateTime::dt_time).ToString(), u"00:00:00");
}

// The fields that each type has, and the exception for those that it has not.
TEST(DateTime, HasTheFieldsOfItsType) {
  struct {
    char16_t const* name;
    char const* types;  // from dt_none on, one letter each
    void (*use)(CDateTime& value);
  } const fields[] = {
      // clang-format off
      {u"GetYear",        "-YYYY----", [](CDateTime& v) { v.SetYear(2); EXPECT_EQ(v.GetYear(), 2); }},
      {u"GetMonth",       "-YYY---YY", [](CDateTime& v) { v.SetMonth(3); EXPECT_EQ(v.GetMonth(), 3); }},
      {u"GetDay",         "-YY---Y-Y", [](CDateTime& v) { v.SetDay(4); EXPECT_EQ(v.GetDay(), 4); }},
      {u"GetHour",        "-Y---Y---", [](CDateTime& v) { v.SetHour(5); EXPECT_EQ(v.GetHour(), 5); }},
      {u"GetMinute",      "-Y---Y---", [](CDateTime& v) { v.SetMinute(6); EXPECT_EQ(v.GetMinute(), 6); }},
      {u"GetSecond",      "-Y---Y---", [](CDateTime& v) { v.SetSecond(7); EXPECT_EQ(v.GetSecond(), 7); }},
      {u"GetMilliSecond", "-Y---Y---", [](CDateTime& v) { v.SetMilliSecond(8); EXPECT_EQ(v.GetMilliSecond(), 8); }},
      {u"GetMicroSecond", "-Y---Y---", [](CDateTime& v) { v.SetMicroSecond(9); EXPECT_EQ(v.GetMicroSecond(), 9); }},
      {u"GetNanoSecond",  "-Y---Y---", [](CDateTime& v) { v.SetNanoSecond(1); EXPECT_EQ(v.GetNanoSecond(), 1); }},
      {u"GetRealSecond",  "-Y---Y---", [](CDateTime& v) { EXPECT_EQ(v.GetRealSecond(), 7 + 0.008 + 9e-6 + 1e-9); }},
      {u"GetDayOfWeek",   "-YY------", [](CDateTime& v) { EXPECT_LE(v.GetDayOfWeek(), 7); }},
      {u"GetDayOfYear",   "-YY------", [](CDateTime& v) { EXPECT_EQ(v.GetDayOfYear(), 63); }},
      // clang-format on
  };
  for (int type = 0; type <= 9; ++type) {
    CDateTime value(static_cast<CDateTime::DTType>(type));
    for (auto const& field : fields) {
      SCOPED_TRACE(ToUtf8(field.name) + " of " + ToUtf8(value.GetTypeAsString()));
      bool const has = field.types[type] == 'Y';
      std::u16string const message = std::u16string(u"Failed to ") + field.name +
                                     u". Invalid Date Type: " + value.GetTypeAsString() + u".";
      auto const use = [&] { field.use(value); };
      EXPECT_EQ(Thrown<CKestInvalidStateException>(use), has ? kNothingThrown : message);
    }
  }
}

TEST(DateTime, CountsTheLeapDayOfTheYearTooEarly) {
  struct {
    std::int16_t year;
    unsigned char month;
    int day;
  } const rows[] = {{1999, 1, 1}, {1999, 3, 60}, {2000, 1, 2}, {2000, 2, 33}, {2000, 3, 60}};
  for (auto const& row : rows) {
    EXPECT_EQ(CDateTime(row.year, row.month, 1).GetDayOfYear(), row.day) << row.year << row.month;
  }
  CDateTime value(2000, 1, 1);
  value.SetMonth(13);  // no month has days before it
  EXPECT_EQ(value.GetDayOfYear(), 1);
}

TEST(DateTime, SetsWholeValues) {
  using Value = CDateTime&;
  struct {
    void (*set)(Value value);
    char16_t const* result;  // the text or the message
  } const rows[] = {
      // clang-format off
      {[](Value v) { v.SetDateTime(-44, 3, 15, 1, 2, 3); },          u"-0044-03-15T01:02:03"},
      {[](Value v) { v.SetDateTime(1, 1, 1, 0, 0, 0, 0, 0, 1); },    u"0001-01-01T00:00:00.000000001"},
      {[](Value v) { v.SetTime(1, 2, 3, 999, 0, 999); },             u"01:02:03.999000999"},
      {[](Value v) { v.SetTime(1, 2, 3); v.SetFracTime(5, 0, 0); },  u"01:02:03.005"},
      {[](Value v) { v.SetGYearMonth(2001, 2); },                    u"2001-02"},
      {[](Value v) { v.SetGMonth(2); },                              u"--02"},
      {[](Value v) { v.SetGMonthDay(2, 29); },                       u"--02-29"},
      {[](Value v) { v.SetGDay(200); },                              u"---200"},
      {[](Value v) { v.SetDate(10000, 1, 1); },                      u"Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)"},
      {[](Value v) { v.SetDate(2001, 4, 31); },                      u"Invalid Day [31] (1 <= day <= days in month)"},
      {[](Value v) { v.SetTime(24, 60, 60); },                       u"Invalid Hour [24] (0 <= hour <= 23)"},
      {[](Value v) { v.SetTime(23, 59, 60); },                       u"Invalid Second [60] (0 <= second <= 59)"},
      {[](Value v) { v.SetTime(1, 1, 1, 1000); },                    u"Invalid Milli-Second [1000] (0 <= milli <= 999)"},
      {[](Value v) { v.SetFracTime(1, 1, 1000); },                   u"Invalid Nano-Second [1000] (0 <= nano <= 999)"},
      {[](Value v) { v.SetTimeZone(24, 0); },                        u"Invalid TimeZone [24:0]"},
      // clang-format on
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(ToUtf8(row.result));
    CDateTime value;
    auto const thrown = Thrown<CKestInvalidValueException>([&] { row.set(value); });
    EXPECT_EQ(thrown == kNothingThrown ? value.ToString() : thrown, row.result);
  }
}

// What a value has besides the fields of its new type is found when it is set again.
TEST(DateTime, RefusesFieldsThatItsTypeLacks) {
  struct {
    CDateTime::DTType type;
    CDateTime source;
    void (*set)(CDateTime& value);
    char16_t const* message;
  } const rows[] = {
      // clang-format off
      {CDateTime::dt_gDay,  {2001, 2, 3}, [](CDateTime& v) { v.SetGDay(3); },  u"Invalid Month [2] for type gDay"},
      {CDateTime::dt_gMonth, {2001, 2, 3}, [](CDateTime& v) { v.SetGMonth(2); },  u"Invalid Year [2001] for type gMonth"},
      {CDateTime::dt_gYearMonth, {2001, 2, 3}, [](CDateTime& v) { v.SetGYearMonth(2001, 2); },  u"Invalid Day [3] for type gYearMonth"},
      {CDateTime::dt_date,  {1, 2, 3, 4, 0, 0}, [](CDateTime& v) { v.SetDate(1, 2, 3); },  u"Invalid Hour [4] for type date"},
      {CDateTime::dt_date,  {1, 2, 3, 0, 5, 0}, [](CDateTime& v) { v.SetDate(1, 2, 3); },  u"Invalid Minute [5] for type date"},
      {CDateTime::dt_date,  {1, 2, 3, 0, 0, 6}, [](CDateTime& v) { v.SetDate(1, 2, 3); },  u"Invalid Second [6] for type date"},
      {CDateTime::dt_date,  {1, 2, 3, 0, 0, 0, 7}, [](CDateTime& v) { v.SetDate(1, 2, 3); },  u"Invalid Milli-Second [7] for type date"},
      {CDateTime::dt_date,  {1, 2, 3, 0, 0, 0, 0, 8}, [](CDateTime& v) { v.SetDate(1, 2, 3); },  u"Invalid Micro-Second [8] for type date"},
      {CDateTime::dt_date,  {1, 2, 3, 0, 0, 0, 0, 0, 9}, [](CDateTime& v) { v.SetDate(1, 2, 3); },  u"Invalid Nano-Second [9] for type date"},
      // clang-format on
  };
  for (auto const& row : rows) {
    CDateTime value;
    value.SetDateTime(row.source, row.type);
    EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { row.set(value); }), row.message);
  }
}

TEST(DateTime, KeepsItsTypeWhenSet) {
  CDateTime value(CDateTime::dt_date);
  EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { value.SetGDay(1); }),
            u"Failed to copy CDateTime. Invalid Date Type: date, expected: gDay.");
  EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { value = std::int64_t{0}; }),
            u"Failed to copy CDateTime. Invalid Date Type: date, expected: dateTime.");
  value.SetTimeZone(5, 30);
  value.SetDate(2001, 1, 1);
  EXPECT_FALSE(value.IsUTC());
  EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { value.GetZoneHour(); }),
            u"TimeZone is not been used");
  EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { value.GetZoneMinute(); }),
            u"TimeZone is not been used");
}

TEST(DateTime, UtcLeavesTheHourOfAZone) {
  CDateTime value = Read(kTime, u"12:00:00-05:30");
  EXPECT_EQ(value.GetZoneHour(), -5);
  EXPECT_EQ(value.GetZoneMinute(), 30);
  value.SetUTC();
  EXPECT_EQ(value.ToString(), u"12:00:00-05:00");
  value.SetTimeZone(0, 0);
  EXPECT_EQ(value.ToString(), u"12:00:00+00:00");
  CDateTime plain(CDateTime::dt_time);
  plain.SetUTC();
  EXPECT_EQ(plain.ToString(), u"00:00:00Z");
}

TEST(DateTime, ConvertsToTypesWhoseFieldsItHas) {
  char const* const targets[] = {
      // each row a source from dt_none on, each column a target
      "Y--------", "YYYYYYYYY", "Y-YYY-YYY", "Y--YY--Y-", "Y---Y----",
      "Y----Y---", "Y-----Y--", "Y------Y-", "Y-----YYY",
  };
  for (int from = 0; from < 9; ++from) {
    for (int to = 0; to < 9; ++to) {
      CDateTime const source(static_cast<CDateTime::DTType>(from));
      CDateTime const target(static_cast<CDateTime::DTType>(to));
      CDateTime value;
      auto const refused = u"Attempting to set a CDateTime of type " + target.GetTypeAsString() +
                           u" using an XmlDateTime of type " + source.GetTypeAsString() +
                           u". The source CDateTime does not contian enough data to allow the "
                           u"conversion.";
      EXPECT_EQ(
          Thrown<CKestInvalidValueException>([&] { value.SetDateTime(source, target.GetType()); }),
          targets[from][to] == 'Y' ? kNothingThrown : refused);
    }
  }
  CDateTime value;
  auto const unknown = static_cast<CDateTime::DTType>(9);
  EXPECT_EQ(Thrown<CKestInvalidValueException>(
                [&] { value.SetDateTime(CDateTime(unknown), CDateTime::dt_date); }),
            u"Unknown date type 9.");
  value.SetDateTime(CDateTime(u"2004-07-09T10:11:12Z"), CDateTime::dt_gMonth);
  EXPECT_EQ(value.ToString(), u"--07Z");
  value.SetDateTime(value, CDateTime::dt_none);
  EXPECT_EQ(value.ToString(), u"Error: Date Not Set");
}

TEST(DateTime, IsClearedWhereItsConstructorGetsNoDate) {
  EXPECT_EQ(CDateTime(2001, 2, 29).GetType(), CDateTime::dt_none);
  EXPECT_EQ(CDateTime(2001, 2, 28, 24, 0, 0).GetType(), CDateTime::dt_none);
  EXPECT_EQ(CDateTime(2001, 2, 28, 23, 0, 0).GetType(), CDateTime::dt_dateTime);
  EXPECT_EQ(CDateTime(_SYSTEMTIME{2001, 256 + 2, 0, 1, 0, 0, 0, 0}).GetType(), CDateTime::dt_none);
  EXPECT_EQ(CDateTime(_FILETIME{0, 0x80000000}).GetType(), CDateTime::dt_none);
  EXPECT_EQ(CDateTime(std::int64_t{400'000'000'000}).GetType(), CDateTime::dt_none);
  EXPECT_EQ(CDateTime(INT64_MIN).GetType(), CDateTime::dt_none);
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { CDateTime(u"2001-02-28"); }),
            u"Invalid XSD DateTime [2001-02-28].");
  CDateTime value;
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] {
              value = _FILETIME{0, 0x80000000};
            }),
            u"Failed to convert FILETIME to SYSTEMTIME");
}

// Sets the zone of the process, and puts it back.
class ZoneScope {
 public:
  explicit ZoneScope(char const* zone) {
    if (char const* const old = std::getenv("TZ")) m_old = old;
    Set(zone);
  }
  ZoneScope(ZoneScope const&) = delete;
  ZoneScope& operator=(ZoneScope const&) = delete;
  ~ZoneScope() { Set(m_old ? m_old->c_str() : nullptr); }

 private:
  static void Set(char const* zone) {
    zone ? setenv("TZ", zone, 1) : unsetenv("TZ");
    tzset();
  }

  std::optional<std::string> m_old;
};

// In seconds since 1970, of the clock that GetTickCount reads: that of std::time may be some
// milliseconds late, and so a second.
std::int64_t Now() {
  using Clock = std::chrono::system_clock;
  return Clock::to_time_t(Clock::now());
}

struct ZoneCase {
  char const* zone;      // written out, so that the machine need not know any
  std::int64_t offset;   // of the wall clock, in seconds
  int dayOfLeapDay2000;  // of the week: a Tuesday, but not where its midnight in UTC is not there
                         // yet
};

constexpr ZoneCase kZones[] = {
    {"UTC0", 0, 3},
    {"CET-1", 3600, 3},
    {"<+1345>-13:45", 49'500, 3},
    {"EST5EDT4,0,365", -14'400, 2},
    {"<-1130>11:30", -41'400, 2},
};

TEST(DateTimeClock, IsThatOfTheWallInTheZoneOfTheProcess) {
  for (ZoneCase const& row : kZones) {
    SCOPED_TRACE(row.zone);
    ZoneScope const scope(row.zone);
    EXPECT_EQ(CDateTime(2000, 2, 29).GetDayOfWeek(), row.dayOfLeapDay2000);
    EXPECT_EQ(CDateTime(u"2000-02-29T12:30:00").GetAsSystemTime().wDayOfWeek,
              row.offset == 49'500 ? 3 : 2);
    std::int64_t const before = Now() + row.offset;
    CDateTime const now = CDateTime::GetTickCount();
    EXPECT_GE(now.GetTime(), before);
    EXPECT_LE(now.GetTime(), Now() + row.offset);
    EXPECT_FALSE(now.IsUTC());
  }
}

TEST(DateTimeClock, CountsSecondsInUtcInAnyZone) {
  struct {
    CDateTime value;
    std::int64_t time;
  } const rows[] = {
      {CDateTime(u"2000-02-29T00:00:00"), 951'782'400},
      {CDateTime(u"2000-02-29T01:00:00.9+01:00"), 951'782'400},
      {CDateTime(u"1969-12-31T23:59:59Z"), -1},
      {CDateTime(u"-9999-01-01T00:00:00"), -377'705'116'800},
      {Read(kDate, u"2000-02-29"), 951'782'400},
      {Read(kDate, u"2000-02-29-11:30"), 951'782'400},  // 11:30 in UTC, but a date has no hours
      {Read(kDate, u"2000-03-01+00:30"), 951'782'400},
  };
  for (ZoneCase const& zone : kZones) {
    ZoneScope const scope(zone.zone);
    for (auto const& row : rows) {
      EXPECT_EQ(row.value.GetTime(), row.time) << ToUtf8(row.value.ToString());
    }
    EXPECT_EQ(CDateTime(std::int64_t{-1}).ToString(), u"1969-12-31T23:59:59");
  }
  CDateTime odd(2000, 2, 29);
  odd.SetMonth(0);
  odd.SetDay(91);  // of December 1999
  EXPECT_EQ(odd.GetTime(), 951'782'400);
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { CDateTime(CDateTime::dt_gYear).GetTime(); }),
            u"Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: gYear.");
}

TEST(DateTimeClock, ConvertsTheTimesOfSystems) {
  ZoneScope const scope("UTC0");
  _SYSTEMTIME const fields = {2000, 2, 2, 29, 23, 59, 58, 999};
  CDateTime const value(fields);
  EXPECT_EQ(value.ToString(), u"2000-02-29T23:59:58.999");
  _SYSTEMTIME const back = value.GetAsSystemTime();
  EXPECT_EQ(std::memcmp(&back, &fields, sizeof fields), 0);
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { CDateTime(2000, 2, 29).GetAsSystemTime(); }),
            u"Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: date.");

  struct {
    std::uint64_t steps;  // of 100 ns since 1601
    char16_t const* text;
  } const rows[] = {
      {0, u"1601-01-01T00:00:00"},
      {125'963'423'989'999'999, u"2000-02-29T23:59:58.999"},
      {2'650'467'743'999'999'999, u"9999-12-31T23:59:59.999"},
      {2'650'467'744'000'000'000, u"Error: Date Not Set"},
      {UINT64_MAX >> 1, u"Error: Date Not Set"},
  };
  for (auto const& row : rows) {
    CDateTime const time(_FILETIME{static_cast<std::uint32_t>(row.steps),
                                   static_cast<std::uint32_t>(row.steps >> 32)});
    EXPECT_EQ(time.ToString(), row.text);
  }
}

}  // namespace
}  // namespace KestXmlLib20
