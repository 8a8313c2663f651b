#include "kestxml/values/decimal.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using D = CDecimal;

constexpr char16_t const* kZeroDivisor = u"ERROR: Overflow in operator/.";

std::u16string Repeat(std::size_t count, char16_t digit) {
  return std::u16string(count, digit);
}

D Nines(std::size_t places) {
  return D(u"0." + Repeat(places, u'9'));
}

// Sets the process-wide number of places for one test.
class MaxPlaces {
 public:
  explicit MaxPlaces(int places) { D::SetMaxDecimalPlaces(places); }
  ~MaxPlaces() { D::SetMaxDecimalPlaces(m_old); }
  MaxPlaces(MaxPlaces const&) = delete;
  MaxPlaces& operator=(MaxPlaces const&) = delete;

 private:
  int m_old = D::GetMaxDecimalPlaces();
};

struct TextCase {
  char const* name;
  char16_t const* text;
  char16_t const* printed;
};

struct FailureCase {
  char const* name;
  char16_t const* text;
  int position;
};

struct PlacesCase {
  char const* name;
  char16_t const* value;
  int places;
  char16_t const* printed;
};

// clang-format off
constexpr TextCase kTexts[] = {
    {"Null",                 nullptr,      u"0"},
    {"Empty",                u"",          u"0"},
    {"SignAlone",            u"-",         u"0"},
    {"PointAlone",           u".",         u"0"},
    {"WholeWithZeros",       u"5.000",     u"5"},
    {"NoWholePart",          u"-.5",       u"-0.5"},
    {"NoFraction",           u"5.",        u"5"},
    {"ZerosBehindThePoint",  u"0.05",      u"0.05"},
    {"NegativeZero",         u"-0.00",     u"0"},
    {"BlankInside",          u"1 000.2 5", u"1000.25"},
    {"ThreeRuns",            u"1 2\n3",    u"123"},
    {"SignInside",           u"1-2",       u"-12"},
    {"LastSignCounts",       u"-1+2.5",    u"12.5"},
    {"Exponent",             u"1e2",       u"100"},
    {"NegativeExponent",     u"1.5E-1",    u"0.15"},
    {"BlankBehindTheE",      u"1.5e 2",    u"150"},
    {"ExponentsLastSign",    u"15e+ -+-1", u"1.5"},
    {"ExponentWithoutDigits", u"1e",       u"1"},
    {"ExponentOfNothing",    u"e5",        u"0"},
    {"ZeroTakesAnyExponent", u"-0E99999999999", u"0"},
    {"ExponentBringsItBack", u"0.00000000000000000000000000000000001e35", u"1"},
    {"ExponentDropsIt",      u"1e-31",     u"0"},
    {"ExponentOfZeroRounds", u"0.1234567890123456789012345678905001e-0", u"0.12345678901234567890123456789"},
    {"MoreThanHalfRoundsUp", u"0.1234567890123456789012345678905001e0", u"0.123456789012345678901234567891"},
    {"HalfRoundsTowardZero", u"-0.0000000000000000000000000000015", u"-0.000000000000000000000000000001"},
    {"NinesDoNotCarry",      u"7.9999999999999999999999999999999", u"7.1000000000000000000000000000000"},
};

constexpr FailureCase kFailures[] = {
    {"Letter",              u"1x",     1},
    {"NoBreakSpace",        u" 1\u00A0", 2},
    {"SignInFraction",      u"1.2-",   3},
    {"BlankBehindExponent", u"1e2 ",   3},
    {"BlankInExponent",     u"1e2 3",  3},
    {"PointInExponent",     u"1e.5",   2},
    {"PercentStaysText",    u"%s%d",   0},
    {"TooLarge",            u"1E1000",        2},
    {"TooLargeByFar",       u"1E+2147483648", 3},
    {"TooManyPlaces",       u"10.5e-1000",    6},
    {"Infinity",            u"INF",    0},
};

constexpr PlacesCase kPlaces[] = {
    {"Pads",               u"1.5",    2, u"1.50"},
    {"RoundsHalfAway",     u"1.125",  2, u"1.13"},
    {"RoundsHalfAwayBelow", u"-1.125", 2, u"-1.13"},
    {"ClearedPlaceIsOne",  u"1.995",  2, u"2.0"},
    {"NoneKeepsThePoint",  u"1.5",    0, u"2."},
    {"SignOfWhatIsCutOff", u"-0.001", 2, u"-0.00"},
    {"HalfIsBeyondTheMost", u"0.9",   30, u"0.9"},
};
// clang-format on

class DecimalText : public testing::TestWithParam<TextCase> {};
class DecimalFailure : public testing::TestWithParam<FailureCase> {};
class DecimalPlaces : public testing::TestWithParam<PlacesCase> {};

TEST_P(DecimalText, PrintsWhatItReads) {
  EXPECT_EQ(D(GetParam().text).ToString(), GetParam().printed);
}

TEST_P(DecimalFailure, NamesThePosition) {
  std::u16string const text = GetParam().text;
  std::u16string const position = CBigInteger(GetParam().position).ToString();
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { D(text.c_str()); }),
            u"The string representing a Decimal, contained an invalid char at position " +
                position + u" [" + text + u"].");
}

TEST_P(DecimalPlaces, AreRounded) {
  EXPECT_EQ(D(GetParam().value).ToString(GetParam().places), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(Texts, DecimalText, testing::ValuesIn(kTexts), RowName());
INSTANTIATE_TEST_SUITE_P(Texts, DecimalFailure, testing::ValuesIn(kFailures), RowName());
INSTANTIATE_TEST_SUITE_P(Texts, DecimalPlaces, testing::ValuesIn(kPlaces), RowName());

TEST(Decimal, ExponentsMakeNumbersOfAThousandDigits) {
  EXPECT_EQ(D(u"1e999").ToString(), u"1" + Repeat(999, u'0'));
  EXPECT_EQ(D(u"0.01e1001").ToString(), u"1" + Repeat(999, u'0'));
  EXPECT_EQ(D(u"1e-1000").ToString(), u"0");
  EXPECT_EQ(D(u"0." + Repeat(1'000'000, u'0') + u"1e1000001"), D(1));  // in linear time
  for (char16_t const* none : {u"", u"e", u"E+ "}) {  // without one there is no end
    EXPECT_EQ(D(Repeat(2000, u'7') + none).ToString(), Repeat(2000, u'7'));
  }
}

TEST(Decimal, PrintsUpTo1023Places) {
  EXPECT_EQ(D(1).ToString(1023), u"1.0");  // the half unit is beyond the places that are kept
  MaxPlaces const most(2000);
  EXPECT_EQ(D(1).ToString(1023), u"1." + Repeat(1023, u'0'));
  for (int const places : {-1, 1024, INT32_MAX}) {
    EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { D(1).ToString(places); }),
              u"Invalid number of decimal places [" + CBigInteger(places).ToString() + u"]");
  }
}

TEST(Decimal, HasTwoPartsAndPlaces) {
  D const value(u"-1.0500");
  EXPECT_EQ(value.GetIntegerPart(), CBigInteger(-1));
  EXPECT_EQ(value.GetFractionPart(), CBigInteger(-5));
  EXPECT_EQ(value.GetFractionDivider(), 2);
  EXPECT_EQ(value.GetNegative().GetFractionPart(), CBigInteger(5));
  EXPECT_EQ(D(7).GetFractionDivider(), 1);
}

TEST(Decimal, IsMadeFromAnyMachineInteger) {
  EXPECT_EQ(D(UINT32_MAX).ToString(), u"4294967295");
  EXPECT_EQ(D(UINT64_MAX).ToString(), u"18446744073709551615");
  EXPECT_EQ(D(INT64_MIN).ToString(), u"-9223372036854775808");
  EXPECT_EQ(D(2ULL) + 1UL, D(short{3}));
}

TEST(Decimal, IsMadeFromDoubles) {
  EXPECT_EQ(D(0.1).ToString(), u"0.1");
  EXPECT_EQ(D(-2.5e-13).ToString(), u"-0.0000000000002");  // 13 places, no more
  EXPECT_EQ(D(1e300).ToBigInteger() % CBigInteger(1000), CBigInteger(160));
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { D{-std::numeric_limits<double>::infinity()}; }),
            u"The string representing a Decimal, contained an invalid char at position 1 "
            u"[-inf\n].");
  EXPECT_THROW(D{std::numeric_limits<double>::quiet_NaN()}, CKestInvalidValueException);
}

TEST(Decimal, Adds) {
  EXPECT_EQ((D(u"-2") - D(u"-381.00")).ToString(), u"379");  // negative zeros of fractions
  EXPECT_EQ(Nines(31) + D(0), D(1));                         // the carry that rounding left out
  D value(u"-0.5");
  EXPECT_EQ(value++, D(u"-0.5"));
  EXPECT_EQ(++value, D(u"1.5"));
  EXPECT_EQ(value--, D(u"1.5"));
  EXPECT_EQ(--value, D(u"-0.5"));
}

TEST(Decimal, OnlySumsKeepMorePlacesThanTheMost) {
  D const tiny = [] {
    MaxPlaces const most(40);
    return D(u"0." + Repeat(39, u'0') + u"3");
  }();
  EXPECT_EQ((tiny + tiny).ToString(), u"0." + Repeat(39, u'0') + u"6");
  EXPECT_EQ((tiny * D(1)).ToString(), u"0");
}

TEST(Decimal, Divides) {
  EXPECT_EQ((D(1) / D(3)).ToString(), u"0." + Repeat(30, u'3'));
  EXPECT_EQ((D(2) / D(-3)).ToString(), u"-0." + Repeat(29, u'6') + u"7");
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { D(1) / D(u"-0.00"); }), kZeroDivisor);
  D value(6);
  value /= D(4);
  value *= D(3);
  value -= D(u"0.5");
  EXPECT_EQ(value, D(4));
}

// The fraction of a number read without a point takes its sign, one of a number has none, and one
// that loses zeros loses the sign.
TEST(Decimal, EqualWholeNumbersMayBeInOrder) {
  EXPECT_EQ(D(u"-3"), D(-3));
  EXPECT_LT(D(u"-3"), D(-3));
  EXPECT_EQ(D(u"-3.00"), D(-3));
  EXPECT_FALSE(D(u"-3.00") < D(-3));
}

struct LongCase {
  char16_t const* text;
  int rounded;
  int whole;
};

TEST(Decimal, ToLongRoundsAndToLongLongTruncates) {
  constexpr LongCase kCases[] = {
      {u"12.9", 13, 12},    {u"12.5", 12, 12}, {u"12.51", 13, 12},
      {u"-12.9", -13, -12}, {u"0.96", 1, 0},   {u"-0.5", 0, 0},
  };
  for (LongCase const& row : kCases) {
    EXPECT_EQ(D(row.text).ToLong(), row.rounded);
    EXPECT_EQ(D(row.text).ToLongLong(), row.whole);
    EXPECT_EQ(D(row.text).ToBigInteger(), CBigInteger(row.rounded));
  }
  EXPECT_EQ(Nines(31).ToLong(), 0);  // the fraction is a one and zeros
}

TEST(Decimal, RefusesNumbersThatDoNotFit) {
  EXPECT_EQ(D(u"2147483647.5").ToLong(), INT32_MAX);
  EXPECT_EQ(D(u"-2147483648.5").ToLong(), INT32_MIN);
  EXPECT_EQ(Thrown<CKestOverFlowException>([] { D(u"2147483647.51").ToLong(); }),
            u"The Decimal value if to large to fit into a LONG");
  EXPECT_EQ(D(u"9223372036854775807.99").ToLongLong(), INT64_MAX);
  EXPECT_EQ(D(u"-9223372036854775808").ToLongLong(), INT64_MIN);
  EXPECT_EQ(Thrown<CKestOverFlowException>([] { D(u"-9223372036854775809").ToLongLong(); }),
            u"The Decimal value if to large to fit into a LONGLONG");
  EXPECT_EQ(D(u"-1234567890.125").ToDouble(), -1234567890.125);
  EXPECT_EQ(D(CBigInteger::MAX_DOUBLE).ToDouble(), 1.7e308);
  EXPECT_EQ(Thrown<CKestOverFlowException>([] { (D(CBigInteger::MIN_DOUBLE) - D(1)).ToDouble(); }),
            u"The Decimal value if to large to fit into a Double");
}

TEST(Decimal, AnyNumberOfPlacesIsStored) {
  MaxPlaces const none(-5);
  EXPECT_EQ(D::GetMaxDecimalPlaces(), -5);
  EXPECT_EQ(D(u"1.51").ToString(), u"2");
  EXPECT_EQ((D(3) / D(2)).ToString(), u"1");  // a half
  D::SetMaxDecimalPlaces(INT32_MAX);
  EXPECT_EQ((D(1) / D(3)).ToString(), u"0." + Repeat(10'000, u'3'));
  D::SetMaxDecimalPlaces(0);
  EXPECT_EQ((D(u"0.4") + D(1)).ToString(), u"1");
}

}  // namespace
}  // namespace KestXmlLib20
