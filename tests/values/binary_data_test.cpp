// CBinaryData: its shared blocks, its text forms, its bounds.

#include "kestxml/values/binary_data.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;

// A value whose block holds exactly its bytes, and no byte more.
CBinaryData Adopted(std::string_view bytes) {
  auto* const data = static_cast<unsigned char*>(std::malloc(bytes.size()));
  std::memcpy(data, bytes.data(), bytes.size());
  return {data, static_cast<std::uint32_t>(bytes.size()), true};
}

CBinaryData ZeroLengthBlock() {
  CBinaryData value;
  value.SetAsBase64(u"=");
  return value;
}

TEST(BinaryData, IsEmptyWithoutBytes) {
  unsigned char byte = 1;
  for (CBinaryData const& value : {CBinaryData(), CBinaryData(&byte, 0, true), CBinaryData(u"")}) {
    EXPECT_EQ(value.GetData(), nullptr);
    EXPECT_EQ(value.GetAsHexString() + value.GetAsBase64(), u"");
    EXPECT_EQ(value, CBinaryData());
    EXPECT_NE(value, ZeroLengthBlock());
  }
  EXPECT_EQ(ZeroLengthBlock(), ZeroLengthBlock());
  EXPECT_EQ(CBinaryData().ReleaseData(), nullptr);
}

TEST(BinaryData, AdoptsAndReleasesTheSameBytes) {
  auto* const data = static_cast<unsigned char*>(std::malloc(3));
  CBinaryData value(data, 3, true);
  EXPECT_EQ(value.ReleaseData(), data);
  EXPECT_EQ(value, CBinaryData());
  std::free(data);
}

TEST(BinaryData, TakesTextAsItLiesInMemory) {
  CBinaryData value(u"aé");
  value.Append(u"b");
  value.Append(u"\0\u20AC"sv);
  EXPECT_EQ(value.GetAsHexString(), u"6100E90062000000AC20");
}

// The same change on an unshared value and on one that shares its block with a copy.
TEST(BinaryData, ChangesWithoutItsCopies) {
  using Value = CBinaryData&;
  struct {
    char const* name;
    void (*change)(Value value);
    std::string_view result;
  } const rows[] = {
      // clang-format off
      {"byte",         [](Value v) { v.Append(static_cast<unsigned char>('d')); },         "abcd"},
      {"unit",         [](Value v) { v.Append(u'd'); },                                    "abcd\0"sv},
      {"nothing",      [](Value v) { v.Append(CBinaryData()); },                           "abc"},
      {"other",        [](Value v) { v.Append(CBinaryData("de")); },                       "abcde"},
      {"self",         [](Value v) { v.Append(v); },                                       "abcabc"},
      {"own part",     [](Value v) { v.Append(v.GetData() + 1, 2); },                      "abcbc"},
      {"room",         [](Value v) { *v.PrepareAppend(1) = 'd'; v.CommitAppend(1); },      "abcd"},
      {"index",        [](Value v) { v[1] = 'B'; },                                        "aBc"},
      {"set own part", [](Value v) { v.SetBuffer(v.GetData() + 1, 1); },                   "b"},
      {"set text",     [](Value v) { v.SetBuffer(u"x"); },                                 "x\0"sv},
      {"set hex",      [](Value v) { v.SetAsHexString(u"41"); },                           "A"},
      {"release",      [](Value v) { std::free(v.ReleaseData()); },                        ""},
      {"assign self",  [](Value v) { v = *&v; },                                           "abc"},
      {"move away",    [](Value v) { CBinaryData const to = std::move(v); },               ""},
      {"clear",        [](Value v) { v.Clear(); },                                         ""},
      // clang-format on
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    CBinaryData alone = Adopted("abc");
    row.change(alone);
    EXPECT_EQ(alone.GetView(), row.result);

    CBinaryData const original = Adopted("abc");
    CBinaryData copy = original;
    EXPECT_EQ(copy.GetData(), original.GetData());
    row.change(copy);
    EXPECT_EQ(copy.GetView(), row.result);
    EXPECT_EQ(original.GetView(), "abc");
  }
}

TEST(BinaryData, RefusesLengthsAbove32Bits) {
  CBinaryData value("a");
  auto* const neverRead = value.GetData();
  std::u16string const refused = u"The document exceeds the limit of 4294967295 bytes.";
  EXPECT_EQ(Thrown([&] { value.Append(neverRead, CBinaryData::kMaxLength); }), refused);
  EXPECT_EQ(Thrown([&] { value.Append(std::u16string_view(u"", 0x80000000)); }), refused);
  EXPECT_EQ(Thrown([&] { value.CommitAppend(CBinaryData::kMaxLength); }), refused);
  EXPECT_EQ(value.GetView(), "a");
}

TEST(BinaryData, RefusesIndexesAboveTheLength) {
  CBinaryData value = Adopted("ab");
  CBinaryData const& constant = value;
  EXPECT_EQ(Thrown([&] { constant[3]; }), u"Index Out of range [3]");
  EXPECT_EQ(Thrown([&] { value[3] = 1; }), u"Index Out of range [3]");
  EXPECT_EQ(Thrown([] { CBinaryData()[0] = 1; }), u"Index Out of range [0]");
}

// Callers have come to rely on the one index too many, so the byte must be there.
TEST(BinaryData, HasAByteBehindTheLast) {
  for (CBinaryData value : {Adopted("ab"), CBinaryData("ab"), ZeroLengthBlock()}) {
    CBinaryData const copy = value;
    std::uint32_t const length = value.GetLength();
    EXPECT_EQ(copy[length], 0);
    value[length] = 'x';
    EXPECT_EQ(value.GetLength(), length);
    EXPECT_EQ(value, copy);
  }
}

TEST(BinaryDataHex, IsReadInBothCasesOrRefused) {
  struct {
    char16_t const* text;
    std::u16string_view result;  // the bytes, or the message
  } const rows[] = {
      {u"0aFFfAbC", u"0AFFFABC"},
      {u"", u""},
      {u"012", u"Invalid length in hex string"},
      {u"00G0", u"Invalid char in hex string [G]"},
      {u"0g", u"Invalid char in hex string [g]"},
      {u"xy", u"Invalid char in hex string [x]"},
      {u"\u01300", u"Invalid char in hex string [\u0130]"},
      {u" 0", u"Invalid char in hex string [ ]"},
  };
  for (auto const& row : rows) {
    CBinaryData value("old");
    std::u16string const message = Thrown([&] { value.SetAsHexString(row.text); });
    EXPECT_EQ(message == row.result ? message : value.GetAsHexString(), row.result);
    EXPECT_TRUE(message != row.result || value == CBinaryData());
  }
}

TEST(BinaryDataBase64, IsReadOrGivesNoBytes) {
  struct {
    char16_t const* text;
    std::u16string_view hex;
  } const rows[] = {
      {u"TWFu", u"4D616E"},
      {u"TWE=", u"4D61"},
      {u"TWE", u"4D61"},
      {u" T\tW\r\nE = ", u"4D61"},
      {u"T=W=F=u", u"4D616E"},
      {u"+/+/", u"FBFFBF"},
      {u"\u0154\u20D7Fu", u"4D616E"},  // as T and W, by their low seven bits
      {u"T", u""},
      {u"TW*=", u""},
      {u"TWFuTWFu-", u""},
      {u"", u""},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(ToUtf8(row.text));
    CBinaryData value("old");
    value.SetAsBase64(row.text);
    EXPECT_EQ(value.GetAsHexString(), row.hex);
    EXPECT_EQ(value == CBinaryData(), *row.text == 0) << "only an empty text gives an empty value";
  }
}

TEST(BinaryDataText, ReadsBackWhatItWrites) {
  std::string bytes;
  for (std::size_t length = 1; length < 300; ++length) {
    bytes += static_cast<char>(length * 151);
    CBinaryData const value(bytes);
    CBinaryData fromBase64, fromHex;
    fromBase64.SetAsBase64(value.GetAsBase64().c_str());
    fromHex.SetAsHexString(value.GetAsHexString().c_str());
    EXPECT_EQ(fromBase64, value);
    EXPECT_EQ(fromHex, value);
  }
  EXPECT_EQ(CBinaryData("Ma").GetAsBase64(), u"TWE=");
  EXPECT_EQ(CBinaryData::GetAsHexString(nullptr, 5), u"");
}

// For the thread sanitizer above all: no object is used by two threads, but their block is.
TEST(BinaryDataThreads, ShareABlock) {
  std::string const bytes(1000, 'x');
  CBinaryData const shared(bytes);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([copy = shared, &bytes]() mutable {
      for (int round = 0; round < 2000; ++round) {
        CBinaryData mine = copy;
        mine.Append(static_cast<unsigned char>(round));
        mine[0] = 'y';
        CBinaryData const another = std::exchange(copy, CBinaryData(copy));
        if (another.GetView() != bytes || mine.GetLength() != 1001) ADD_FAILURE();
      }
      copy[5] = 'z';
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(shared.GetView(), bytes);
}

}  // namespace
}  // namespace KestXmlLib20
