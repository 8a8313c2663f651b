#include "kestxml/values/big_integer.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <limits>

#include "kestxml/values/decimal.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using I = CBigInteger;

std::u16string Repeat(int count, char16_t digit) {
  return std::u16string(static_cast<std::size_t>(count), digit);
}

// The constants stand before the static objects of generated code are made.
bool const g_limitsStood = I::MAX_LONGLONG == I(INT64_MAX) && I::MAX_DOUBLE > I::MAX_LONGLONG;

TEST(BigInteger, LimitsStandBeforeAnyCodeRuns) {
  EXPECT_TRUE(g_limitsStood);
  EXPECT_EQ(I::MAX_LONG, I(2147483647));
  EXPECT_EQ(I::MIN_LONG, I(INT32_MIN));
  EXPECT_EQ(I::MIN_LONGLONG, I(INT64_MIN));
  EXPECT_EQ(I::MAX_DOUBLE, I(u"1.7E+308"));
  EXPECT_EQ(I::MIN_DOUBLE, I(u"-1.7E+308"));
  I copy = I::MAX_DOUBLE;
  copy += I(1);
  EXPECT_EQ(copy - I::MAX_DOUBLE, I(1));
  EXPECT_EQ(I::MAX_DOUBLE.ToString(), u"17" + Repeat(307, u'0'));
}

struct TextCase {
  char const* name;
  char16_t const* text;
  char16_t const* printed;
};

// clang-format off
constexpr TextCase kTexts[] = {
    {"Null",              nullptr,           u"0"},
    {"Empty",             u"",               u"0"},
    {"Blanks",            u"   ",            u"0"},
    {"LeadingZeros",      u"0007",           u"7"},
    {"NegativeZero",      u"-0",             u"0"},
    {"SignAlone",         u"-",              u"0"},
    {"PlusIsJustNoDigit", u"+5",             u"5"},
    {"BlanksAround",      u"  -12 ",         u"-12"},
    {"TabBehind",         u"12\t",           u"0"},
    {"TabHidesSign",      u"\t-5",           u"5"},
    {"BlankInside",       u"12 34",          u"34"},
    {"SignInside",        u"1-2",            u"2"},
    {"SignInFrontCounts", u"-1+2",           u"-2"},
    {"AsDecimal",         u"1-2.0",          u"-12"},
    {"RoundsUp",          u"12.9",           u"13"},
    {"HalfTowardZero",    u"12.5",           u"12"},
    {"RoundsDown",        u"-12.51",         u"-13"},
    {"Exponent",          u"1E3",            u"1000"},
    {"Limbs",             u"-1000000000000000000", u"-1000000000000000000"},
    {"LongerThanInside",  u"1234567890123456789012345678901234567890123456789012345678901234567890",
                          u"1234567890123456789012345678901234567890123456789012345678901234567890"},
};

// What operator/ and operator% give, or the message by which they refuse.
struct OperatorCase {
  char const* name;
  char16_t const* left;
  char16_t const* right;
  char16_t const* quotient;
  char16_t const* remainder;
  bool isDivisorPositive;
};

constexpr char16_t const* kZeroDivisor = u"ERROR: Overflow in operator/.";
constexpr char16_t const* kNoRemainder = u"ERROR: Overflow in operator%.";

constexpr OperatorCase kDivisions[] = {
    {"Positive",          u"7",    u"2",    u"3",         u"1",         true},
    {"NegativeLeft",      u"-7",   u"2",    u"-3",        u"-1",        true},
    {"NegativeRight",     u"7",    u"-2",   u"-3",        kNoRemainder, false},
    {"BothNegative",      u"-7",   u"-2",   u"3",         kNoRemainder, false},
    {"LeftSmaller",       u"-1",   u"2",    u"0",         u"-1",        true},
    {"ZeroLeft",          u"-0",   u"5",    u"0",         u"0",         true},
    {"NoDigitsLeft",      u"-",    u"5",    u"0",         u"0",         true},
    {"Zero",              u"5",    u"0",    kZeroDivisor, kNoRemainder, false},
    {"ZeroByZero",        u"0",    u"0",    kZeroDivisor, kNoRemainder, false},
    {"NegativeZero",      u"5",    u"-0",   kZeroDivisor, kNoRemainder, false},
    {"NoDigits",          u"5",    u"+",    kZeroDivisor, kNoRemainder, false},
    {"EstimateTooLarge",  u"500000000000000000000000000", u"500000000000000001", u"999999999", u"499999999000000001", true},
    {"EstimateAddedBack", u"1000000000000000000678756320", u"500000000000000000999999999", u"1", u"499999999999999999678756321", true},
    {"AddedBackInside",   u"500000000999999999000000001000000000", u"500000000999999999999999999", u"999999999", u"500000000000000001999999999", true},
};
// clang-format on

class BigIntegerText : public testing::TestWithParam<TextCase> {};

TEST_P(BigIntegerText, PrintsWhatItReads) {
  EXPECT_EQ(I(GetParam().text).ToString(), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(Texts, BigIntegerText, testing::ValuesIn(kTexts), RowName());

TEST(BigInteger, TextThatIsNoNumberLeavesTheValue) {
  I value(7);
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { value.Parse(u" 12x"); }),
            u"The string representing a Decimal, contained an invalid char at position 3 [ 12x].");
  EXPECT_EQ(value, I(7));
}

class BigIntegerDivision : public testing::TestWithParam<OperatorCase> {};

std::u16string TextOf(auto const& operation) {
  std::u16string result;
  std::u16string const message =
      Thrown<CKestInvalidValueException>([&] { result = operation().ToString(); });
  return message == kNothingThrown ? result : message;
}

TEST_P(BigIntegerDivision, GivesQuotientAndRemainder) {
  OperatorCase const& row = GetParam();
  I const left(row.left);
  I const right(row.right);
  EXPECT_EQ(TextOf([&] { return left / right; }), row.quotient);
  EXPECT_EQ(TextOf([&] { return left % right; }), row.remainder);
  I quotient(left);
  I remainder(left);
  EXPECT_EQ(TextOf([&] { return quotient /= right; }),
            row.isDivisorPositive ? row.quotient : u"ERROR: Overflow in operator /=.");
  EXPECT_EQ(TextOf([&] { return remainder %= right; }),
            row.isDivisorPositive ? row.remainder : u"ERROR: Overflow in operator%=.");
}

INSTANTIATE_TEST_SUITE_P(Operators, BigIntegerDivision, testing::ValuesIn(kDivisions), RowName());

TEST(BigInteger, IsMadeFromNumbers) {
  EXPECT_EQ(I(std::numeric_limits<unsigned>::max()).ToString(), u"4294967295");
  EXPECT_EQ(I(UINT64_MAX).ToString(), u"18446744073709551615");
  EXPECT_EQ(I(2.5).ToString(), u"2");
  EXPECT_EQ(I(3.5).ToString(), u"3");
  EXPECT_EQ(I(0.4).ToString(), u"0");
  EXPECT_EQ(I(-2.6).ToString(), u"-3");
  EXPECT_EQ(I(1e22).ToString(), Repeat(1, u'1') + Repeat(22, u'0'));
  EXPECT_EQ(I(CDecimal(u"-12.51")).ToString(), u"-13");
  for (double const value :
       {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { I{value}; }),
              u"ERROR: Value out of bound of double.");
  }
}

TEST(BigInteger, ConvertsToInt) {
  EXPECT_EQ(static_cast<int>(I(INT32_MIN)), INT32_MIN);
  EXPECT_EQ(static_cast<int>(I(u"2147483647")), INT32_MAX);
  for (char16_t const* text : {u"2147483648", u"-2147483649"}) {
    EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { static_cast<void>(int{I(text)}); }),
              u"ERROR: Value out of bound of int.");
  }
}

// The sum has 64 bits, but its parts have 32.
TEST(BigInteger, ConvertsTo64BitsInPartsOf32) {
  auto const convert = [](I const& value) { return static_cast<std::int64_t>(value); };
  EXPECT_EQ(convert(u"-4294967296"), -4294967296);
  EXPECT_EQ(convert(u"4999999999"), 4999999999);
  EXPECT_EQ(convert(u"5000000000"), 705032704);
  EXPECT_EQ(convert(u"9999999999"), 1410065407);
  EXPECT_EQ(convert(u"10000000000"), 1410065408);
  EXPECT_EQ(convert(u"-12345678901"), -3755744309);
  EXPECT_EQ(convert(I::MAX_LONGLONG), 25769803775);
  for (I const& value : {I::MAX_LONGLONG + I(1), I::MIN_LONGLONG - I(1)}) {
    EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { convert(value); }),
              u"ERROR: Value out of bound of LONGLONG.");
  }
}

// It converts from and to machine integers, and yet the operators are not ambiguous.
TEST(BigInteger, CalculatesWithMachineIntegers) {
  I const value = I::Pow10(20);
  auto const expect = [&](auto two) {
    EXPECT_EQ((two + value).ToString(), u"100000000000000000002");
    EXPECT_EQ(value - two - (value + two), I(-4));
    EXPECT_EQ(two * value, value * two);
    EXPECT_EQ(value / two % 7, I(u"50000000000000000000") % I(7));
    EXPECT_TRUE(value != two && two == I(2) && two < value && value > two);
    EXPECT_TRUE(two <= I(2) && I(2) >= two);
  };
  expect(2);
  expect(2U);
  expect(2L);
  expect(2UL);
  expect(2LL);
  expect(2ULL);
  expect(short{2});
  expect(static_cast<unsigned char>(2));
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { value / 0; }), kZeroDivisor);
}

TEST(BigInteger, UnaryMinusChangesItsOperand) {
  I value(3);
  EXPECT_EQ(&-value, &value);
  EXPECT_EQ(value, I(-3));
  EXPECT_EQ(value.GetNegative(), I(3));
  EXPECT_EQ(value.GetAbs(), I(3));
  value.Abs();
  EXPECT_EQ(value, I(3));
}

TEST(BigInteger, NegativeZeroIsEqualToZeroAndLess) {
  I const zero;
  I const negative = zero.GetNegative();
  EXPECT_TRUE(negative == zero);
  EXPECT_TRUE(negative < zero);
  EXPECT_FALSE(zero <= negative);
  EXPECT_FALSE(I(u"-") == zero);  // a number without digits
  EXPECT_TRUE(I(u"+") < zero);
}

TEST(BigInteger, ProductInPlaceLosesItsMinus) {
  I value(-3);
  EXPECT_EQ((value * I(2)).ToString(), u"-6");
  value *= I(2);
  EXPECT_EQ(value.ToString(), u"6");
  EXPECT_FALSE(value == I(6));  // its sign is 65535, which is like no other
  EXPECT_FALSE(value == I(-6));
  EXPECT_TRUE(value < I(7));
  EXPECT_TRUE(value < I(-7));
  EXPECT_EQ((value + I(2)).ToString(), u"4");
  EXPECT_EQ((value * value).ToString(), u"36");  // 65535 squared is no sign that prints either
  value *= I(-1);
  EXPECT_EQ(value, I(6));
}

TEST(BigInteger, ZeroHasNoSquareRoot) {
  EXPECT_EQ(I(10000).SquareRoot(), I(100));
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { I().SquareRoot(); }), kZeroDivisor);
  EXPECT_EQ(Thrown<CKestInvalidValueException>([] { I(-4).SquareRoot(); }),
            u"ERROR: Negative Number in function SquareRoot().");
}

TEST(BigInteger, FiftyFourDigitsTakeNoMemory) {
  std::u16string const digits = Repeat(54, u'9');
  std::u16string const decimal = digits + u"." + Repeat(30, u'9');
  auto const before = mallinfo2().uordblks;
  I const integer(digits.c_str());
  CDecimal const value(decimal.c_str());
  I const copy(integer);
  EXPECT_EQ(mallinfo2().uordblks, before);
  EXPECT_EQ(copy.ToString(), digits);
}

TEST(BigInteger, CopiesShareNothing) {
  I const large = I::Pow10(99);
  I copy(large);
  I moved(std::move(copy));
  copy = moved;
  moved += I(1);
  EXPECT_EQ(copy, large);
  copy = I(1);
  copy = large;
  I& self = copy;
  copy = self;
  copy = std::move(self);
  EXPECT_EQ(copy, large);
  EXPECT_EQ(moved - large, I(1));
}

// What classes derived from it may use.
struct Bare : CBigInteger {
  using CBigInteger::Add, CBigInteger::Build, CBigInteger::BuildDouble, CBigInteger::Compare,
      CBigInteger::Digits, CBigInteger::Divide, CBigInteger::Multiply, CBigInteger::Position,
      CBigInteger::Pow10, CBigInteger::ShiftLeft, CBigInteger::Subtract;
  Bare(int sign, Digits const& digits) : CBigInteger(sign, digits) {}
};

TEST(BigInteger, BareDigitsAreLeastSignificantFirst) {
  using Digits = Bare::Digits;
  EXPECT_EQ(Bare(-1, {3, 2, 1}).ToString(), u"-123");
  Digits number, result, rest;
  Bare::Build(120U, number);
  Bare::Build(u"x0099", result);
  Bare::Add(number, result, result);
  EXPECT_EQ(result, (Digits{9, 1, 2}));
  Bare::Subtract(result, number, result);
  Bare::Multiply(result, 9, result);
  EXPECT_EQ(result, (Digits{1, 9, 8}));
  Bare::Divide(result, number, result, rest);
  EXPECT_EQ(result, (Digits{7}));
  Bare::ShiftLeft(rest, 2);
  EXPECT_EQ(rest, (Digits{0, 0, 1, 5}));
  Bare::Pow10(3, result);
  EXPECT_EQ(Bare::Compare(result, rest), -1);
  EXPECT_EQ(Bare::Position(Digits()), 1);
  Bare::BuildDouble(12.6, result);
  EXPECT_EQ(result, (Digits{3, 1}));
}

}  // namespace
}  // namespace KestXmlLib20
