// Which texts are JSON here, and what is said of others.
#include "kestxml/json/json_text_reader.h"

#include <gtest/gtest.h>

#include "kestxml/json/json_reader_handler.h"
#include "tests/json/converted.h"
#include "tests/model/row_name.h"

namespace KestXmlLib20 {
namespace {

// Writes down what it is told.
class Log : public IJsonReaderHandler {
 public:
  explicit Log(std::u16string& out) : m_out(out) {}

  void OnStartDocument() override { m_out += u"<"; }
  void OnEndDocument() override { m_out += u">"; }
  void OnName(std::u16string_view name) override { Add(name, u"="); }
  void OnString(std::u16string_view value) override { Add(value, u"' "); }
  void OnNumber(std::u16string_view value) override { Add(value, u"# "); }
  void OnStartObject(std::int32_t depth) override { Add(u"{", Digit(depth)); }
  void OnEndObject() override { m_out += u"} "; }
  void OnStartArray(std::int32_t depth) override { Add(u"[", Digit(depth)); }
  void OnEndArray() override { m_out += u"] "; }
  void OnBoolean(bool value) override { m_out += value ? u"TRUE " : u"FALSE "; }
  void OnNull() override { m_out += u"NULL "; }

 private:
  static std::u16string Digit(std::int32_t depth) { return {static_cast<char16_t>(u'0' + depth)}; }
  void Add(std::u16string_view first, std::u16string_view second) {
    m_out.append(first).append(second);
  }

  std::u16string& m_out;
};

// The events and, if there is one, the failure.
std::u16string Events(std::u16string_view text, CJsonContext const& context = {}) {
  std::u16string events;
  auto handler = std::make_unique<Log>(events);
  CJsonTextReader reader(text, context, std::move(handler));
  std::u16string const failure = KestModel::OutcomeOf([&] {
    reader.Read();
    return std::u16string();
  });
  return events + failure;
}

struct EventCase {
  char const* name;
  char16_t const* text;
  char16_t const* events;
};

void PrintTo(EventCase const& row, std::ostream* out) {
  *out << row.name;
}

// clang-format off
constexpr EventCase kEvents[] = {
    {"Nothing",          u"", u"<>"},
    {"WhiteSpace",       u" \t\r\n", u"<>"},
    {"AllKinds",         u"{\"a\":[1,\"x\",true,false,null,{}],\"b\":{\"c\":[]}}", u"<{0a=[11# x' TRUE FALSE NULL {2} ] b={1c=[2] } } >"},
    {"Spaced",           u" {\t\"a\" :\r\n[ 1 , 2 ] }\n", u"<{0a=[11# 2# ] } >"},
    {"OneValueIsRead",   u"{\"a\":1} trailing", u"<{0a=1# } >"},
    {"WordsNeedNoEnd",   u"truefalse", u"<TRUE >"},
    {"NamesRepeat",      u"{\"a\":1,\"a\":2}", u"<{0a=1# a=2# } >"},
    {"EmptyTexts",       u"{\"\":\"\"}", u"<{0=' } >"},
    {"Comments",         u"/*a*/ {//b\n\"a\"/**/:/* / * **/1 // c\n,/*x*///y\n\"b\":2}", u"<{0a=1# b=2# } >"},
    {"CommentAtTheEnd",  u"1 // x", u"<1# >"},
    {"OpenCommentBehind", u"1 /* x *", u"<1# >"},
    {"NoCommentInStrings", u"\"/*a*/\"", u"</*a*/' >"},
    {"Escapes",          u"\"\\\"\\\\\\/\\b\\f\\n\\r\\t.\"", u"<\"\\/\b\f\n\r\t.' >"},
    // Half a byte comes of an escaped code point.
    {"CodePoint",        u"\"\\u0041\\u00e9 \\uAAAA\\uzzzz\"", u"<33 47' >"},
    {"CodePointTakesAnyUnits", u"\"\\u\u00E9\"\"\"\\u\n123\"", u"<E0' >"},
    {"LineFeedsVanish",  u"{\"a\nb\":\"\nc\n\\\nn\n\",\"d\":1\n2.\n3e\n+\n4\n5\n}", u"<{0ab=c\n' d=12.3e+45# } >"},
    {"ControlsStay",     u"\"\u0001\t\r\u007F\"", u"<\u0001\t\r\u007F' >"},
    {"LongStrings",      u"[\"0123456789abcdef\",\"0123456\\\\789abcdef012\",\"01234567\"]", u"<[00123456789abcdef' 0123456\\789abcdef012' 01234567' ] >"},
    {"Surrogates",       u"\"\U0001F600\xD800\"", u"<\U0001F600\xD800' >"},
    {"Numbers",          u"[0,-0,12,-3.50,1e5,1E+5,2.5e-007,9]", u"<[00# -0# 12# -3.50# 1e5# 1E+5# 2.5e-007# 9# ] >"},
    {"NumberAtTheEnd",   u"1.5e3", u"<1.5e3# >"},
    {"ZeroIsWhole",      u"007", u"<0# >"},
    {"SpaceEndsANumber", u"[1\t,2\r,3 ]", u"<[01# 2# 3# ] >"},
};

// The position is behind the unit at fault, so it counts from 1.
constexpr EventCase kFailures[] = {
    {"Value",            u"  x", u"<Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1, position 3."},
    {"ValueInArray",     u"[1,]", u"<[01# Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found ']' at line 1, position 4."},
    {"ArrayEnd1",        u"[", u"<[0Validation: Unexpected End of File. Expected Array terminator character ']' at line 1, position 1."},
    {"ArrayEnd2",        u"[1", u"<[01# Validation: Unexpected End of File. Expected Array terminator character ']' at line 1, position 2."},
    {"ArrayEnd3",        u"[1,", u"<[01# Validation: Unexpected End of File. Expected Array terminator character ']' at line 1, position 3."},
    {"ArraySeparator",   u"[1 2]", u"<[01# Validation: Expected Array separator character ',', found '2' at line 1, position 4."},
    {"ObjectEndDoubled", u"{\n ", u"<{0Validation: Unexpected End of File. Expected Object terminator character '}}' at line 2, position 1."},
    {"Name",             u"{a:1}", u"<{0Validation: Expected quotation mark character '\"' before Name, found 'a' at line 1, position 2."},
    {"NameBehindComma",  u"{\"a\":1,}", u"<{0a=1# Validation: Expected quotation mark character '\"' before Name, found '}' at line 1, position 8."},
    {"ColonEnd",         u"{\"a\"", u"<{0a=Validation: Unexpected End of File. Expected Object Name/Value separator character ':' at line 1, position 4."},
    {"Colon",            u"{\"a\"1}", u"<{0a=Validation: Expected Object Name/Value separator character ':', found '1' at line 1, position 5."},
    {"ObjectValueEnd",   u"{\"a\":", u"<{0a=Validation: Unexpected End of File. Expected Object Value at line 1, position 5."},
    {"ObjectEnd1",       u"{\"a\":1", u"<{0a=1# Validation: Unexpected End of File. Expected Object terminator character '}' at line 1, position 6."},
    {"ObjectEnd2",       u"{\"a\":1,", u"<{0a=1# Validation: Unexpected End of File. Expected Object terminator character '}' at line 1, position 7."},
    {"ObjectSeparator",  u"{\"a\":1;", u"<{0a=1# Validation: Expected Object separator character ',', found ';' at line 1, position 7."},
    {"NullEnd",          u"nul", u"<Validation: Unexpected End of File. Expected value 'NULL' at line 1, position 3."},
    {"Null",             u"NULL nul!", u"<Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'N' at line 1, position 1."},
    {"NullOther",        u"nuLL", u"<Validation: Expected 'NULL' at line 1, position 4."},
    {"TrueEnd",          u"tru", u"<Validation: Unexpected End of File. Expected value 'true' at line 1, position 3."},
    {"TrueOther",        u"tree", u"<Validation: Expected 'true' at line 1, position 4."},
    {"FalseEnd",         u"fals", u"<Validation: Unexpected End of File. Expected value 'false' at line 1, position 4."},
    {"FalseOther",       u"falsy", u"<Validation: Expected 'false' at line 1, position 5."},
    {"WordsCountNoLines", u"[nu\nll", u"<[0Validation: Expected 'NULL' at line 1, position 5."},
    {"MinusEnd",         u"-", u"<Validation: Unexpected End of File. Expected a number at line 1, position 1."},
    {"SignEnd",          u"1e+", u"<Validation: Unexpected End of File. Expected a number at line 1, position 3."},
    {"Digit",            u"-x", u"<Validation: Expected a digit '0' to '9', found 'x' at line 1, position 2."},
    {"FractionDigit",    u"1.e", u"<Validation: Expected a digit '0' to '9', found 'e' at line 1, position 3."},
    {"FractionEnd",      u"1.", u"<Validation: Unexpected End of File. Expected a digit '0' to '9' at line 1, position 2."},
    // The text does not end there, but callers know the message so.
    {"ExponentDigit",    u"1ex", u"<Validation: Unexpected End of File. Expected a digit '0' to '9' at line 1, position 3."},
    {"ExponentEnd",      u"1e", u"<Validation: Unexpected End of File. Expected '+', '-' or a number at line 1, position 2."},
    {"SecondZero",       u"[007]", u"<[00# Validation: Expected Array separator character ',', found '0' at line 1, position 3."},
    {"NumberThenLetter", u"[12x]", u"<[012# Validation: Expected Array separator character ',', found 'x' at line 1, position 4."},
    {"NumberThenComment", u"[1/**/]", u"<[01# Validation: Expected Array separator character ',', found '/' at line 1, position 3."},
    {"StringEnd",        u"\"ab", u"<Validation: Unexpected End of File. Expected string value at line 1, position 3."},
    {"EscapeEnd",        u"\"ab\\", u"<Validation: Unexpected End of File. Expected string value at line 1, position 4."},
    {"CodePointEnd",     u"\"\\u041", u"<Validation: Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line 1, position 6."},
    {"Escape",           u"\"\\x\"", u"<Validation: Invalid Escape Character 'x' at line 1, position 3."},
    {"LineFeedInString", u"[\"a\nb\" x", u"<[0ab' Validation: Expected Array separator character ',', found 'x' at line 2, position 4."},
    {"CodePointCountsNoLine", u"[\"\\u\n\n\n\n\" x", u"<[00' Validation: Expected Array separator character ',', found 'x' at line 1, position 11."},
    {"LineComment",      u"[ // abc\n x", u"<[0Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 2, position 2."},
    {"LineCommentHasNoColumns", u"[ // abc", u"<[0Validation: Unexpected End of File. Expected Array terminator character ']' at line 1, position 3."},
    {"BlockComment",     u"[/*\n*/x", u"<[0Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 2, position 3."},
    {"OpeningStarHasNoColumn", u"[/**/x", u"<[0Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1, position 5."},
    {"StarOpensOnly",    u"[/*/1]", u"<[0Validation: Unexpected End of File. Expected Array terminator character ']' at line 1, position 5."},
    {"SlashAlone",       u"/", u"<Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '/' at line 1, position 1."},
};
// clang-format on

class ReaderTable : public testing::TestWithParam<EventCase> {};
TEST_P(ReaderTable, GivesTheEvents) {
  EXPECT_EQ(Events(GetParam().text), GetParam().events);
}
INSTANTIATE_TEST_SUITE_P(Accepted, ReaderTable, testing::ValuesIn(kEvents), RowName());
INSTANTIATE_TEST_SUITE_P(Refused, ReaderTable, testing::ValuesIn(kFailures), RowName());

TEST(CJsonTextReader, ReadsWhatTheContextSays) {
  CJsonContext context;
  EXPECT_TRUE(context.GetAllowComments());
  EXPECT_EQ(context.GetSupportRoundtrip(), JsonRoundTrip_Full);
  EXPECT_EQ(context.GetRootElementName(), u"");
  context.SetRootElementName(u"r");
  EXPECT_EQ(Events(u"[1]", context), u"<{0r=[01# ] } >");
  EXPECT_EQ(Events(u"", context), u"<{0r=} >");
  context.SetRootElementName(nullptr);
  context.GetAllowComments(false);
  EXPECT_EQ(Events(u"[/**/1]", context),
            u"<[0Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', "
            u"found '/' at line 1, position 2.");
}

TEST(CJsonTextReader, GoesNoDeeperThanAHundred) {
  std::u16string const hundred(100, u'[');
  EXPECT_TRUE(Events(hundred + std::u16string(100, u']')).ends_with(u"] >"));
  for (auto const* value : {u"1", u"[", u"{"}) {
    EXPECT_TRUE(
        Events(hundred + value).ends_with(u"JSON exceeded depth limit at line 1, position 101."))
        << ToUtf8(value);
  }
  std::u16string members;
  for (int i = 0; i < 99; ++i) members += u"{\"a\":";
  EXPECT_TRUE(Events(members + u"0" + std::u16string(99, u'}')).ends_with(u"} >"));
  EXPECT_TRUE(
      Events(members + u"[0").ends_with(u"JSON exceeded depth limit at line 1, position 497."));
}

// Wherever a text is cut off, it is an exception of the family that says where.
TEST(CJsonTextReader, RefusesWhatIsCutOff) {
  std::u16string_view const text =
      u"{\"a\":[1,-2.5e+7,\"x\\n\\u0041y\",true,false,null,{\"b\":/*c*/{}},[]],//d\n\"e\":\"f\"}";
  EXPECT_TRUE(Events(text).ends_with(u"} >"));
  for (std::size_t length = 1; length < text.size(); ++length) {
    std::u16string const events = Events(text.substr(0, length));
    EXPECT_NE(events.find(u"Validation: "), events.npos) << ToUtf8(events);
    EXPECT_NE(events.find(u" at line "), events.npos) << ToUtf8(events);
  }
}

}  // namespace
}  // namespace KestXmlLib20
