// The collections of values, those of dates among them.
#include "kestxml/collections/value_cols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

#include "kestxml/collections/date_cols.h"
#include "tests/collections/event_log.h"
#include "tests/collections/value_col.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

static_assert(std::is_same_v<ChexBinaryCol::Argument, CBinaryData const&>);
static_assert(std::is_same_v<CstringCol::Argument, std::u16string>);
static_assert(
    std::is_same_v<decltype(std::declval<CbooleanCol&>().begin()), std::vector<bool>::iterator>,
    "and so they are packed");

template <typename Col>
CSmartPtr<CXmlTypeCollection> Make(ColArguments const& arguments) {
  return MakeCol<Col>(arguments).Get();
}

// A value as it is read and written, the kind that writers are told, and facets that refuse it.
struct KindCase {
  char const* name;
  CSmartPtr<CXmlTypeCollection> (*make)(ColArguments const& arguments);
  ItemType itemType;
  char16_t const *read, *written;
  ColArguments facets;
  char16_t const* refusal;
};

// clang-format off
KindCase const kKinds[] = {
    {"hexBinary", Make<ChexBinaryCol>, ItemType_hexBinary, u" 00aFfF ", u"00AFFF", {.maxLength = 2}, u"Invalid Value for v [00AFFF]."},
    {"base64Binary", Make<Cbase64BinaryCol>, ItemType_base64Binary, u" AAEC AwQ= ", u"AAECAwQ=", {.length = 4}, u"Invalid Value for v [AAECAwQ=]."},
    {"i1", Make<Ci1Col>, ItemType_i1, u" -128 ", u"-128", {.minInclusive = u"-127"}, u"Invalid Value for v [-128]"},
    {"i1TooLarge", Make<Ci1Col>, ItemType_i1, u"1", u"1", {.maxInclusive = u"128"}, u"The value [128] is to large to fit in a i1\nInvalid Value for v [1]."},
    {"i2", Make<Ci2Col>, ItemType_i2, u" 32767 ", u"32767", {.maxInclusive = u"32766"}, u"Invalid Value for v [32767]"},
    {"i4", Make<Ci4Col>, ItemType_i4, u" -2147483648 ", u"-2147483648", {.totalDigits = 10}, u"Invalid Value for v [-2147483648]"},
    {"i8", Make<Ci8Col>, ItemType_i8, u" -9223372036854775808 ", u"-9223372036854775808", {.minExclusive = u"-9223372036854775808"}, u"Invalid Value for v [-9223372036854775808]."},
    {"ui1", Make<Cui1Col>, ItemType_ui1, u" 255 ", u"255", {.maxExclusive = u"255"}, u"Invalid Value for v [255]"},
    {"ui2", Make<Cui2Col>, ItemType_ui2, u" 65535 ", u"65535", {.maxInclusive = u"9"}, u"Invalid Value for v [65535]"},
    {"ui4", Make<Cui4Col>, ItemType_ui4, u" 4294967295 ", u"4294967295", {.maxInclusive = u"9"}, u"Invalid Value for v [-1]"},
    {"ui8", Make<Cui8Col>, ItemType_ui8, u" 18446744073709551615 ", u"18446744073709551615", {.maxInclusive = u"9"}, u"Invalid Value for v [18446744073709551615]."},
    {"r4", Make<Cr4Col>, ItemType_r4, u" 1.50 ", u"1.5", {.maxInclusive = u"1"}, u"Invalid Value for v [1.500000]"},
    {"r4InAFormat", Make<Cr4Col>, ItemType_r4, u"0.375", u"0.38", {.maxInclusive = u"0", .format = u"%.2f"}, u"Invalid Value for v [0.375000]"},
    {"r8", Make<Cr8Col>, ItemType_r8, u" -INF ", u"-INF", {.minInclusive = u"0"}, u"Invalid Value for v [-inf]"},
    {"r8InAFormat", Make<Cr8Col>, ItemType_r8, u"1e3", u"1000.0", {.maxInclusive = u"0", .format = u"%.1f"}, u"Invalid Value for v [1000.000000]"},
    {"duration", Make<CdurationCol>, ItemType_duration, u" P1Y0M40D ", u"P1Y40D", {.maxInclusive = u"P1Y"}, u"Invalid Value for v [P1Y40D]."},
    {"year", Make<CyearCol>, ItemType_year, u" 0987 ", u"987", {.maxInclusive = u"0986"}, u"Invalid Value for v [987]"},
    {"yearOfADate", Make<CyearCol>, ItemType_year, u"1987-06-05", u"1987", {.maxInclusive = u"--07"}, u"Failed to GetYear. Invalid Date Type: gMonth.\nInvalid Value for v [1987]."},
    {"month", Make<CmonthCol>, ItemType_month, u" --07Z ", u"--07", {.minInclusive = u"--08"}, u"Invalid Value for v [7]"},
    {"day", Make<CdayCol>, ItemType_day, u" ---05 ", u"---05", {.maxExclusive = u"---05"}, u"Invalid Value for v [5]"},
    // Writers are told of the one kind of date that they know.
    {"date", Make<CdateCol>, ItemType_datetime, u" 1987-06-05Z ", u"1987-06-05Z", {.minInclusive = u"1987-06-06Z"}, u"Invalid Value for v [1987-06-05Z]."},
    {"datetime", Make<CdatetimeCol>, ItemType_datetime, u" 1987-06-05T04:03:02.1 ", u"1987-06-05T04:03:02.1", {.maxInclusive = u"1987-06-05T04:03:02"}, u"Invalid Value for v [1987-06-05T04:03:02.1]."},
    {"time", Make<CtimeCol>, ItemType_datetime, u" 04:03:02+01:00 ", u"04:03:02+01:00", {.maxExclusive = u"04:03:02+01:00"}, u"Invalid Value for v [04:03:02+01:00]."},
    {"monthDay", Make<CmonthDayCol>, ItemType_datetime, u" --02-29 ", u"--02-29", {.minExclusive = u"--02-29"}, u"Invalid Value for v [--02-29]."},
    {"yearMonth", Make<CyearMonthCol>, ItemType_datetime, u" 1987-06 ", u"1987-06", {.maxInclusive = u"1987-05"}, u"Invalid Value for v [1987-06]."},
    {"string", Make<CstringCol>, ItemType_string, u" a \n\t b ", u"a b", {.pattern = u"[a-z]+"}, u"Invalid Value for v [a b]."},
    {"true", Make<CbooleanCol>, ItemType_boolean, u" 1 ", u"true", {.pattern = u"no", .maxLength = 0, .maxInclusive = u"no"}, nullptr},
    {"false", Make<CbooleanCol>, ItemType_boolean, u"FALSE", u"false", {}, nullptr},
    {"decimal", Make<CdecimalCol>, ItemType_decimal, u" -01.50 ", u"-1.5", {.fractionDigits = 0}, u"Invalid Value for v [-1.5]."},
    {"decimalInAFormat", Make<CdecimalCol>, ItemType_decimal, u"1.5", u"1.50", {.totalDigits = 1, .format = u"2"}, u"Invalid Value for v [1.5]."},
    {"integer", Make<CintegerCol>, ItemType_integer, u" -123456789012345678901 ", u"-123456789012345678901", {.minInclusive = u"-123456789012345678900"}, u"Invalid Value for v [-123456789012345678901]."},
};
// clang-format on

std::u16string Elements(std::u16string const& text) {
  return u"<v>" + text + u"</v><v>" + text + u"</v>";
}

class ValueCollection : public testing::TestWithParam<KindCase> {};

TEST_P(ValueCollection, WritesWhatItReads) {
  KindCase const& row = GetParam();
  CSmartPtr<CXmlTypeCollection> const values = row.make({.format = row.facets.format});
  EXPECT_EQ(Read(*values, Elements(row.read) + u"<w/>"), u"w");
  ASSERT_EQ(values->GetCount(), 2);
  auto const [xml, kinds] = Write(*values);
  EXPECT_EQ(xml, Elements(row.written));
  EXPECT_EQ(kinds, std::vector(2, row.itemType));
}

// Of the elements, the first is to blame. A refused addition has been announced, but for dates.
TEST_P(ValueCollection, ChecksWhatItReads) {
  KindCase const& row = GetParam();
  CSmartPtr<CXmlTypeCollection> const values = row.make(row.facets);
  EventLog log;
  values->AddEventListener(&log);
  EXPECT_EQ(Thrown([&] { Read(*values, Elements(row.read)); }),
            row.refusal ? row.refusal : kNothingThrown);
  EXPECT_EQ(values->GetCount(), row.refusal ? 0 : 2);
  Events const allowed{"+", "+!", "~", "+", "+!", "~"};
  bool const isOfDates = dynamic_cast<CdatetimeBaseCol const*>(values.Get());
  EXPECT_EQ(log.events, !row.refusal ? allowed : isOfDates ? Events{} : Events{"+"});
}

INSTANTIATE_TEST_SUITE_P(Kinds, ValueCollection, testing::ValuesIn(kKinds), RowName());

class Integers : public testing::Test {
 protected:
  Integers() { Make(); }

  void Make() {
    values = MakeCol<Ci4Col>({.maxInclusive = u"99"});
    values->Add(10);
    values->Add(11);
    log = {};
    values->AddEventListener(&log);
  }

  std::vector<std::int32_t> Values() const { return {values->begin(), values->end()}; }

  EventLog log;
  CSmartPtr<Ci4Col> values;
};

TEST_F(Integers, TellOfEachChangeAndOfThoseThatFail) {
  // clang-format off
  struct {
    char const* name; std::function<void()> operation; std::vector<std::int32_t> values; Events events; char16_t const* message;
  } const rows[] = {
      {"AddAtFront",     [&] { values->AddAt(0, 9); },   {9, 10, 11}, {"+", "+!", "~"},   kNothingThrown},
      {"AddInBetween",   [&] { values->AddAt(1, 9); },   {10, 9, 11}, {"+", "+!", "~"},   kNothingThrown},
      {"AddAtCount",     [&] { values->AddAt(2, 9); },   {10, 11, 9}, {"+", "+!", "~"},   kNothingThrown},
      {"AddBelow0",      [&] { values->AddAt(-1, 9); },  {10, 11},    {"+"},              u"Index out of range"},
      {"AddBeyondCount", [&] { values->AddAt(3, 999); }, {10, 11},    {"+"},              u"Index out of range"},
      {"ItemBelow0",     [&] { values->Item(-1); },      {10, 11},    {},                 u"Index -1 is out of range, use 0 - 2"},
      {"ItemAtCount",    [&] { values->Item(2); },       {10, 11},    {},                 u"Index 2 is out of range, use 0 - 2"},
      // The index of "-!" is always 0.
      {"RemoveFirst",    [&] { values->Remove(0); },     {11},        {"-0", "-!0", "~"}, kNothingThrown},
      {"RemoveLast",     [&] { values->Remove(1); },     {10},        {"-1", "-!0", "~"}, kNothingThrown},
      {"RemoveBeyond",   [&] { values->Remove(7); },     {10, 11},    {"-7"},             u"Index 7 is out of range, use 0 - 2"},
      {"RemoveBelow0",   [&] { values->Remove(-1); },    {10, 11},    {"-"},              u"Index -1 is out of range, use 0 - 2"},
      {"Clear",          [&] { values->Clear(); },       {},          {"-0", "-!0", "~", "-0", "-!0", "~"}, kNothingThrown},
  };
  // clang-format on
  for (auto const& [name, operation, after, events, message] : rows) {
    SCOPED_TRACE(name);
    Make();
    EXPECT_EQ(Thrown<CKestInvalidParamException>(operation), message);
    EXPECT_EQ(Values(), after);
    EXPECT_EQ(log.events, events);
  }
}

TEST_F(Integers, TellNobodyAtTheEnd) {
  values = nullptr;
  EXPECT_EQ(log.events, Events{});
}

TEST_F(Integers, AreNotCheckedWhenTheyAreChangedInPlace) {
  *values->begin() = 100;
  EXPECT_EQ(Values(), (std::vector{100, 11}));
}

TEST_F(Integers, AreCountedWhenTheyAreWritten) {
  CSerializationContext context;
  CSmartPtr<Ci4Col> const two = MakeCol<Ci4Col>({.minOccurs = 2, .maxOccurs = 2});
  EXPECT_EQ(Read(*two, u"<v>1</v>"), u"");
  EXPECT_EQ(Thrown<CKestValidationException>([&] { Write(*two); }),
            u"The Minimum number of [v] elements allowed in this collection is 2");
  context.SetIgnoreInvalidCollectionCounts(true);
  EXPECT_EQ(Write(*two, context).xml, u"<v>1</v>");
}

TEST_F(Integers, AreReadUpToAnotherName) {
  CSerializationContext ignoring;
  ignoring.SetIgnoreNamespaces(true);
  // clang-format off
  struct {
    char16_t const* children; CSerializationContext const& context; std::vector<std::int32_t> values; char16_t const* next;
  } const rows[] = {
      {u"",                                   {},       {10, 11},       u""},
      {u"<w/><v>1</v>",                       {},       {10, 11},       u"w"},
      {u"<v>1</v> <v><x/>2</v><V/>",          {},       {10, 11, 1, 2}, u"V"},
      {u"<v>1</v><v xmlns='urn:x'>2</v>",     {},       {10, 11, 1},    u"v"},
      {u"<v>1</v><v xmlns='urn:x'>2</v><w/>", ignoring, {10, 11, 1, 2}, u"w"},
  };
  // clang-format on
  for (auto const& [children, context, after, next] : rows) {
    SCOPED_TRACE(ToUtf8(children));
    Make();
    EXPECT_EQ(Read(*values, children, context), next);
    EXPECT_EQ(Values(), after);
  }
}

// Notes the values that events carry.
template <typename T>
struct ValueLog : EventLog {
  void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
    EventLog::OnEvent(from, type, data);
    if (data && type != MsgType_CollectionRemove) values.push_back(*static_cast<T*>(data));
  }
  std::vector<T> values;
};

TEST(Values, AreAnnouncedAsTheyWereGiven) {
  std::u16string const text = u"  more than fits into a string object";
  ValueLog<std::u16string> log;
  CSmartPtr<CstringCol> const texts = MakeCol<CstringCol>();
  texts->AddEventListener(&log);
  texts->Add(text);
  EXPECT_EQ(log.values, (std::vector{text, text}));
  EXPECT_EQ(log.items[0], log.items[1]);
  EXPECT_EQ(log.sender, texts->GetBase());
  EXPECT_EQ(texts->Item(0), text) << "the whitespace rule is for text that is read";
}

TEST(Values, MayBeAddedFromTheirOwnCollection) {
  CBinaryData const bytes(std::string_view("a"));
  ValueLog<CBinaryData> log;
  CSmartPtr<ChexBinaryCol> const values = MakeCol<ChexBinaryCol>();
  values->Add(bytes);
  values->AddEventListener(&log);
  for (int turn = 0; turn < 9; ++turn) values->AddAt(0, *values->begin());
  EXPECT_EQ(log.values, std::vector(18, bytes));
}

TEST(Values, EndWhenTheyAreRemoved) {
  CBinaryData bytes(std::string_view("a"));
  unsigned char const* const data = bytes.GetData();
  CSmartPtr<ChexBinaryCol> const values = MakeCol<ChexBinaryCol>();
  values->Add(bytes);
  for (int i = 0; i < 7; ++i) values->Add({});
  values->Remove(0);
  bytes[0] = 'b';
  EXPECT_EQ(bytes.GetData(), data) << "nobody shares it";

  internal::ValueVector<std::u16string> texts;
  for (int i = 0; i < 8; ++i) texts.Insert(i, std::u16string(1000, u'a'));
  auto const gone = texts.begin();
  texts.Erase(0);
  EXPECT_LT(gone->capacity(), 1000U) << "nor is memory kept for it";
}

TEST(Dates, AreOfOneType) {
  // clang-format off
  struct {
    CSmartPtr<CdatetimeBaseCol> values; char16_t const* message;
  } const rows[] = {
      {MakeCol<CdatetimeCol>().Get(),  u"Dates added to this collection must be of type dt_dateTime"},
      {MakeCol<CdateCol>().Get(),      u"Dates added to this collection must be of type dt_date"},
      {MakeCol<CyearMonthCol>().Get(), u"Dates added to this collection must be of type dt_gYearMonth"},
      {MakeCol<CtimeCol>().Get(),      u"Dates added to this collection must be of type dt_time"},
      {MakeCol<CmonthDayCol>().Get(),  u"Dates added to this collection must be of type dt_gMonthDay"},
  };
  // clang-format on
  for (auto const& [values, message] : rows) {
    EventLog log;
    values->AddEventListener(&log);
    auto const add = [&, &dates = *values] { dates.AddAt(7, CDateTime(CDateTime::dt_gYear)); };
    EXPECT_EQ(Thrown<CKestInvalidParamException>(add), message);
    EXPECT_EQ(log.events, Events{});
  }
}

TEST(Dates, AreAnnouncedAsOtherValues) {
  EventLog log;
  CSmartPtr<CdateCol> const dates = MakeCol<CdateCol>();
  dates->AddEventListener(&log);
  EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { dates->AddAt(1, CDateTime(1987, 6, 5)); }),
            u"Index out of range");
  dates->Add(CDateTime(1987, 6, 5));
  dates->Add(*dates->begin());
  dates->Remove(1);
  EXPECT_EQ(log.events, (Events{"+", "+", "+!", "~", "+", "+!", "~", "-1", "-!0", "~"}));
  EXPECT_EQ(dates->ItemToString(dates->Item(0)), u"1987-06-05");
  EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { dates->Item(1); }),
            u"Index 1 is out of range, use 0 - 1");
}

// Whatever mix of operations, the values are those of a plain vector.
template <typename Col>
void CompareWithVector() {
  using T = decltype(std::declval<Col>().Item(0));
  std::vector<T> expected;
  CSmartPtr<Col> const values = MakeCol<Col>();
  std::minstd_rand random(1);
  for (std::size_t turn = 0; turn < 20'000; ++turn) {
    T const value = random() % 2 != 0;
    auto const at = static_cast<std::ptrdiff_t>(random() % (expected.size() + 1));
    bool const grows = turn / 500 % 2 == 0;
    if (random() % 3 < (grows ? 2 : 1) || expected.empty()) {
      values->AddAt(static_cast<std::int32_t>(at), value);
      expected.insert(expected.begin() + at, value);
    } else {
      auto const place = random() % 2 == 0 || at == std::ssize(expected) ? 0 : at;
      values->Remove(static_cast<std::int32_t>(place));
      expected.erase(expected.begin() + place);
    }
    ASSERT_TRUE(std::ranges::equal(*values, expected)) << turn;
  }
}
TEST(Values, FollowChangesAnywhere) {
  CompareWithVector<Ci4Col>();
  CompareWithVector<CbooleanCol>();
}

// Quadratic work would take minutes.
TEST(Values, OfAMillionAreRemovedFromTheFront) {
  constexpr std::int32_t kCount = 1'000'000;
  CSmartPtr<Ci4Col> const values = MakeCol<Ci4Col>();
  for (std::int32_t i = 0; i < kCount; ++i) values->Add(i);
  for (std::int32_t i = 0; i < kCount; ++i) {
    values->Add(i);
    values->Remove(0);
  }
  EXPECT_EQ(values->Item(kCount - 1), kCount - 1);
  values->Clear();
  EXPECT_EQ(values->begin(), values->end());
}

}  // namespace
}  // namespace KestXmlLib20
