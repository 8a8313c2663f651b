#include "kestxml/values/primitive_restrictions.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "kestxml/values/kest_variant.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

struct Facets {
  char16_t const* pattern = nullptr;
  std::int32_t minLength = -1, maxLength = -1;
  char16_t const* minInclusive = nullptr;
  char16_t const* maxInclusive = u"";
  char16_t const* minExclusive = u"";
  char16_t const* maxExclusive = u"";
  std::int32_t length = -1, totalDigits = -1, fractionDigits = -1;

  CPrimitiveRestrictions Make() const {
    return {pattern,      minLength,    maxLength, minInclusive, maxInclusive,
            minExclusive, maxExclusive, length,    totalDigits,  fractionDigits};
  }
};

constexpr char16_t const* kAllowed = u"(nothing was thrown)";

// Every row is checked twice: what the first check leaves behind must not be seen.
struct FacetCase {
  char const* name;
  ItemType type;
  char16_t const* value;
  Facets facets;
  char16_t const* message = kAllowed;
};

// clang-format off
constexpr FacetCase kCases[] = {
    {"NotBelowMinInclusive", ItemType_i4,  u"5",   {.minInclusive = u"5"}},
    {"BelowMinInclusive",    ItemType_i4,  u"4",   {.minInclusive = u"5"}, u"Invalid Value for n [4]"},
    {"NotAboveMaxInclusive", ItemType_i1,  u"10",  {.maxInclusive = u" 10\n"}},
    {"AboveMaxInclusive",    ItemType_i2,  u"11",  {.maxInclusive = u" 10\n"}, u"Invalid Value for n [11]"},
    {"AboveMinExclusive",    ItemType_ui1, u"6",   {.minExclusive = u"5"}},
    {"NotAboveMinExclusive", ItemType_ui2, u"5",   {.minExclusive = u"5"}, u"Invalid Value for n [5]"},
    {"BelowMaxExclusive",    ItemType_i8,  u"-6",  {.maxExclusive = u"-5"}},
    {"NotBelowMaxExclusive", ItemType_i8,  u"-5",  {.maxExclusive = u"-5"}, u"Invalid Value for n [-5]."},
    {"LargeUi4ShowsNegative", ItemType_ui4, u"4294967295", {.maxInclusive = u"9"}, u"Invalid Value for n [-1]"},
    {"LargeUi8ShowsWhole",   ItemType_ui8, u"18446744073709551615", {.maxInclusive = u"9"}, u"Invalid Value for n [18446744073709551615]."},
    {"R4ShowsSixDecimals",   ItemType_r4,  u"2.5", {.minExclusive = u"2.5"}, u"Invalid Value for n [2.500000]"},
    {"R8InfiniteBound",      ItemType_r8,  u"1e300", {.maxExclusive = u"INF"}},
    {"NaNPassesInclusive",   ItemType_r8,  u"NaN", {.minInclusive = u"1", .maxInclusive = u"2"}},
    {"NaNFailsMinExclusive", ItemType_r8,  u"NaN", {.minExclusive = u"1"}, u"Invalid Value for n [nan]"},
    {"NaNFailsMaxExclusive", ItemType_r4,  u"NaN", {.maxExclusive = u"1"}, u"Invalid Value for n [nan]"},
    {"EnoughDigits",         ItemType_i4,  u"123", {.totalDigits = 3}},
    {"MinusIsADigit",        ItemType_i4,  u"-123", {.totalDigits = 3}, u"Invalid Value for n [-123]"},
    {"NoDigitsAreAFacet",    ItemType_ui8, u"0",   {.totalDigits = 0}, u"Invalid Value for n [0]."},
    {"RealsHaveNoDigits",    ItemType_r8,  u"123", {.totalDigits = 1, .fractionDigits = 0}},
    {"BoundTooLargeForI1",   ItemType_i1,  u"5",   {.maxInclusive = u" 128"}, u"The value [ 128] is to large to fit in a i1\nInvalid Value for n [5]."},
    {"BoundIsNoNumber",      ItemType_r4,  u"2.5", {.minInclusive = u"x"}, u"The value [x] can not be converted to a r4\nInvalid Value for n [2.5]."},
    {"BoundOnlyOfBlanks",    ItemType_ui4, u"4294967295", {.minInclusive = u" "}, u"The value [] can not be converted to a ui4\nInvalid Value for n [4294967295]."},
    {"FaultyBoundNotReached", ItemType_i4, u"4",   {.minInclusive = u"5", .maxInclusive = u"x"}, u"Invalid Value for n [4]"},
    {"FaultyBoundReached",   ItemType_i4,  u"5",   {.minInclusive = u"5", .maxInclusive = u"x"}, u"The value [x] can not be converted to a i4\nInvalid Value for n [5]."},
    {"TooShort",             ItemType_string, u"a", {.minLength = 2}, u"Invalid Value for n [a]."},
    {"TooLong",              ItemType_string, u"ab", {.maxLength = 1}, u"Invalid Value for n [ab]."},
    {"LengthZeroIsAFacet",   ItemType_string, u"", {.length = 0}},
    {"OtherLength",          ItemType_string, u"a", {.length = 0}, u"Invalid Value for n [a]."},
    {"LengthInUnits",        ItemType_string, u"\U0001F600", {.length = 2}},
    {"LengthBeforePattern",  ItemType_string, u"a", {.pattern = u"(", .length = 0}, u"Invalid Value for n [a]."},
    {"PatternMatches",       ItemType_string, u"abc", {.pattern = u"[a-z]+", .length = 3}},
    {"PatternDoesNotMatch",  ItemType_string, u"abc1", {.pattern = u"[a-z]+"}, u"Invalid Value for n [abc1]."},
    {"StringsHaveNoBounds",  ItemType_string, u"a", {.minInclusive = u"b", .totalDigits = 0}},
    {"HexLengthInBytes",     ItemType_hexBinary, u"0AFF", {.length = 2}},
    {"HexTooLong",           ItemType_hexBinary, u"0aff", {.maxLength = 1}, u"Invalid Value for n [0AFF]."},
    {"EmptyBase64TooShort",  ItemType_base64Binary, u"", {.minLength = 1}, u"Invalid Value for n []."},
    {"Base64TooLong",        ItemType_base64Binary, u"TWFu", {.length = 2}, u"Invalid Value for n [TWFu]."},
    {"DecimalInBounds",      ItemType_decimal, u"1.50", {.minInclusive = u" 1.5 ", .maxInclusive = u"1.500", .minExclusive = u"1.49", .maxExclusive = u"2"}},
    {"DecimalBelow",         ItemType_decimal, u"-0.50", {.minInclusive = u"-0.4"}, u"Invalid Value for n [-0.5]."},
    {"DecimalBoundNoNumber", ItemType_decimal, u"1", {.maxExclusive = u"a"}, u"The string representing a Decimal, contained an invalid char at position 0 [a].\nInvalid Value for n [1]."},
    {"DecimalDigits",        ItemType_decimal, u"-12.3", {.totalDigits = 3, .fractionDigits = 1}},
    {"DecimalFractionDigits", ItemType_decimal, u"1.23", {.totalDigits = 3, .fractionDigits = 1}, u"Invalid Value for n [1.23]."},
    {"DecimalTotalDigits",   ItemType_decimal, u"123.4", {.totalDigits = 3}, u"Invalid Value for n [123.4]."},
    {"WholeZeroIsNoDigit",   ItemType_decimal, u"0.5", {.totalDigits = 1}},
    {"ZerosBehindThePoint",  ItemType_decimal, u"0.005", {.totalDigits = 1, .fractionDigits = 1}},
    {"DroppedZerosAreNone",  ItemType_decimal, u"1.500", {.fractionDigits = 1}},
    {"ZeroHasNoDigits",      ItemType_decimal, u"0.0", {.totalDigits = 0, .fractionDigits = 0}},
    {"DecimalMinusZeroIsBelow", ItemType_decimal, u"-0", {.minInclusive = u"0"}, u"Invalid Value for n [0]."},
    {"IntegerInBounds",      ItemType_integer, u"100000000000000000000", {.minExclusive = u"99999999999999999999.4"}},
    {"IntegerAbove",         ItemType_integer, u"100000000000000000000", {.maxInclusive = u"99999999999999999999"}, u"Invalid Value for n [100000000000000000000]."},
    {"IntegerMinusIsADigit", ItemType_integer, u"-123", {.totalDigits = 3, .fractionDigits = 0}, u"Invalid Value for n [-123]."},
    {"IntegerMinusZeroIsBelow", ItemType_integer, u"-0", {.minInclusive = u"0"}, u"Invalid Value for n [0]."},
    {"NumbersHaveNoPattern", ItemType_i4,  u"12",  {.pattern = u"a", .minLength = 9, .length = 9}},
    {"DateOnTheBounds",      ItemType_date, u"2000-01-01", {.minInclusive = u" 2000-01-01 ", .maxInclusive = u"2000-01-01"}},
    {"DateBelow",            ItemType_date, u"1999-12-31Z", {.minInclusive = u"2000-01-01Z"}, u"Invalid Value for n [1999-12-31Z]."},
    {"DateNotAbove",         ItemType_date, u"2000-01-01", {.minExclusive = u"2000-01-01"}, u"Invalid Value for n [2000-01-01]."},
    {"DateTimeWithin14Hours", ItemType_datetime, u"2000-01-01T00:00:00", {.minInclusive = u"2000-01-01T13:00:00Z", .maxInclusive = u"1999-12-31T11:00:00Z", .minExclusive = u"2000-01-01T13:00:00Z", .maxExclusive = u"1999-12-31T11:00:00Z"}},
    {"DateTimeBeyond14Hours", ItemType_datetime, u"2000-01-01T00:00:00", {.minExclusive = u"2000-01-01T15:00:00Z"}, u"Invalid Value for n [2000-01-01T00:00:00]."},
    {"TimeNotBelow",         ItemType_time, u"12:00:00", {.maxExclusive = u"12:00:00"}, u"Invalid Value for n [12:00:00]."},
    {"YearMonthAbove",       ItemType_yearMonth, u"2000-02", {.maxInclusive = u"2000-01"}, u"Invalid Value for n [2000-02]."},
    {"MonthDayBelow",        ItemType_monthDay, u"--02-01", {.minInclusive = u"--03-01"}, u"Invalid Value for n [--02-01]."},
    {"YearBelow",            ItemType_year, u"1999", {.minInclusive = u"2000"}, u"Invalid Value for n [1999]"},
    {"MonthAboveDateBound",  ItemType_month, u"--08", {.maxInclusive = u"2000-07-01"}, u"Invalid Value for n [8]"},
    {"DayBoundIsAMonth",     ItemType_day, u"---08", {.maxInclusive = u"--08"}, u"Failed to GetDay. Invalid Date Type: gMonth.\nInvalid Value for n [---08]."},
    {"BoundIsNoDate",        ItemType_date, u"2000-01-01", {.minInclusive = u"x"}, u"Invalid XSD Date [x] expected CCYY-MM-DD[Z|[+|-]hh:mm]\nInvalid Value for n [2000-01-01]."},
    {"DurationAbove",        ItemType_duration, u"P2D", {.maxInclusive = u"P1D"}, u"Invalid Value for n [P2D]."},
    {"DurationNotCompared",  ItemType_duration, u"P1M", {.minInclusive = u"P30D", .maxInclusive = u"P30D", .minExclusive = u"P30D", .maxExclusive = u"P30D"}},
    {"DurationOnlyOfDays",   ItemType_duration, u"PT23H", {.maxInclusive = u"PT1H"}},
    {"BooleanIsNotRefused",  ItemType_boolean, u"true", {.pattern = u"(", .minInclusive = u"x", .length = 9, .totalDigits = 0}},
};
// clang-format on

class PrimitiveFacets : public testing::TestWithParam<FacetCase> {};

TEST_P(PrimitiveFacets, AllowTheirValues) {
  FacetCase const& row = GetParam();
  KestVariant value;
  value.FromString(row.value, row.type, CWhitespaceUtils::WhitespaceRule_None);
  auto const restrictions = row.facets.Make();
  auto const check = [&] { CheckPrimitiveRestriction(u"n", value, row.type, restrictions); };
  EXPECT_EQ(Thrown(check), row.message);
  EXPECT_EQ(Thrown(check), row.message);
  EXPECT_NO_THROW(CheckPrimitiveRestriction(u"n", value, row.type, CPrimitiveRestrictions()));
}

INSTANTIATE_TEST_SUITE_P(Kinds, PrimitiveFacets, testing::ValuesIn(kCases), RowName());

std::u16string Check(KestVariant const& value, ItemType type,
                     CPrimitiveRestrictions const& facets) {
  return Thrown([&] { CheckPrimitiveRestriction(u"n", value, type, facets); });
}

KestVariant I4(std::int32_t value) {
  KestVariant variant;
  variant.SetI4(value);
  return variant;
}

TEST(PrimitiveRestrictions, ReadTheValueAsTheGivenKind) {
  auto const facets = Facets{.maxInclusive = u"43"}.Make();
  EXPECT_EQ(Check(I4(300), ItemType_i1, facets), u"Invalid Value for n [44]");
}

TEST(PrimitiveRestrictions, KnowNoOtherKinds) {
  KestVariant character;
  character.SetChar(u'a');
  auto const check = [&](ItemType type) {
    return Thrown<CKestInvalidValueException>(
        [&] { CheckPrimitiveRestriction(u"n", character, type, CPrimitiveRestrictions()); });
  };
  for (int type : {-1, 0, 22, 27, 28, 29}) {
    EXPECT_EQ(check(static_cast<ItemType>(type)), u"Unknown type [char].") << type;
  }
  EXPECT_EQ(Check(KestVariant(), ItemType_Invalid, CPrimitiveRestrictions()), u"Invalid Type 0");
}

TEST(PrimitiveRestrictions, ForgetWhatTheyDerivedFromOtherText) {
  auto facets = Facets{.maxInclusive = u"5"}.Make();
  EXPECT_EQ(Check(I4(7), ItemType_i4, facets), u"Invalid Value for n [7]");
  auto const copy = facets;
  facets = Facets{.maxInclusive = u"10"}.Make();
  EXPECT_EQ(Check(I4(7), ItemType_i4, facets), kAllowed);
  EXPECT_EQ(Check(I4(7), ItemType_i4, copy), u"Invalid Value for n [7]");
}

TEST(PrimitiveRestrictions, HoldForAnotherKindToo) {
  auto const facets = Facets{.maxInclusive = u"5.5"}.Make();
  KestVariant real;
  real.SetR8(5.6);
  EXPECT_EQ(Check(real, ItemType_r8, facets), u"Invalid Value for n [5.600000]");
  EXPECT_EQ(Check(I4(5), ItemType_i4, facets),
            u"The value [5.5] can not be converted to a i4\nInvalid Value for n [5].");
}

TEST(PrimitiveRestrictions, AreSharedByThreads) {
  auto const facets = Facets{.pattern = u"[0-9]+", .maxInclusive = u"500"}.Make();
  std::atomic<int> refused = 0;
  auto const checkAll = [&] {
    for (int i = 0; i < 1000; ++i) {
      KestVariant text;
      text.SetString(i % 2 == 0 ? u"12" : u"ab");
      refused += Check(text, ItemType_string, facets) != kAllowed;
      refused += Check(I4(i), ItemType_i4, facets) != kAllowed;
    }
  };
  std::vector<std::thread> threads(4);
  for (std::thread& thread : threads) thread = std::thread(checkAll);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(refused, 4 * (500 + 499));
}

}  // namespace
}  // namespace KestXmlLib20
