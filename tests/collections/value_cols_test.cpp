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

using Rule = CWhitespaceUtils;

template <typename Col, typename T, typename Argument>
constexpr bool Holds = std::is_same_v<decltype(std::declval<Col const&>().Item(0)), T>&&
    std::is_same_v<typename Col::Argument, Argument>&&
        std::is_same_v<typename std::vector<T>::iterator, decltype(std::declval<Col&>().begin())>;

static_assert(Holds<ChexBinaryCol, CBinaryData, CBinaryData const&>);
static_assert(Holds<Ci1Col, signed char, signed char>);
static_assert(Holds<Cui4Col, std::uint32_t, std::uint32_t>);
static_assert(Holds<CstringCol, std::u16string, std::u16string>);
static_assert(Holds<CbooleanCol, bool, bool>, "and so its values are packed");

template <typename Col>
CSmartPtr<CXmlTypeCollection> Make(ColArguments const& arguments) {
  return MakeCol<Col>(arguments).Get();
}

// A value as it is read and written, facets that refuse it, text that is no value, and what is then
// said.
struct KindCase {
  char const* name;
  CSmartPtr<CXmlTypeCollection> (*make)(ColArguments const& arguments);
  ItemType itemType;
  char16_t const *read, *written;
  ColArguments facets;
  char16_t const* refusal;
  char16_t const *malformed, *complaint;
};

// clang-format off
KindCase const kKinds[] = {
    {"hexBinary", Make<ChexBinaryCol>, ItemType_hexBinary, u" 00aFfF ", u"00AFFF",
     {.maxLength = 2}, u"Invalid Value for v [00AFFF].",
     u"0aF", u"Invalid length in hex string"},
    {"base64Binary", Make<Cbase64BinaryCol>, ItemType_base64Binary, u" AAEC AwQ= ", u"AAECAwQ=",
     {.length = 4}, u"Invalid Value for v [AAECAwQ=].", nullptr, nullptr},
    {"i1", Make<Ci1Col>, ItemType_i1, u" -128 ", u"-128",
     {.minInclusive = u"-127"}, u"Invalid Value for v [-128]",
     u"128", u"The value [128] is to large to fit in a i1"},
    {"i2", Make<Ci2Col>, ItemType_i2, u" 32767 ", u"32767",
     {.maxInclusive = u"32766"}, u"Invalid Value for v [32767]",
     u"-32769", u"The value [-32769] is to large to fit in a i2"},
    {"i4", Make<Ci4Col>, ItemType_i4, u" -2147483648 ", u"-2147483648",
     {.totalDigits = 10}, u"Invalid Value for v [-2147483648]",
     u"4x", u"The value [4x] can not be converted to a i4"},
    {"i8", Make<Ci8Col>, ItemType_i8, u" -9223372036854775808 ", u"-9223372036854775808",
     {.minExclusive = u"-9223372036854775808"}, u"Invalid Value for v [-9223372036854775808].",
     u"9223372036854775808", u"The value [9223372036854775808] is to large to fit in a i8"},
    {"ui1", Make<Cui1Col>, ItemType_ui1, u" 255 ", u"255",
     {.maxExclusive = u"255"}, u"Invalid Value for v [255]",
     u"256", u"The value [256] is to large to fit in a ui1"},
    {"ui2", Make<Cui2Col>, ItemType_ui2, u" 65535 ", u"65535",
     {.maxInclusive = u"9"}, u"Invalid Value for v [65535]",
     u"65536", u"The value [65536] is to large to fit in a ui2"},
    {"ui4", Make<Cui4Col>, ItemType_ui4, u" 4294967295 ", u"4294967295",
     {.maxInclusive = u"9"}, u"Invalid Value for v [-1]",
     u"4294967296", u"The value [4294967296] is to large to fit in a ui4"},
    {"ui8", Make<Cui8Col>, ItemType_ui8, u" 18446744073709551615 ", u"18446744073709551615",
     {.maxInclusive = u"9"}, u"Invalid Value for v [18446744073709551615].",
     u"", u"The value [] can not be converted to a ui8"},
    {"r4", Make<Cr4Col>, ItemType_r4, u" 1.50 ", u"1.5",
     {.maxInclusive = u"1"}, u"Invalid Value for v [1.500000]",
     u"inf", u"The value [inf] can not be converted to a r4"},
    {"r8", Make<Cr8Col>, ItemType_r8, u" -INF ", u"-INF",
     {.minInclusive = u"0"}, u"Invalid Value for v [-inf]",
     u"1,5", u"The value [1,5] can not be converted to a r8"},
    {"r4InAFormat", Make<Cr4Col>, ItemType_r4, u"0.375", u"0.38",
     {.maxInclusive = u"0", .format = u"%.2f"}, u"Invalid Value for v [0.375000]", nullptr, nullptr},
    {"r8InAFormat", Make<Cr8Col>, ItemType_r8, u"1e3", u"1000.0",
     {.maxInclusive = u"0", .format = u"%.1f"}, u"Invalid Value for v [1000.000000]", nullptr, nullptr},
    {"duration", Make<CdurationCol>, ItemType_duration, u" P1Y0M40D ", u"P1Y40D",
     {.maxInclusive = u"P1Y"}, u"Invalid Value for v [P1Y40D].",
     u"1Y", u"Invalid XSD Duration [1Y] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
    {"year", Make<CyearCol>, ItemType_year, u" 0987 ", u"987",
     {.maxInclusive = u"0986"}, u"Invalid Value for v [987]",
     u"--07", u"Failed to GetYear. Invalid Date Type: gMonth."},
    {"yearOfADate", Make<CyearCol>, ItemType_year, u"1987-06-05", u"1987", {}, nullptr, nullptr, nullptr},
    {"month", Make<CmonthCol>, ItemType_month, u" --07Z ", u"--07",
     {.minInclusive = u"--08"}, u"Invalid Value for v [7]",
     u"---05", u"Failed to GetMonth. Invalid Date Type: gDay."},
    {"day", Make<CdayCol>, ItemType_day, u" ---05 ", u"---05",
     {.maxExclusive = u"---05"}, u"Invalid Value for v [5]",
     u"1987", u"Failed to GetDay. Invalid Date Type: gYear."},
    // Writers are told of the one kind of date that they know.
    {"date", Make<CdateCol>, ItemType_datetime, u" 1987-06-05Z ", u"1987-06-05Z",
     {.minInclusive = u"1987-06-06Z"}, u"Invalid Value for v [1987-06-05Z].",
     u"1987-06", u"Dates added to this collection must be of type dt_date"},
    {"datetime", Make<CdatetimeCol>, ItemType_datetime, u" 1987-06-05T04:03:02.1 ", u"1987-06-05T04:03:02.1",
     {.maxInclusive = u"1987-06-05T04:03:02"}, u"Invalid Value for v [1987-06-05T04:03:02.1].",
     u"1987-06-05", u"Invalid XSD DateTime [1987-06-05]."},
    {"time", Make<CtimeCol>, ItemType_datetime, u" 04:03:02+01:00 ", u"04:03:02+01:00",
     {.maxExclusive = u"04:03:02+01:00"}, u"Invalid Value for v [04:03:02+01:00].",
     u"04:03", u"Invalid XSD Time [04:03] expected hh:mm:ss[.ff]"},
    {"monthDay", Make<CmonthDayCol>, ItemType_datetime, u" --02-29 ", u"--02-29",
     {.minExclusive = u"--02-29"}, u"Invalid Value for v [--02-29].",
     u"--02", u"Dates added to this collection must be of type dt_gMonthDay"},
    {"yearMonth", Make<CyearMonthCol>, ItemType_datetime, u" 1987-06 ", u"1987-06",
     {.maxInclusive = u"1987-05"}, u"Invalid Value for v [1987-06].",
     u"1987", u"Dates added to this collection must be of type dt_gYearMonth"},
    {"decimal", Make<CdecimalCol>, ItemType_decimal, u" -01.50 ", u"-1.5",
     {.fractionDigits = 0}, u"Invalid Value for v [-1.5].",
     u"1.5x", u"The string representing a Decimal, contained an invalid char at position 3 [1.5x]."},
    {"decimalInAFormat", Make<CdecimalCol>, ItemType_decimal, u"1.5", u"1.50",
     {.totalDigits = 1, .format = u"2"}, u"Invalid Value for v [1.5].", nullptr, nullptr},
    {"integer", Make<CintegerCol>, ItemType_integer, u" -123456789012345678901 ", u"-123456789012345678901",
     {.minInclusive = u"-123456789012345678900"}, u"Invalid Value for v [-123456789012345678901].", nullptr, nullptr},
    {"string", Make<CstringCol>, ItemType_string, u" a \n\t b ", u"a b",
     {.pattern = u"[a-z]+"}, u"Invalid Value for v [a b].", nullptr, nullptr},
    {"true", Make<CbooleanCol>, ItemType_boolean, u" 1 ", u"true",
     {.pattern = u"no", .maxLength = 0, .maxInclusive = u"no"}, nullptr,
     u"yes", u"A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', '1', or '0'"},
    {"false", Make<CbooleanCol>, ItemType_boolean, u"FALSE", u"false", {}, nullptr, nullptr, nullptr},
};
// clang-format on

std::u16string Elements(std::u16string const& text) {
  return u"<v>" + text + u"</v><v>" + text + u"</v>";
}

bool IsOfDates(CXmlTypeCollection const& values) {
  return dynamic_cast<CdatetimeBaseCol const*>(&values) != nullptr;
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
  Events const refused(IsOfDates(*values) ? 0 : 1, "+");
  EXPECT_EQ(log.events, row.refusal ? refused : allowed);
}

TEST_P(ValueCollection, RefusesOtherText) {
  KindCase const& row = GetParam();
  if (!row.malformed) return;  // it takes any text
  CSmartPtr<CXmlTypeCollection> const values = row.make({});
  EventLog log;
  values->AddEventListener(&log);
  std::u16string message = kNothingThrown;
  try {
    Read(*values, u"<v>" + std::u16string(row.malformed) + u"</v>");
  } catch (CKestException const& failure) {
    message = failure.GetMessageW();
  }
  EXPECT_EQ(message, row.complaint);
  EXPECT_EQ(log.events, Events{});
}

INSTANTIATE_TEST_SUITE_P(Kinds, ValueCollection, testing::ValuesIn(kKinds), RowName());

class Integers : public testing::Test {
 protected:
  Integers() {
    values->Add(10);
    values->Add(11);
    values->AddEventListener(&log);
  }

  std::vector<std::int32_t> Values() const { return {values->begin(), values->end()}; }

  EventLog log;
  CSmartPtr<Ci4Col> values = MakeCol<Ci4Col>({.maxInclusive = u"99"});
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
    values = MakeCol<Ci4Col>({.maxInclusive = u"99"});
    values->Add(10);
    values->Add(11);
    log = {};
    values->AddEventListener(&log);
    EXPECT_EQ(Thrown<CKestInvalidParamException>(operation), message);
    EXPECT_EQ(Values(), after);
    EXPECT_EQ(log.events, events);
  }
}

TEST_F(Integers, TellOfTheValueThatWasGiven) {
  struct : EventLog {
    void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
      EventLog::OnEvent(from, type, data);
      if (data) seen.push_back(*static_cast<std::u16string*>(data));
    }
    std::vector<std::u16string> seen;
  } listener;
  CSmartPtr<CstringCol> const texts = MakeCol<CstringCol>();
  texts->AddEventListener(&listener);
  std::u16string const text = u"more than fits into a string object  ";
  texts->Add(text);
  EXPECT_EQ(listener.seen, (std::vector{text, text}));
  EXPECT_EQ(listener.items[0], listener.items[1]);
  EXPECT_EQ(listener.sender, texts->GetBase());
  EXPECT_EQ(texts->Item(0), text) << "the rule is for text that is read";
}

TEST_F(Integers, TellNobodyAtTheEnd) {
  values = nullptr;
  EXPECT_EQ(log.events, Events{});
}

TEST_F(Integers, AreCheckedWhenTheyAreAdded) {
  EXPECT_EQ(Thrown([&] { values->Add(100); }), u"Invalid Value for v [100]");
  *values->begin() = 100;
  EXPECT_EQ(Values(), (std::vector{100, 11})) << "not when they are changed in place";
}

TEST_F(Integers, AreCountedWhenTheyAreWritten) {
  CSerializationContext context;
  CSmartPtr<Ci4Col> const none = MakeCol<Ci4Col>(), one = MakeCol<Ci4Col>({.minOccurs = 1});
  EXPECT_EQ(Write(*none).xml, u"");
  EXPECT_EQ(Thrown<CKestValidationException>([&] { Write(*one); }),
            u"The Minimum number of [v] elements allowed in this collection is 1");
  context.SetIgnoreInvalidCollectionCounts(true);
  EXPECT_EQ(Write(*one, context).xml, u"");

  CSmartPtr<Ci4Col> const most = MakeCol<Ci4Col>({.maxOccurs = 1});
  EXPECT_EQ(Read(*most, u"<v>1</v><v>2</v>"), u"") << "reading does not count";
  EXPECT_EQ(Thrown<CKestValidationException>([&] { Write(*most); }),
            u"The Maximum number of [v] elements allowed in this collection is 1");
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
    while (values->GetCount() > 2) values->Remove(2);
    EXPECT_EQ(Read(*values, children, context), next);
    EXPECT_EQ(Values(), after);
  }
}

TEST(BinaryValues, MayBeAddedFromTheirOwnCollection) {
  struct : EventLog {
    void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
      EventLog::OnEvent(from, type, data);
      if (data) bytes += static_cast<CBinaryData*>(data)->GetView();
    }
    std::string bytes;
  } listener;
  CSmartPtr<ChexBinaryCol> const values = MakeCol<ChexBinaryCol>();
  values->Add(CBinaryData(std::string_view("a")));
  values->AddEventListener(&listener);
  for (int turn = 0; turn < 9; ++turn) values->AddAt(0, *values->begin());
  EXPECT_EQ(values->GetCount(), 10);
  EXPECT_EQ(listener.bytes, std::string(18, 'a'));
}

TEST(BinaryValues, AreWrittenEmptyWithoutBytes) {
  CSmartPtr<Cbase64BinaryCol> const values = MakeCol<Cbase64BinaryCol>();
  values->Add({});
  EXPECT_EQ(Write(*values).xml, u"<v/>");
}

TEST(BinaryValues, EndWhenTheyAreRemovedFromTheFront) {
  CSmartPtr<ChexBinaryCol> const values = MakeCol<ChexBinaryCol>();
  CBinaryData bytes(std::string_view("a"));
  unsigned char const* const before = bytes.GetData();
  for (int i = 0; i < 8; ++i) values->Add(bytes);
  while (values->GetCount() > 7) values->Remove(0);
  values->Clear();
  bytes[0] = 'b';
  EXPECT_EQ(bytes.GetData(), before) << "nobody shared it";
}

TEST(Dates, AreOfOneType) {
  EventLog log;
  CSmartPtr<CdateCol> const values = MakeCol<CdateCol>();
  values->AddEventListener(&log);
  EXPECT_EQ(Thrown<CKestInvalidParamException>(
                [&] { values->AddAt(7, CDateTime(u"1987-06-05T00:00:00")); }),
            u"Dates added to this collection must be of type dt_date");
  EXPECT_EQ(log.events, Events{});
  EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { values->AddAt(1, CDateTime(1987, 6, 5)); }),
            u"Index out of range");
  EXPECT_EQ(log.events, Events{"+"});
  values->Add(CDateTime(1987, 6, 5));
  for (int turn = 0; turn < 9; ++turn) values->AddAt(0, *values->begin());
  values->Remove(1);
  EXPECT_EQ(log.events.back(), "~");
  EXPECT_EQ(log.events.end()[-2], "-!0");
  EXPECT_EQ(values->GetCount(), 9);
  EXPECT_EQ(values->ItemToString(values->Item(8)), u"1987-06-05");
  EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { values->Item(9); }),
            u"Index 9 is out of range, use 0 - 9");
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
  EXPECT_EQ(values->GetCount(), kCount);
  EXPECT_EQ(values->Item(kCount - 1), kCount - 1);
  values->Clear();
  EXPECT_EQ(values->begin(), values->end());
}

}  // namespace
}  // namespace KestXmlLib20
