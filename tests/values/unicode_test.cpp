#include "kestxml/values/unicode.h"

#include <gtest/gtest.h>

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;

struct PairCase {
  std::string_view utf8;
  std::u16string_view utf16;
};

// The first and the last character of each length, and what stands beside the surrogates.
constexpr PairCase kWellFormed[] = {
    {""sv, u""sv},
    {"\0a"sv, u"\0a"sv},
    {"\x7F"sv, u"\x7F"sv},
    {"\xC2\x80\xDF\xBF"sv, u"\u0080\u07FF"sv},
    {"\xE0\xA0\x80\xEF\xBF\xBF"sv, u"\u0800\uFFFF"sv},
    {"\xED\x9F\xBF\xEE\x80\x80"sv, u"\uD7FF\uE000"sv},
    {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"sv, u"\U00010000\U0010FFFF"sv},
};

TEST(Unicode, TurnsEachFormIntoTheOther) {
  for (PairCase const& row : kWellFormed) {
    EXPECT_EQ(FromUtf8(row.utf8), row.utf16);
    EXPECT_EQ(ToUtf8(row.utf16), row.utf8);
  }
}

// By table 3-7 of the Unicode standard: the longest part that could begin a character counts as
// one mistake, and the byte behind it begins anew.
constexpr PairCase kMalformed[] = {
    {"\x80"sv, u"\uFFFD"sv},            // nothing begins so
    {"\xC0\x80"sv, u"\uFFFD\uFFFD"sv},  // two bytes for U+0000
    {"\xE0\x9F\xBF"sv, u"\uFFFD\uFFFD\uFFFD"sv},
    {"\xED\xA0\x80"sv, u"\uFFFD\uFFFD\uFFFD"sv},            // a surrogate
    {"\xF0\x8F\xBF\xBF"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},  // four bytes for U+FFFF
    {"\xF4\x90\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},  // above U+10FFFF
    {"\xF5\x80\xFE\xFF"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"\xC3"sv, u"\uFFFD"sv},  // cut off at the end
    {"\xF0\x9F\x98"sv, u"\uFFFD"sv},
    {"\xC3z"sv, u"\uFFFDz"sv},  // cut off by another character
    {"\xF0\x9F\x98\xC3\xA4"sv, u"\uFFFD\u00E4"sv},
    {"\xF1\x80\x80\xE1\x80\xC2"
     "a\x80"
     "b"sv,
     u"\uFFFD\uFFFD\uFFFD"
     "a\uFFFD"
     "b"sv},
};

TEST(Unicode, ReplacesMalformedBytes) {
  for (PairCase const& row : kMalformed) {
    EXPECT_EQ(FromUtf8(row.utf8), row.utf16) << testing::PrintToString(row.utf8);
  }
}

struct SurrogateCase {
  std::u16string_view text;
  std::string_view utf8;
  std::size_t before;  // units before the first lone surrogate
};

constexpr SurrogateCase kSurrogates[] = {
    {u"ab", "ab", 2},
    {u"a\xD83D\xDE00z", "a\xF0\x9F\x98\x80z", 4},
    {u"a\xD83D", "a\xEF\xBF\xBD", 1},
    {u"a\xD83Dz", "a\xEF\xBF\xBDz", 1},
    {u"a\xDE00z", "a\xEF\xBF\xBDz", 1},
    {u"\xDE00\xD83D", "\xEF\xBF\xBD\xEF\xBF\xBD", 0},
    {u"\xD83D\xD83D\xDE00", "\xEF\xBF\xBD\xF0\x9F\x98\x80", 0},
    {u"\xD83D\xDE00\xDE00", "\xF0\x9F\x98\x80\xEF\xBF\xBD", 2},
};

// The UTF-8 of two pieces, one after the other.
std::string EncodeInPieces(std::u16string_view first, std::u16string_view second) {
  CUtf8Encoder encoder;
  char bytes[64];
  char* end = encoder.Encode(first, bytes);
  end = encoder.Encode({}, end);  // an empty piece between changes nothing
  return {bytes, encoder.Finish(encoder.Encode(second, end))};
}

TEST(Unicode, ReplacesLoneSurrogates) {
  for (SurrogateCase const& row : kSurrogates) {
    SCOPED_TRACE(row.utf8);
    EXPECT_EQ(ToUtf8(row.text), row.utf8);
    EXPECT_EQ(LengthBeforeLoneSurrogate(row.text), row.before);
    for (std::size_t cut = 0; cut <= row.text.size(); ++cut) {
      EXPECT_EQ(EncodeInPieces(row.text.substr(0, cut), row.text.substr(cut)), row.utf8) << cut;
    }
  }
}

// ASCII goes in groups, so what is not ASCII is tried at each place of texts about a group long.
TEST(Unicode, GroupsOfAsciiChangeNothing) {
  for (std::size_t length = 0; length < 50; ++length) {
    for (std::size_t at = 0; at <= length; ++at) {
      std::u16string const text =
          std::u16string(at, u'a') + u"\u00E9\U0001F600\u20AC" + std::u16string(length - at, u'b');
      std::string const bytes =
          std::string(at, 'a') + "\u00E9\U0001F600\u20AC" + std::string(length - at, 'b');
      ASSERT_EQ(ToUtf8(text), bytes);
      ASSERT_EQ(FromUtf8(bytes), text);
    }
  }
}

}  // namespace
}  // namespace KestXmlLib20
