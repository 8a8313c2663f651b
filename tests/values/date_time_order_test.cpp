// CDateTime: its order, and the addition of spans.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/unicode.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// The form says what it is.
CDateTime Date(std::u16string_view text) {
  CDateTime value;
  if (text.find(u'T') != text.npos) {
    value.ParseXSDDateTime(text);
  } else if (text.size() > 2 && text[2] == u':') {
    value.ParseXSDTime(text);
  } else {
    value.ParseXSDDate(text);
  }
  return value;
}

CDateTimeSpan Span(std::u16string_view text) {
  CDateTimeSpan span;
  span.ParseXSDDuration(text);
  return span;
}

struct OrderCase {
  char const* name;
  char16_t const* left;
  char16_t const* right;
  int result;  // of DTCompareResult
};

constexpr int kEqual = 0, kLess = 1, kOpen = 3;

// clang-format off
constexpr OrderCase kOrder[] = {
    {"Equal",               u"2000-02-29T12:00:00.123456789", u"2000-02-29T12:00:00.123456789", kEqual},
    {"Year",                u"1999-12-31", u"2000-01-01", kLess},
    {"Month",               u"--01-31", u"--02-01", kLess},
    {"Day",                 u"---01", u"---45", kLess},
    {"Nanosecond",          u"10:00:00.000000001", u"10:00:00.000000002", kLess},
    {"SameMoment",          u"2000-01-01T00:00:00Z", u"2000-01-01T05:30:00+05:30", kEqual},
    {"OtherZones",          u"1999-12-31T23:00:00-02:00", u"2000-01-01T02:00:00Z", kLess},
    {"OverTheLeapDay",      u"2000-03-01T00:30:00+01:00", u"2000-02-29T23:30:01Z", kLess},
    {"ZoneOfDates",         u"2000-01-01+01:00", u"2000-01-01Z", kLess},
    {"Within14Hours",       u"2000-01-01T12:00:00", u"2000-01-02T02:00:00Z", kOpen},
    {"Before14Hours",       u"2000-01-01T12:00:00", u"2000-01-02T02:00:01Z", kLess},
    {"After14Hours",        u"1999-12-31T21:59:59Z", u"2000-01-01T12:00:00", kLess},
    {"MinuteOfAnyZone",     u"--12-31-14:00", u"--12-31", kOpen},
    {"TimeWrapsItsDay",     u"12:00:00Z", u"12:00:00", kLess},
    {"TimeInsideTheDay",    u"16:00:00Z", u"05:00:00", kOpen},
    {"OtherTypes",          u"2000", u"2000-01", kOpen},
    {"DayBesideMonth",      u"---05", u"--05", kOpen},
    {"DateBesideMidnight",  u"2000-01-01", u"2000-01-01T00:00:00", kLess},
    {"DateBesideOneHour",   u"2000-01-01", u"2000-01-01T01:00:00", kOpen},
    {"AcrossTheYearZero",   u"-0001-01-01", u"0001-01-01", kOpen},
    {"BeforeChrist",        u"-0002-12-31", u"-0001-01-01", kLess},
};
// clang-format on

class DateOrder : public testing::TestWithParam<OrderCase> {};

TEST_P(DateOrder, HoldsBothWays) {
  OrderCase const& row = GetParam();
  CDateTime const left = Date(row.left);
  CDateTime const right = Date(row.right);
  bool const less = row.result == kLess;
  bool const equal = row.result == kEqual;
  EXPECT_EQ(left.CompareTo(right), row.result);
  EXPECT_EQ(right.CompareTo(left), less ? CDateTime::DTCompareResult_GreaterThan : row.result);
  EXPECT_EQ(left == right, equal);
  EXPECT_EQ(left != right, !equal);
  EXPECT_EQ(left < right, less);
  EXPECT_EQ(left <= right, less || equal);
  EXPECT_EQ(right > left, less);
  EXPECT_EQ(right >= left, less || equal);
  EXPECT_FALSE(left > right);
}

INSTANTIATE_TEST_SUITE_P(Pairs, DateOrder, testing::ValuesIn(kOrder), RowName());

TEST(DateTimeOrder, NormalizesOnlyOffsets) {
  struct {
    char16_t const* value;
    char16_t const* normalized;
  } const rows[] = {
      {u"2000-03-01T04:59:59.5+05:00", u"2000-02-29T23:59:59.5+00:00"},
      {u"1999-12-31T18:30:00-05:30", u"2000-01-01T00:00:00+00:00"},
      {u"00:15:00+00:30", u"23:45:00+00:00"},
      {u"2000-01-01+14:00", u"1999-12-31+00:00"},
      {u"2000-01+01:00", u"1999-12+00:00"},
      {u"2000-01-01T00:00:00Z", u"2000-01-01T00:00:00Z"},
      {u"2000-01-01T00:00:00", u"2000-01-01T00:00:00"},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(Date(row.value).GetNormalized().ToString(), row.normalized);
  }
}

struct SumCase {
  char const* name;
  char16_t const* value;
  char16_t const* span;
  char16_t const* sum;
};

// clang-format off
constexpr SumCase kSums[] = {
    {"Nothing",            u"2000-01-31T00:00:00Z", u"PT0S", u"2000-01-31T00:00:00Z"},
    {"AllUnits",           u"2000-01-12T12:13:14Z", u"P1Y3M5DT7H10M3.3S", u"2001-04-17T19:23:17.3Z"},
    {"MonthsCarry",        u"2000-01", u"-P3M", u"1999-10"},
    {"DayBeyondTheMonth",  u"2000-03-31", u"P1M", u"2000-04-31"},
    {"AndFromThereOn",     u"2000-01-31", u"P1M1D", u"2000-03-03"},
    {"AndBack",            u"2001-03-31", u"-P1M1D", u"2001-02-30"},
    {"AndFurtherBack",     u"2001-03-31", u"-P1M31D", u"2001-01-31"},
    {"LeapDay",            u"2000-02-28", u"P1D", u"2000-02-29"},
    {"HoursBackward",      u"2001-01-01", u"-PT1H", u"2000-12-31"},
    {"FractionCarries",    u"23:59:59.999999999", u"PT0.000000001S", u"00:00:00"},
    {"FractionBackward",   u"2000-01-01T00:00:00", u"-PT0.000000001S", u"1999-12-31T23:59:59.999999999"},
    {"YearZero",           u"-0001-12-31", u"P1D", u"0000-01-01"},
    {"YearsWrap",          u"9999-01-01", u"P60000Y", u"4463-01-01"},
    {"YearWithoutAMonth",  u"2000", u"P1Y", u"2000"},  // month 0 counts as December before
    {"MonthWithoutAYear",  u"--12", u"P1M", u"--01"},
    {"DaysOfAllYears",     u"2000-02-29", u"P23936531D", u"2000-02-28"},
    {"SecondsOfSums",      u"2000-01-01T00:00:00", u"PT16777259S", u"2000-07-13T04:21:255"},
    {"HoursOfSums",        u"2000-01-01T00:00:00", u"PT16777223H", u"3913-12-09T255:00:00"},
    {"MonthsOfSums",       u"2000-01-01", u"P16777223M", u"23846-00-01"},
};
// clang-format on

class DateSum : public testing::TestWithParam<SumCase> {};

TEST_P(DateSum, IsTestedNowhere) {
  SumCase const& row = GetParam();
  CDateTime const value = Date(row.value);
  CDateTimeSpan const span = Span(row.span);
  EXPECT_EQ((value + span).ToString(), row.sum);
  EXPECT_EQ((CDateTime(value) += span).GetType(), value.GetType());
  if (span.IsNegative()) {
    EXPECT_EQ((value - span).ToString(), row.sum);  // back, not forth
    EXPECT_EQ((CDateTime(value) -= span).ToString(), row.sum);
  }
}

INSTANTIATE_TEST_SUITE_P(Spans, DateSum, testing::ValuesIn(kSums), RowName());

TEST(DateTimeSum, OfTwoDatesIsNothing) {
  CDateTimeSpan const difference = CDateTime(2001, 1, 1) - CDateTime(2000, 1, 1);
  EXPECT_EQ(difference.ToString(), u"P");
}

int LengthOf(int month, int year) {
  bool const leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return month == 2                                              ? leap ? 29 : 28
         : month == 4 || month == 6 || month == 9 || month == 11 ? 30
                                                                 : 31;
}

std::u16string Text(int year, int month, int day) {
  auto const digit = [](int number) { return static_cast<char16_t>(u'0' + number % 10); };
  return {digit(year / 1000),
          digit(year / 100),
          digit(year / 10),
          digit(year),
          u'-',
          digit(month / 10),
          digit(month),
          u'-',
          digit(day / 10),
          digit(day)};
}

#if defined(KESTXML_INSTRUMENTED) || !defined(NDEBUG)
constexpr int kYearStep = 97;
#else
constexpr int kYearStep = 1;
#endif

TEST(DateTimeSum, GoesThroughEveryDayOfTheCalendar) {
  CDateTimeSpan const oneDay = Span(u"P1D");
  CDateTime const first(1, 1, 1);
  std::uint32_t count = 0;
  for (int year = 1; year <= 9999; ++year) {
    for (int month = 1; month <= 12; ++month) {
      int const length = LengthOf(month, year);
      if (year % kYearStep != 0) {
        count += static_cast<std::uint32_t>(length);
        continue;
      }
      for (int day = 1; day <= length; ++day, ++count) {
        std::u16string const text = Text(year, month, day);
        CDateTime date = Date(text);
        ASSERT_EQ(date.ToString(), text);
        CDateTimeSpan const fromFirst(0, 0, count, 0, 0, 0);
        ASSERT_EQ((first + fromFirst).ToString(), text);
        ASSERT_EQ((date - fromFirst).ToString(), u"0001-01-01");
        ASSERT_EQ(((date + oneDay) - oneDay).ToString(), text);
        ASSERT_EQ(date.GetTime(), (std::int64_t{count} - 719'162) * 86'400);
      }
      CDateTime pastTheEnd;
      ASSERT_ANY_THROW(pastTheEnd.ParseXSDDate(Text(year, month, length + 1)));
    }
  }
  EXPECT_EQ(count, 3'652'059U);
}

// The definition of adding days: month by month, with the year in 16 bits.
std::u16string AddSlowly(CDateTime date, std::int64_t count) {
  std::int16_t year = date.GetYear();
  int month = date.GetMonth();
  std::int64_t day = date.GetDay();
  while (count != 0) {
    int const length = LengthOf(month, year);
    if (count > 0 && day + count > length) {
      count -= length - day + 1;
      day = 1;
      if (++month == 13) month = 1, ++year;
    } else if (count < 0 && day <= -count) {
      count += day;
      if (--month == 0) month = 12, --year;
      day = LengthOf(month, year);
    } else {
      day += count;
      count = 0;
    }
  }
  date.SetYear(year);
  date.SetMonth(static_cast<unsigned char>(month));
  date.SetDay(static_cast<unsigned char>(day));
  return date.ToString();
}

TEST(DateTimeSum, IsThatOfMonthAfterMonth) {
  std::mt19937 random(20);
  auto const below = [&random](std::uint32_t limit) {
    return static_cast<std::uint32_t>(random() % limit);
  };
  struct {
    std::uint32_t limit;  // of the days, the last of more than all years have
    int rounds;
  } const ranges[] = {{40, 1000}, {800, 1000}, {200'000, 200}, {30'000'000, 10}};
  for (auto const& range : ranges) {
    for (int round = 0; round < range.rounds; ++round) {
      CDateTime date(2000, 1, 1);
      date.SetYear(static_cast<std::int16_t>(below(65'536) - 32'768));
      date.SetMonth(static_cast<unsigned char>(1 + below(12)));
      date.SetDay(static_cast<unsigned char>(below(40)));  // some are beyond the month
      CDateTimeSpan const span(0, 0, below(range.limit), 0, 0, 0);
      auto const count = std::int64_t{span.GetDays()};
      ASSERT_EQ((date + span).ToString(), AddSlowly(date, count)) << date.GetYear();
      ASSERT_EQ((date - span).ToString(), AddSlowly(date, -count)) << date.GetYear();
    }
  }
}

}  // namespace
}  // namespace KestXmlLib20
