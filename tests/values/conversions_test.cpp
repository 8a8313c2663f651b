#include "kestxml/values/conversions.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <random>

#include "kestxml/values/kest_variant.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;
using W = CWhitespaceUtils;

constexpr auto kNone = W::WhitespaceRule_None;
constexpr auto kCollapse = W::WhitespaceRule_Collapse;

// What the kind's pair of functions makes of a text: the variant is nothing but their switchboard.
std::u16string ReadAndWrite(ItemType type, W::WhitespaceRule rule, std::u16string_view text) {
  KestVariant value;
  value.FromString(text, type, rule);
  return value.ToString();
}

struct TextCase {
  char const* name;
  ItemType type;
  W::WhitespaceRule rule;
  std::u16string_view text;
  std::u16string_view result;  // what is written again, or the message
};

void PrintTo(TextCase const& row, std::ostream* out) {
  *out << row.name;
}

// clang-format off
constexpr TextCase kValues[] = {
    {"BlanksAround",      ItemType_i4,  kCollapse, u"\t 12 \n", u"12"},
    {"SpaceInFront",      ItemType_i4,  kNone, u" \t\v\f\r\n12", u"12"},
    {"PlusSign",          ItemType_i4,  kNone, u"+007", u"7"},
    {"NullIsTheEnd",      ItemType_i4,  kNone, u"12\0x"sv, u"12"},
    {"NullInFront",       ItemType_i4,  kNone, u"\0x"sv, u"0"},
    {"i4Least",           ItemType_i4,  kNone, u"-2147483648", u"-2147483648"},
    {"i8Least",           ItemType_i8,  kNone, u"-9223372036854775808", u"-9223372036854775808"},
    {"ui2Most",           ItemType_ui2, kNone, u"65535", u"65535"},
    {"ui4MinusWraps",     ItemType_ui4, kNone, u"-1", u"4294967295"},
    {"ui1MinusWraps",     ItemType_ui1, kNone, u"-4294967295", u"1"},
    {"ui8Most",           ItemType_ui8, kNone, u"18446744073709551615", u"18446744073709551615"},
    {"ui8MinusWraps",     ItemType_ui8, kNone, u"-1", u"18446744073709551615"},
    {"PointBehind",       ItemType_r8,  kNone, u"-5.e-1", u"-0.5"},
    {"SixteenDigits",     ItemType_r8,  kNone, u"9.95", u"9.949999999999999"},
    {"Exponent",          ItemType_r8,  kNone, u"10000000000000000", u"1e+16"},
    {"r8Overflow",        ItemType_r8,  kNone, u"1e400", u"INF"},
    {"r8UnderflowBelow",  ItemType_r8,  kNone, u"-1e-400", u"-0"},
    {"r8NaN",             ItemType_r8,  kCollapse, u" NaN ", u"NaN"},
    {"r8OldNaN",          ItemType_r8,  kNone, u"1.#QNAN", u"NaN"},
    {"r4MinusNaN",        ItemType_r4,  kNone, u"-NAN", u"NaN"},
    {"r4MinusInfinity",   ItemType_r4,  kNone, u"-INF", u"-INF"},
    {"r4SevenDigits",     ItemType_r4,  kNone, u"16777217", u"1.677722e+07"},
    {"r4Overflow",        ItemType_r4,  kNone, u"1e39", u"INF"},
    {"booleanNumber",     ItemType_boolean, kNone, u"1", u"true"},
    {"booleanAnyCase",    ItemType_boolean, kCollapse, u" FaLSE ", u"false"},
    {"charNull",          ItemType_char, kNone, u"\0"sv, u""},
    {"stringByItsRule",   ItemType_string, W::WhitespaceRule_Replace, u" a\r\nb", u" a b"},
    {"hexBothCases",      ItemType_hexBinary, kCollapse, u" 0aFF ", u"0AFF"},
    {"decimalCollapsed",  ItemType_decimal, kCollapse, u"\n 01.50 ", u"1.5"},
    {"decimalNullIsTheEnd", ItemType_decimal, kNone, u"-.5\0x"sv, u"-0.5"},
    {"integerNoRule",     ItemType_integer, kNone, u" -007 ", u"-7"},
    {"integerTrailingTab", ItemType_integer, kNone, u"12\t", u"0"},
    {"integerNullIsTheEnd", ItemType_integer, kNone, u"12\0.9"sv, u"12"},
    {"yearOfAnyDate",     ItemType_year, kCollapse, u" 0987-07-09Z ", u"987"},
    {"yearBelowZeroWraps", ItemType_year, kNone, u"-0001", u"65535"},
    {"dateOfAnotherForm", ItemType_date, kNone, u"2001", u"2001"},
    {"durationCollapsed", ItemType_duration, kCollapse, u" P1D\n", u"P1D"},
    {"base64Bad",         ItemType_base64Binary, kNone, u"TW*=", u""},
};

constexpr TextCase kFailures[] = {
    {"i4Empty",         ItemType_i4,  kCollapse, u"  ", u"The value [] can not be converted to a i4"},
    {"i4OnlyBlank",     ItemType_i4,  kNone, u" ",   u"The value [ ] can not be converted to a i4"},
    {"i4OnlySign",      ItemType_i4,  kNone, u"-",   u"The value [-] can not be converted to a i4"},
    {"i4ShowsCollapsed", ItemType_i4, kCollapse, u" 1 x ", u"The value [1 x] can not be converted to a i4"},
    {"i4TooLarge",      ItemType_i4,  kNone, u"2147483648",  u"The value [2147483648] is to large to fit in a i4"},
    {"i4TooSmall",      ItemType_i4,  kNone, u"-2147483649", u"The value [-2147483649] is to large to fit in a i4"},
    {"i4RangeIsFirst",  ItemType_i4,  kNone, u"9999999999x", u"The value [9999999999x] is to large to fit in a i4"},
    {"i8TooLarge",      ItemType_i8,  kNone, u"9223372036854775808", u"The value [9223372036854775808] is to large to fit in a i8"},
    {"ui4TooLarge",     ItemType_ui4, kNone, u"4294967296", u"The value [4294967296] is to large to fit in a ui4"},
    {"ui8TooLarge",     ItemType_ui8, kNone, u"18446744073709551616", u"The value [18446744073709551616] is to large to fit in a ui8"},
    {"i1ShowsAllItGot", ItemType_i1,  kCollapse, u" 128 ", u"The value [ 128 ] is to large to fit in a i1"},
    {"i1AsI4",          ItemType_i1,  kCollapse, u" 9999999999 ", u"The value [9999999999] is to large to fit in a i4"},
    {"ui1TooLarge",     ItemType_ui1, kNone, u"256",   u"The value [256] is to large to fit in a ui1"},
    {"ui1Minus",        ItemType_ui1, kNone, u"-1",    u"The value [-1] is to large to fit in a ui1"},
    {"ui2TooLarge",     ItemType_ui2, kNone, u"65536", u"The value [65536] is to large to fit in a ui2"},
    {"r8PlusInfinity",  ItemType_r8,  kNone, u"+INF", u"The value [+INF] can not be converted to a r8"},
    {"r8LowerInfinity", ItemType_r8,  kNone, u"inf",  u"The value [inf] can not be converted to a r8"},
    {"r8Hexadecimal",   ItemType_r8,  kNone, u"0x10", u"The value [0x10] can not be converted to a r8"},
    {"r8HalfExponent",  ItemType_r8,  kNone, u"1e+",  u"The value [1e+] can not be converted to a r8"},
    {"r8OnlyPoint",     ItemType_r8,  kNone, u".",    u"The value [.] can not be converted to a r8"},
    {"r8OtherDigits",   ItemType_r8,  kNone, u"1\u0662", u"The value [1\u0662] can not be converted to a r8"},
    {"decimalShowsCollapsed", ItemType_decimal, kCollapse, u" 1 x ",
     u"The string representing a Decimal, contained an invalid char at position 2 [1 x]."},
    {"integerAsDecimal", ItemType_integer, kNone, u"12x",
     u"The string representing a Decimal, contained an invalid char at position 2 [12x]."},
    {"booleanShowsAllItGot", ItemType_boolean, kCollapse, u" yes ",
     u"A Boolean Value read from an XML document was invalid [ yes ]. Valid values are 'true', 'false', '1', or '0'"},
    {"charEmpty",       ItemType_char, kCollapse, u" ", u"The value [] can not be a char as it is either empty of greater than 1 char long"},
};
// clang-format on

class ConversionOf : public testing::TestWithParam<TextCase> {};
class FailureOf : public testing::TestWithParam<TextCase> {};

TEST_P(ConversionOf, WritesWhatItRead) {
  TextCase const& row = GetParam();
  EXPECT_EQ(ReadAndWrite(row.type, row.rule, row.text), row.result);
}

TEST_P(FailureOf, IsAnInvalidValue) {
  TextCase const& row = GetParam();
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { ReadAndWrite(row.type, row.rule, row.text); }),
            row.result);
}

INSTANTIATE_TEST_SUITE_P(Conversions, ConversionOf, testing::ValuesIn(kValues), RowName());
INSTANTIATE_TEST_SUITE_P(Conversions, FailureOf, testing::ValuesIn(kFailures), RowName());

TEST(Conversions, BadHexadecimalIsNoInvalidValue) {
  EXPECT_EQ(Thrown([] { ReadAndWrite(ItemType_hexBinary, kNone, u"0G"); }),
            u"Invalid char in hex string [G]");
}

TEST(Conversions, EveryKindRefusesAnUnknownRule) {
  auto const rule = static_cast<W::WhitespaceRule>(4);
  for (TextCase const& row : kValues) {
    EXPECT_EQ(Thrown([&] { ReadAndWrite(row.type, rule, row.text); }), u"Unknown WhitespaceRule")
        << row.name;
  }
}

TEST(Conversions, RealsTakeAFormat) {
  EXPECT_EQ(CConversions::r8ToString(2.5, u"%.3f"), u"2.500");
  EXPECT_EQ(CConversions::r4ToString(2.5F, u"%08.1f EUR"), u"000002.5 EUR");
  EXPECT_EQ(CConversions::r8ToString(std::numeric_limits<double>::quiet_NaN(), u"%.3f"), u"NaN");
  EXPECT_EQ(CConversions::r4ToString(1, u"%.60f"), u"1." + std::u16string(29, u'0'));
  EXPECT_EQ(CConversions::r8ToString(1, u"%.60f"), u"1." + std::u16string(45, u'0'));
  EXPECT_EQ(CConversions::r8ToString(1, u"%s%n%d"), u"(null)0");  // nothing is read or written
}

// The locale is made on the spot, since a machine need not have any but "C".
TEST(Conversions, KnowNoLocaleOfTheUser) {
  std::string const folder = testing::TempDir();
  std::ofstream(folder + "comma") << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
                                     "grouping 3\nEND LC_NUMERIC\n";
  std::string const make =
      "localedef -c -i " + folder + "comma " + folder + "comma_XX >/dev/null 2>&1";
  EXPECT_NE(std::system(make.c_str()), -1);  // its warnings make it fail
  setenv("LOCPATH", folder.c_str(), 1);
  ASSERT_TRUE(std::setlocale(LC_ALL, "comma_XX"));
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(ReadAndWrite(ItemType_r8, kNone, u"1234.5"), u"1234.5");
  EXPECT_EQ(CConversions::r8ToString(1234.5, u"%.2f"), u"1234.50");
  std::setlocale(LC_ALL, "C");
}

double ReadR8(std::string const& text) {
  return CConversions::r8FromString(FromUtf8(text), kNone);
}

// Any number, one with few decimals as people write them, or one that rounds to a power of ten.
double Number(std::mt19937_64& random, int i) {
  double const power = std::pow(10, static_cast<double>(random() % 21) - 4);
  if (i % 3 == 0) return std::nextafter(power, i % 2 == 0 ? 0 : HUGE_VAL);
  if (i % 3 == 1) return static_cast<double>(random() % 1'000'000) / power;
  auto const value = std::bit_cast<double>(random());
  return std::isfinite(value) ? value : -0.0;
}

// The C library reads and prints the same numbers on a way of its own.
TEST(Conversions, RealsAgreeWithTheCLibrary) {
  std::mt19937_64 random(20);
  for (int i = 0; i < 30'000; ++i) {
    double const value = Number(random, i);
    char text[64];
    std::snprintf(text, sizeof text, "%.16g", value);
    ASSERT_EQ(CConversions::r8ToString(value), FromUtf8(text));
    std::snprintf(text, sizeof text, "%.*g", 1 + i % 20, value);
    ASSERT_EQ(ReadR8(text), std::strtod(text, nullptr)) << text;
    auto const narrow = static_cast<float>(value);
    std::snprintf(text, sizeof text, "%.7g", static_cast<double>(narrow));
    if (std::isfinite(narrow)) {
      ASSERT_EQ(CConversions::r4ToString(narrow), FromUtf8(text));
    }
  }
}

TEST(Conversions, NoDigitOfALongNumberIsLost) {
  std::string const zeros(100'000, '0');
  EXPECT_EQ(ReadR8("0." + zeros + "15e100001"), 1.5);
  EXPECT_EQ(ReadR8("15" + zeros + "e-100001"), 1.5);
  // Halfway between two doubles, and a digit more than that.
  EXPECT_EQ(ReadR8("9007199254740993." + zeros), 9007199254740992);
  EXPECT_EQ(ReadR8("9007199254740993." + zeros + "1"), 9007199254740994);
}

}  // namespace
}  // namespace KestXmlLib20
