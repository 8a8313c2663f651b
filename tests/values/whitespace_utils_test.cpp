#include "kestxml/values/whitespace_utils.h"

#include <gtest/gtest.h>

#include "kestxml/values/preserve_character_ref_cr.h"
#include "tests/model/row_name.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;
using W = CWhitespaceUtils;

struct WhitespaceCase {
  char const* name;
  std::u16string_view text, preserved, replaced, collapsed;
};

void PrintTo(WhitespaceCase const& row, std::ostream* out) {
  *out << row.name;
}

// clang-format off
constexpr WhitespaceCase kCases[] = {
    {"Empty",              u"",                u"",             u"",           u""},
    {"LineEndIsOneBlank",  u"a\r\nb",          u"a\nb",         u"a b",        u"a b"},
    {"EachCarriageReturn", u"a\r\nb\rc\r\r\n", u"a\nb\nc\n\n",  u"a b c  ",    u"a b c"},
    {"Runs",               u" a \t b ",        u" a \t b ",     u" a   b ",    u"a b"},
    {"OnlyBlanks",         u"   ",             u"   ",          u"   ",        u""},
    {"OtherSpaces",        u"\v\u00A0\u2003",  u"\v\u00A0\u2003", u"\v\u00A0\u2003", u"\v\u00A0\u2003"},
    {"NullCutsOnlyAChange", u"a\tb\0c"sv,      u"a\tb\0c"sv,    u"a b",        u"a b"},
    {"NullAloneStays",     u"a b\0\t"sv,       u"a b\0\t"sv,    u"a b\0\t"sv,  u"a b\0\t"sv},
    {"NullAndCr",          u"a\0b\r"sv,        u"a",            u"a\0b\r"sv,   u"a\0b\r"sv},
    {"NullAndEnds",        u" a\0 "sv,         u" a\0 "sv,      u" a\0 "sv,    u"a"},
};
// clang-format on

class Whitespace : public testing::TestWithParam<WhitespaceCase> {};

TEST_P(Whitespace, FollowsEachRule) {
  WhitespaceCase const& row = GetParam();
  EXPECT_EQ(W::ApplyRule(W::WhitespaceRule_None, row.text), row.text);
  EXPECT_EQ(W::ApplyRule(W::WhitespaceRule_Preserve, row.text), row.preserved);
  EXPECT_EQ(W::ApplyRule(W::WhitespaceRule_Replace, row.text), row.replaced);
  EXPECT_EQ(W::ApplyRule(W::WhitespaceRule_Collapse, row.text), row.collapsed);
}

INSTANTIATE_TEST_SUITE_P(Values, Whitespace, testing::ValuesIn(kCases), RowName());

TEST(WhitespaceUtils, PreservesCarriageReturnsWhenTold) {
  SetPreserveCharacterRefCR(true);
  EXPECT_EQ(W::Preserve(u"a\r\nb\rc"), u"a\r\nb\rc");
  EXPECT_EQ(W::Replace(u"a\r\nb\rc"), u"a b c");
  SetPreserveCharacterRefCR(false);
}

TEST(WhitespaceUtils, CopiesNothingThatItDoesNotChange) {
  std::u16string_view const text = u" \t12 345\n";
  std::u16string buffer;
  auto const collapsed = W::ApplyRule(W::WhitespaceRule_Collapse, text, buffer);
  EXPECT_EQ(collapsed, u"12 345");
  EXPECT_EQ(collapsed.data(), text.data() + 2);
}

}  // namespace
}  // namespace KestXmlLib20
