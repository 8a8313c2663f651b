#include "kestxml/values/format_string.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "kestxml/values/item_type.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;
using Argument = FormatArgument;

constexpr std::int64_t kBelowZero = -1;

struct FormatCase {
  char16_t const* format;
  std::vector<Argument> arguments;
  char16_t const* text;
};

// clang-format off
FormatCase const kFormats[] = {
    {u"plain 100%%", {}, u"plain 100%"},
    // Strings.
    {u"[%s]",     {static_cast<char16_t const*>(nullptr)}, u"[(null)]"},
    {u"[%.3s]",   {static_cast<char16_t const*>(nullptr)}, u"[(nu]"},
    {u"[%-6s]",   {u"abc"},             u"[abc   ]"},
    {u"[%06s]",   {u"abc"},             u"[000abc]"},
    {u"[%5.2s]",  {u"abc"},             u"[   ab]"},
    {u"[%*s]",    {-5, u"abc"},         u"[abc  ]"},
    {u"[%s]",     {u"ab\0c"sv},         u"[ab]"},
    {u"[%S|%hs]", {"n\xC3\xA4rrow", "x"}, u"[n\u00E4rrow|x]"},
    // Characters; one of 0 ends the text.
    {u"[%c%c]",   {u'\u20AC', u'x'},    u"[\u20ACx]"},
    {u"[%c]",     {u'\0'},              u"["},
    // Integers of 32 bits, whatever is given, and of 64.
    {u"%d %i",    {-1, 7},              u"-1 7"},
    {u"%ld %lu",  {kBelowZero, kBelowZero}, u"-1 4294967295"},
    {u"%d",       {std::int64_t{0x1'0000'0002}}, u"2"},
    {u"%d",       {std::numeric_limits<std::int32_t>::min()}, u"-2147483648"},
    {u"%I64d %I64u %I64x", {kBelowZero, kBelowZero, kBelowZero}, u"-1 18446744073709551615 ffffffffffffffff"},
    {u"%I64d",    {std::numeric_limits<std::int64_t>::min()}, u"-9223372036854775808"},
    {u"%d",       {ItemType_xmlObject}, u"27"},
    {u"0x%08X 0x%08x", {0xABCDEF, 0xABCDEF}, u"0x00ABCDEF 0x00abcdef"},
    {u"%#x %#o %#x", {255, 8, 0},       u"0xff 010 0"},
    {u"[%+d|% d|%05d|%-5d|%5.3d]", {1, 1, -42, 42, 7}, u"[+1| 1|-0042|42   |  007]"},
    // Doubles.
    {u"%f %.2f %.0f", {1.5, 2.345, 2.5}, u"1.500000 2.35 2"},
    {u"%g %g %.3g", {1e20, 0.0001, 1234.5}, u"1e+20 0.0001 1.23e+03"},
    {u"[%8.2f|%-8.2f|%+08.2f]", {1.5, 1.5, 1.5}, u"[    1.50|1.50    |+0001.50]"},
    {u"%e %G",    {12345.678, 1e-10},   u"1.234568e+04 1E-10"},
    // What does not fit reads nothing that is not there.
    {u"[%s|%d|%s]", {1, u"x"},          u"[(null)|0|(null)]"},
    {u"[%n]",     {1},                  u"[]"},
    {u"[%y] %",   {},                   u"[y] "},
};
// clang-format on

TEST(FormatString, PrintsAsPrintfDoes) {
  for (FormatCase const& row : kFormats) {
    std::u16string const text = FormatArguments(row.format, row.arguments);
    EXPECT_EQ(text, row.text) << testing::PrintToString(row.format);
  }
}

TEST(FormatString, NeverCutsForLength) {
  std::u16string const longText(100'000, u'x');
  EXPECT_EQ(FormatString(u"<%s%s>", longText, u"!"), u"<" + longText + u"!>");
  EXPECT_EQ(FormatString(u"%f", 1e300).size(), 301u + 7u);
  EXPECT_EQ(FormatString(u"%2000000000d", 1).size(), 1'000'000u);  // but no width is beyond reason
}

}  // namespace
}  // namespace KestXmlLib20
