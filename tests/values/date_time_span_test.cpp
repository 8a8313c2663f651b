// CDateTimeSpan: its forms, its fields and its order.

#include "kestxml/values/date_time_span.h"

#include <gtest/gtest.h>

#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

CDateTimeSpan Span(char16_t const* text) {
  CDateTimeSpan span(1, 2, 3);  // all of which must go
  span.ParseXSDDuration(text);
  return span;
}

struct TextCase {
  char const* name;
  char16_t const* text;
  char16_t const* printed = nullptr;  // null: as it was read
};

// clang-format off
constexpr TextCase kTexts[] = {
    {"AllUnits",             u"P1Y2M3DT4H5M6.7S"},
    {"Negative",             u"-P1D"},
    {"MonthIsNoMinute",      u"P1M"},
    {"MinuteIsNoMonth",      u"PT1M"},
    {"NothingCarries",       u"P400DT90M"},
    {"YearsAndTime",         u"P1YT1S"},
    {"OnlyAFraction",        u"PT0.000001S"},
    {"NoDigitsBeforePoint",  u"PT.5S", u"PT0.5S"},
    {"NoDigitsBehindPoint",  u"PT1.S", u"PT1S"},
    {"NoDigitsAtAll",        u"PY", u"P"},
    {"NothingPrintsShort",   u"PT0S", u"P"},
    {"NegativeNothing",      u"-P0Y", u"-P"},
    {"LeadingZeros",         u"P007D", u"P7D"},
    {"YearsAnywhere",        u"P1DT2H3Y", u"P3Y1DT2H"},
    {"AfterYearsAnew",       u"P1DT2H3Y4M5D", u"P3Y4M5DT2H"},
    {"NumberBeforeT",        u"P5T1H", u"PT1H"},
    {"DaysWrapAt32Bits",     u"P4294967297D", u"P1D"},
    {"MinutesWrapAt32Bits",  u"PT4294967298M", u"PT2M"},
    {"YearsWrapAt16Bits",    u"P65537Y", u"P1Y"},
    {"NanoDigitsReplace",    u"PT1.123456789S", u"PT1.123456009S"},
    {"OneNanoDigit",         u"PT1.0000001S", u"PT1.000000001S"},
    {"NanoDigitReplaced",    u"PT1.00000010S", u"PT1S"},
    {"NullIsTheEnd",         u"P1D\0x", u"P1D"},
};

constexpr char16_t const* kShapeless[] = {
    u"P",   u"PT",    u"-",     u"1Y",     u"P1",    u"P1MT",   u"P1S",       u"PT1D",
    u"+P1D", u" P1D", u"P1D ",  u"P-1D",   u"P1D2M", u"P1D1D",  u"PT1M1H",    u"PT1S1S",
    u"P1YM1", u"P1.5D", u"PT1.5M", u"PT1T1H", u"p1d",  u"PT1.5",  u"P1DT1H3YT2S",
};

constexpr char16_t const* kFractions[] = {u"PT1.0000000000S", u"PT1.12345678901"};
// clang-format on

class SpanText : public testing::TestWithParam<TextCase> {};

TEST_P(SpanText, IsPrintedAsItWasRead) {
  TextCase const& row = GetParam();
  EXPECT_EQ(Span(row.text).ToString(), row.printed ? row.printed : row.text);
}

INSTANTIATE_TEST_SUITE_P(Forms, SpanText, testing::ValuesIn(kTexts), RowName());

TEST(DateTimeSpan, RefusesOtherText) {
  auto const thrown = [](char16_t const* text) {
    return Thrown<CKestInvalidValueException>([&] { Span(text); });
  };
  EXPECT_EQ(thrown(nullptr), u"Invalid XSD Duration (Empty String)");
  EXPECT_EQ(thrown(u""), u"Invalid XSD Duration (Empty String)");
  for (std::u16string const text : kShapeless) {
    EXPECT_EQ(thrown(text.c_str()),
              u"Invalid XSD Duration [" + text + u"] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
  }
  for (std::u16string const text : kFractions) {
    EXPECT_EQ(thrown(text.c_str()), u"Invalid XSD Duration [" + text + u"] Fraction part too long");
  }
}

TEST(DateTimeSpan, HoldsAndPrintsTheWholeRangeOfItsFields) {
  CDateTimeSpan span;
  span.SetYears(UINT16_MAX);
  span.SetMonths(UINT32_MAX);
  span.SetDays(UINT32_MAX);
  span.SetHours(UINT32_MAX);
  span.SetMinutes(UINT64_MAX);
  span.SetSeconds(UINT64_MAX);
  span.SetMilliSeconds(UINT16_MAX);
  span.SetMicroSeconds(UINT16_MAX);
  span.SetNanoSeconds(UINT16_MAX);
  span.Negate();
  EXPECT_EQ(span.ToString(),
            u"-P65535Y4294967295M4294967295DT4294967295H18446744073709551615M"
            u"18446744073709551615.655356553565535S");
  EXPECT_EQ(span.CompareTo(span), CDateTime::DTCompareResult_Equal);
  CDateTimeSpan const same(span.GetYears(), span.GetMonths(), span.GetDays(), span.GetHours(),
                           span.GetMinutes(), span.GetSeconds(), span.GetMilliSeconds(),
                           span.GetMicroSeconds(), span.GetNanoSeconds());
  EXPECT_EQ(same.GetAsNegative().ToString(), span.ToString());
  span.Negate();
  EXPECT_EQ(span.ToString(), same.ToString());
}

TEST(DateTimeSpan, TimeAloneLeavesTheDays) {
  CDateTimeSpan span(1, 2, 3, 4, 5, 6, 7, 8, 9);
  span.Negate();
  EXPECT_TRUE(span.GetAsNegative().IsNegative());  // and not back again
  span.SetDateTimeSpan(10, 11, 12);
  EXPECT_EQ(span.ToString(), u"P3DT10H11M12S");
  span.SetDateTimeSpan(1, 2, 0, 4, 5, 6);
  EXPECT_EQ(span.ToString(), u"P1Y2MT4H5M6S");
}

struct OrderCase {
  char16_t const* left;
  char16_t const* right;
  int result;  // of DTCompareResult
};

constexpr int kEqual = 0, kLess = 1, kOpen = 3;

constexpr OrderCase kOrder[] = {
    // clang-format off
    {u"P1D",    u"PT24H",    kEqual}, {u"P1Y",    u"P12M",      kEqual}, {u"-P1D",  u"P0D",   kLess},
    {u"P27D",   u"P1M",      kLess}, {u"P1M",    u"P28D",      kOpen},  {u"P1M",   u"P30D",  kOpen},
    {u"P1M",    u"P31D",     kOpen},  {u"P1M",    u"P32D",      kLess},  {u"P1Y",   u"P365D", kOpen},
    {u"P5M",    u"P154D",    kLess},  {u"P400Y",  u"P146097D",  kEqual}, {u"P1D",   u"PT36H", kEqual},
    // Dates have no time of day, so spans below a day are all alike; but going back from midnight
    // gets to the day before.
    {u"PT1H",   u"PT2H",     kEqual}, {u"PT23H",  u"PT0S",      kEqual}, {u"-PT1S", u"PT0S",  kLess},
    {u"P40000Y", u"P0D", kOpen},  // years that wrap lie before Christ
    // clang-format on
};

TEST(DateTimeSpan, ComparesByTheDatesThatItLeadsTo) {
  for (OrderCase const& row : kOrder) {
    SCOPED_TRACE(ToUtf8(row.left) + " and " + ToUtf8(row.right));
    CDateTimeSpan const left = Span(row.left);
    CDateTimeSpan const right = Span(row.right);
    EXPECT_EQ(left.CompareTo(right), row.result);
    EXPECT_EQ(left == right, row.result == kEqual);
    EXPECT_EQ(left != right, row.result != kEqual);
    EXPECT_EQ(left < right, row.result == kLess);
    EXPECT_EQ(right > left, row.result == kLess);
  }
}

}  // namespace
}  // namespace KestXmlLib20
