#include "kestxml/values/kest_variant.h"

#include <gtest/gtest.h>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/decimal.h"
#include "tests/model/bare_object.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

constexpr auto kNone = CWhitespaceUtils::WhitespaceRule_None;

// A setter with its value, bound.
using Set = void (*)(KestVariant&);

CBinaryData Bytes() {
  unsigned char bytes[] = {0x0A, 0xFF};
  return {bytes, 2, false};
}

CDateTime Dated(CDateTime::DTType type) {
  CDateTime value;
  value.SetDateTime(CDateTime(2004, 7, 9, 10, 11, 12), type);
  return value;
}

struct KindCase {
  ItemType type;
  char16_t const* name;
  Set set;
  char16_t const* text;
};

// clang-format off
constexpr KindCase kKinds[] = {
    {ItemType_hexBinary,    u"hexBinary",    [](KestVariant& v) { v.SetHexBinary(Bytes()); },    u"0AFF"},
    {ItemType_base64Binary, u"base64Binary", [](KestVariant& v) { v.SetBase64Binary(Bytes()); }, u"Cv8="},
    {ItemType_i1,      u"i1",      [](KestVariant& v) { v.SetI1(-1); },           u"-1"},
    {ItemType_i2,      u"i2",      [](KestVariant& v) { v.SetI2(-2); },           u"-2"},
    {ItemType_i4,      u"i4",      [](KestVariant& v) { v.SetI4(-4); },           u"-4"},
    {ItemType_i8,      u"i8",      [](KestVariant& v) { v.SetI8(INT64_MIN); },    u"-9223372036854775808"},
    {ItemType_ui1,     u"ui1",     [](KestVariant& v) { v.SetUI1(255); },         u"255"},
    {ItemType_ui2,     u"ui2",     [](KestVariant& v) { v.SetUI2(65535); },       u"65535"},
    {ItemType_ui4,     u"ui4",     [](KestVariant& v) { v.SetUI4(UINT32_MAX); },  u"4294967295"},
    {ItemType_ui8,     u"ui8",     [](KestVariant& v) { v.SetUI8(UINT64_MAX); },  u"18446744073709551615"},
    {ItemType_r4,      u"r4",      [](KestVariant& v) { v.SetR4(0.25F); },        u"0.25"},
    {ItemType_r8,      u"r8",      [](KestVariant& v) { v.SetR8(-0.5); },         u"-0.5"},
    {ItemType_duration,  u"duration",  [](KestVariant& v) { v.SetDuration(CDateTimeSpan(2, 0, 0)); },           u"PT2H"},
    {ItemType_yearMonth, u"yearMonth", [](KestVariant& v) { v.SetYearMonth(Dated(CDateTime::dt_gYearMonth)); }, u"2004-07"},
    {ItemType_monthDay,  u"monthDay",  [](KestVariant& v) { v.SetMonthDay(Dated(CDateTime::dt_gMonthDay)); },   u"--07-09"},
    {ItemType_date,      u"date",      [](KestVariant& v) { v.SetDate(Dated(CDateTime::dt_date)); },            u"2004-07-09"},
    {ItemType_datetime,  u"datetime",  [](KestVariant& v) { v.SetDateTime(Dated(CDateTime::dt_dateTime)); },    u"2004-07-09T10:11:12"},
    {ItemType_time,      u"time",      [](KestVariant& v) { v.SetTime(Dated(CDateTime::dt_time)); },            u"10:11:12"},
    {ItemType_year,    u"year",    [](KestVariant& v) { v.SetYear(2004); },       u"2004"},
    {ItemType_month,   u"month",   [](KestVariant& v) { v.SetMonth(7); },         u"--07"},
    {ItemType_day,     u"day",     [](KestVariant& v) { v.SetDay(7); },           u"---07"},
    {ItemType_char,    u"char",    [](KestVariant& v) { v.SetChar(u'\u20AC'); },  u"\u20AC"},
    {ItemType_string,  u"string",  [](KestVariant& v) { v.SetString(u" s "); },   u" s "},
    {ItemType_boolean, u"boolean", [](KestVariant& v) { v.SetBoolean(true); },    u"true"},
    {ItemType_decimal, u"decimal", [](KestVariant& v) { v.SetDecimal(u"-1.05"); }, u"-1.05"},
    {ItemType_integer, u"integer", [](KestVariant& v) { v.SetInteger(u"12345678901234567890"); }, u"12345678901234567890"},
};
// clang-format on

TEST(Variant, EveryKindIsStoredNamedWrittenAndCopied) {
  KestVariant value;
  for (KindCase const& row : kKinds) {
    SCOPED_TRACE(row.type);
    row.set(value);  // over the kind before
    EXPECT_EQ(value.GetTypeAsEnum(), row.type);
    EXPECT_EQ(value.GetType(), row.name);
    EXPECT_EQ(value.ToString(), row.text);
    bool const real = row.type == ItemType_r4 || row.type == ItemType_r8;
    EXPECT_EQ(value.ToString(u"%%") == u"%", real);  // only they look at the format
    KestVariant copy(value);
    EXPECT_EQ(copy.ToString(), row.text);
    KestVariant const moved = std::move(copy);
    EXPECT_EQ(moved.ToString(), row.text);
    value.FromString(row.text, row.type, kNone);
    EXPECT_EQ(value.GetTypeAsEnum(), row.type);
    EXPECT_EQ(value.ToString(), row.text);
    EXPECT_FALSE(copy.IsValid());  // NOLINT: what moving leaves is what is asked
  }
}

TEST(Variant, KindsWithoutNameOrText) {
  KestVariant value;
  EXPECT_EQ(Thrown([&] { value.GetType(); }), u"Invalid Type 0");
  EXPECT_EQ(Thrown([&] { value.ToString(); }), u"Invalid Type 0 to convert to string");
  value.SetXmlObject(nullptr);
  EXPECT_EQ(Thrown([&] { value.GetType(); }), u"Invalid Type 27");
  EXPECT_EQ(Thrown([&] { value.ToString(); }), u"Invalid Type 27 to convert to string");
}

TEST(Variant, FailedReadLeavesTheValue) {
  KestVariant value;
  value.SetI4(12);
  EXPECT_EQ(Thrown<CKestInvalidValueException>([&] { value.FromString(u"x", ItemType_r8, kNone); }),
            u"The value [x] can not be converted to a r8");
  // The number is that of the kind it has, not of the kind asked for.
  for (int const type : {0, 27, 28, 29, -1}) {
    EXPECT_EQ(Thrown([&] { value.FromString(u"1", static_cast<ItemType>(type), kNone); }),
              u"Invalid Type 5 to convert to string");
  }
  EXPECT_EQ(value.GetI4(), 12);
}

TEST(Variant, NilHasAKindAndNoValue) {
  KestVariant value;
  value.SetString(u"s");
  value.SetNil();
  KestVariant const copy(value);
  EXPECT_TRUE(copy.IsNil());
  EXPECT_TRUE(copy.IsValid());
  EXPECT_EQ(copy.GetTypeAsEnum(), ItemType_string);
  EXPECT_EQ(copy.GetString(), u"");
  value.SetI4(1);
  EXPECT_FALSE(value.IsNil());
}

TEST(Variant, NilWithoutAKindIsHardToLose) {
  KestVariant value;
  value.SetNil();
  value.Clear();
  value.SetInvalid();
  EXPECT_TRUE(value.IsValid());
  value.SetI4(4);
  EXPECT_TRUE(value.IsNil());
  EXPECT_EQ(value.GetI4(), 4);
  EXPECT_EQ(KestVariant(value).GetI4(), 0);  // a copy of a nil takes no value along
  value.Clear();
  EXPECT_FALSE(value.IsValid());

  value.SetNil();
  value = KestVariant();
  EXPECT_FALSE(value.IsValid());
}

TEST(Variant, ScalarsShareTheirBytes) {
  KestVariant value;
  value.SetI2(-2);
  EXPECT_EQ(value.GetUI1(), 0xFE);
  EXPECT_EQ(value.GetDay(), 0xFE);
  EXPECT_EQ(value.GetYear(), 0xFFFE);
  EXPECT_EQ(value.GetI4(), 0xFFFE);  // what no value has filled is zero
  EXPECT_TRUE(value.GetBoolean());
}

TEST(Variant, GettersOfWhatIsNotThereAreEmpty) {
  KestVariant value;
  value.SetString(static_cast<char16_t const*>(nullptr));
  EXPECT_EQ(value.ToString(), u"");
  value.SetI8(-1);
  EXPECT_EQ(value.GetString(), u"");
  EXPECT_EQ(value.GetHexBinary().GetData(), nullptr);
  EXPECT_EQ(value.GetXmlObject(), nullptr);
  EXPECT_EQ(value.GetDecimal(), 0);
  EXPECT_EQ(value.GetInteger(), CBigInteger(0));
  value.SetHexBinary(Bytes());
  EXPECT_EQ(value.GetBase64Binary(), Bytes());  // both binary kinds store the same
}

TEST(Variant, DecimalsTakeANumberOfPlaces) {
  KestVariant value;
  value.SetDecimal(u"1.5");
  EXPECT_EQ(value.ToString(u"2"), u"1.50");
  EXPECT_EQ(value.ToString(u" +1 place"), u"1.5");
  EXPECT_EQ(value.ToString(u"none"), u"2.");
  EXPECT_EQ(value.ToString(u""), u"1.5");
  EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { value.ToString(u"99999999999"); }),
            u"Invalid number of decimal places [2147483647]");
  value.SetInteger(15);
  EXPECT_EQ(value.ToString(u"2"), u"15");
}

TEST(Variant, CopiesShareBytesUntilOneEnds) {
  KestVariant value;
  value.SetHexBinary(Bytes());
  KestVariant const copy(value);
  EXPECT_EQ(copy.GetHexBinary().GetData(), value.GetHexBinary().GetData());
  value.Clear();
  EXPECT_EQ(copy.ToString(), u"0AFF");
}

TEST(Variant, LendsAndGivesUpStrings) {
  std::u16string member = u"a text of some length";
  KestVariant lent;
  lent.SetStringReference(member);
  EXPECT_EQ(&lent.GetString(), &member);
  KestVariant const copy = lent;
  EXPECT_EQ(lent.TakeString(), u"a text of some length");
  member = u"changed";
  EXPECT_EQ(lent.ToString(), u"changed");
  EXPECT_EQ(copy.ToString(), u"a text of some length");

  KestVariant own = copy;
  char16_t const* const units = own.GetString().data();
  EXPECT_EQ(own.TakeString().data(), units);
  EXPECT_EQ(KestVariant().TakeString(), u"");
}

TEST(Variant, CountsItsReferences) {
  bool deleted = false;
  auto* const object = new BareObject(&deleted);
  KestVariant value;
  value.SetXmlObject(object);
  value.SetXmlObject(object);  // its last reference is not let go first
  EXPECT_FALSE(deleted);
  {
    KestVariant const copy(value);
    EXPECT_EQ(copy.GetXmlObject(), object);
    value.SetI4(1);
    EXPECT_FALSE(deleted);
  }
  EXPECT_TRUE(deleted);
}

TEST(Variant, AssignsToItself) {
  KestVariant value;
  value.SetString(u"s");
  KestVariant& self = value;
  value = self;
  value = std::move(self);
  EXPECT_EQ(value.GetString(), u"s");
}

}  // namespace
}  // namespace KestXmlLib20
