// Patterns of XML Schema, through the check of strings.
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/primitive_restrictions.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;

// What the check says; empty when it allows the value.
std::u16string Match(std::u16string const& pattern, std::u16string_view value) {
  KestVariant text;
  text.SetString(std::u16string(value));
  CPrimitiveRestrictions const facets(pattern.c_str(), -1, -1, u"", u"", u"", u"", -1, -1, -1);
  try {
    CheckPrimitiveRestriction(u"n", text, ItemType_string, facets);
  } catch (CKestException const& refusal) {
    return refusal.GetMessageW();
  }
  return {};
}

struct PatternCase {
  char const* name;
  char16_t const* pattern;
  std::vector<std::u16string_view> matching, other;
};

// clang-format off
PatternCase const kPatterns[] = {
    {"WholeValue",          u"[a-z]+", {u"abc"}, {u"abc1", u"1abc", u""}},
    {"Alternatives",        u"a|b", {u"a", u"b"}, {u"ab", u""}},
    {"FirstMatchDecides",   u"a|a\n", {u"a"}, {u"a\n"}},
    {"LineEndIsNoEnd",      u"a", {u"a"}, {u"a\n"}},
    {"LineEndOfPattern",    u"a\n", {u"a\n"}, {u"a"}},
    {"OwnAnchors",          u"^a$", {u"a"}, {u"^a$"}},
    {"NameStart",           u"\\i", {u"a", u"_", u":"}, {u"1", u"-", u"\u00E9"}},
    {"NoNameStart",         u"\\I", {u"1", u"-"}, {u"a"}},
    {"Name",                u"\\i\\c*", {u"x1", u"x-.:_"}, {u"1x", u"x y"}},
    {"NoNameCharacter",     u"\\C+", {u" /\u00E9"}, {u"a", u"-"}},
    {"EscapedBackslash",    u"\\\\i", {u"\\i"}, {u"i", u"a", u"\\a"}},
    {"BackslashThenEscape", u"\\\\\\i", {u"\\a"}, {u"\\i1", u"\\\\"}},
    {"AsciiDigits",         u"\\d\\w", {u"1a"}, {u"\u0661a", u"1\u00E9"}},
    {"BasicLatin",          u"\\p{IsBasicLatin}+", {u"abc\x7F"}, {u"\x80"}},
    {"Latin1Supplement",    u"\\p{IsLatin-1Supplement}+", {u"\x80\xFF"}, {u"\x7F", u"\u0100"}},
    {"LatinExtendedA",      u"\\p{IsLatinExtended-A}+", {u"\u0100\u017F"}, {u"\xFF", u"\u0180"}},
    {"LatinExtendedB",      u"\\p{IsLatinExtended-B}+", {u"\u0180\u024F"}, {u"\u017F", u"\u0250"}},
    {"Category",            u"\\p{Lu}", {u"A", u"\u0391"}, {u"a"}},
    {"OneCharacterOfTwo",   u".", {u"\U0001F600"}, {u"ab"}},
    {"NoClassSubtraction",  u"[a-z-[aeiou]]", {u"b]", u"a]"}, {u"b"}},
    {"HyphenBehindClass",   u"[\\w-.]+", {u"a-."}, {u"+"}},
    {"HyphensBehindClasses", u"[\\d-z\\s-a]+", {u"1-z a"}, {u"b"}},
    {"UnknownEscape",       u"\\y+\\j", {u"yyj"}, {u"\\y\\j"}},
    {"EndsAtNull",          u"ab", {u"ab\0c"sv}, {u"a\0b"sv}},
    {"EndsAtLoneSurrogate", u"ab", {u"ab\xD83Dz", u"ab\xDE00"}, {u"a\xD83D" u"b"}},
    {"PatternEndsThereToo", u"ab\xDE00z", {u"ab"}, {u"abz"}},
};

struct RefusedCase {
  char const* name;
  char16_t const* pattern;
  char16_t const* error;  // as it begins, in PCRE2's words
};

constexpr RefusedCase kRefused[] = {
    {"OpenGroup",       u"(",            u"missing closing parenthesis"},
    {"OpenClass",       u"[a",           u"missing terminating ] for character class"},
    {"ClassEndsRange",  u"[a-\\d]",      u"invalid range in character class"},
    {"EscapeInClass",   u"[\\i1]",       u"unmatched closing parenthesis"},
    {"OtherBlock",      u"\\p{IsGreek}", u"unknown property"},
    {"MoreThanItHolds", u"((ab){1,6000}){1,6000}", u"regular expression is too large"},
};
// clang-format on

class XsdPattern : public testing::TestWithParam<PatternCase> {};

TEST_P(XsdPattern, MatchesWholeValues) {
  PatternCase const& row = GetParam();
  for (int round = 0; round < 2; ++round) {  // compiled, and compiled before
    for (auto value : row.matching) EXPECT_EQ(Match(row.pattern, value), u"") << ToUtf8(value);
    for (auto value : row.other) {
      EXPECT_EQ(Match(row.pattern, value), FormatString(u"Invalid Value for n [%s].", value));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Patterns, XsdPattern, testing::ValuesIn(kPatterns), RowName());

// The message shows the value where one expects the pattern.
TEST(XsdPatterns, RefusedOnesAreReportedWithTheValue) {
  for (RefusedCase const& row : kRefused) {
    std::u16string const message = Match(row.pattern, u"v");
    EXPECT_TRUE(message.starts_with(
        std::u16string(u"Invalid Regular Expression: v Error: '").append(row.error)))
        << row.name << ": " << ToUtf8(message);
    EXPECT_TRUE(message.ends_with(u"'\nInvalid Value for n [v].")) << ToUtf8(message);
  }
}

TEST(XsdPatterns, TakeLongValues) {
  EXPECT_EQ(Match(u"\\c*", std::u16string(50'000, u'a')), u"");
  EXPECT_EQ(Match(u"[a-z]*", std::u16string(3'000'000, u'a')), u"");
}

TEST(XsdPatterns, GiveUpWhereAMatchTakesTooMuch) {
  std::u16string const longValue(1'000'000, u'a');
  for (char16_t const* pattern : {u"(a+)+b", u"(a|aa)+b", u"(.*)*.*.*b", u"(a|b)*"}) {
    EXPECT_NE(Match(pattern, longValue), u"") << ToUtf8(pattern);
  }
}

TEST(XsdPatterns, StayRightWhenThereAreMoreThanAreKept) {
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 2500; ++i) {
      EXPECT_EQ(Match(FormatString(u"a{%d}", i), u"a").empty(), i == 1) << i;
    }
  }
}

// Static objects outlive what a thread keeps.
struct MatchesAtTheEnd {
  ~MatchesAtTheEnd() {
    if (!Match(u"a", u"a").empty() || Match(u"a", u"b").empty()) std::_Exit(1);
  }
};

TEST(XsdPatternsDeathTest, MatchWhenTheProcessEnds) {
  auto const match = [] {
    static MatchesAtTheEnd const last;
    Match(u"a", u"a");
    std::exit(0);
  };
  EXPECT_EXIT(match(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace KestXmlLib20
