// The block list that text grows in.

#include "kestxml/document/string_buffer.h"

#include <gtest/gtest.h>

#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

constexpr std::uint32_t kBlock = CStringBuffer::kBlockSize;

std::u16string Text(std::size_t length) {
  std::u16string text(length, u'\0');
  for (std::size_t i = 0; i < length; ++i) text[i] = static_cast<char16_t>(u'!' + i % 10007);
  return text;
}

void AppendInPieces(CStringBuffer& buffer, std::u16string_view text, std::size_t size) {
  for (; !text.empty(); text.remove_prefix(std::min(size, text.size()))) {
    buffer.Append(text.substr(0, size));
  }
}

std::vector<std::size_t> BlockLengths(CStringBuffer const& buffer) {
  std::vector<std::size_t> lengths;
  buffer.ForEachBlock([&](std::u16string_view block) { lengths.push_back(block.size()); });
  return lengths;
}

TEST(StringBuffer, HoldsWhatIsAppended) {
  for (std::size_t const length : {0u, 1u, 4094u, 4095u, 4096u, 8190u, 8191u, 30'000u}) {
    for (std::size_t const piece : {1u, 7u, 4094u, 4095u, 4096u, 30'000u}) {
      SCOPED_TRACE(testing::Message() << length << " units in pieces of " << piece);
      std::u16string const text = Text(length);
      CStringBuffer buffer;
      AppendInPieces(buffer, text, piece);
      EXPECT_EQ(buffer.GetLength(), length);
      EXPECT_EQ(BlockLengths(buffer).size(), (length + kBlock - 1) / kBlock);
      EXPECT_EQ(buffer.ToString(), text);
      EXPECT_EQ(std::u16string_view(buffer.GetString()), text);
      EXPECT_EQ(buffer.GetLength(), length);
      buffer.Clear();
      EXPECT_EQ(std::u16string_view(buffer.GetString()), u"");
    }
  }
}

TEST(StringBuffer, GivesAFullBlockItself) {
  CStringBuffer buffer;
  char16_t const* const block = buffer.PrepareAppend().data();
  for (std::size_t i = 0; i < kBlock; ++i) buffer.Append(u'x');
  EXPECT_EQ(buffer.GetString(), block);
  buffer.Append(u'y');
  buffer.Append(u"zz");
  EXPECT_EQ(std::u16string_view(buffer.GetString()), std::u16string(kBlock, u'x') + u"yzz");
}

TEST(StringBuffer, BeginsABlockBehindAMergedOne) {
  CStringBuffer buffer;
  buffer.Append(Text(10'000));
  buffer.GetString();
  EXPECT_EQ(BlockLengths(buffer), std::vector<std::size_t>{10'000});
  buffer.Append(u"xy");
  EXPECT_EQ(BlockLengths(buffer), (std::vector<std::size_t>{10'000, 2}));
  EXPECT_EQ(std::u16string_view(buffer.GetString()), Text(10'000) + u"xy");
}

// What the next block offers shows what Clear has kept.
TEST(StringBuffer, KeepsASingleBlockWhateverItsSize) {
  CStringBuffer buffer;
  buffer.Append(Text(10'000));
  buffer.GetString();
  buffer.Clear();
  EXPECT_EQ(buffer.PrepareAppend().size(), 10'000u);
  buffer.Append(Text(10'001));
  buffer.Clear();
  EXPECT_EQ(buffer.PrepareAppend().size(), kBlock);
}

TEST(StringBuffer, RefusesFourGigabytes) {
  CStringBuffer buffer;
  buffer.Append(u"ab");
  std::u16string_view const neverRead(u"", CStringBuffer::kMaxLength - 1);
  EXPECT_EQ(Thrown([&] { buffer.Append(neverRead); }),
            u"The document exceeds the limit of 4294967295 bytes.");
  EXPECT_EQ(buffer.ToString(), u"ab");
}

}  // namespace
}  // namespace KestXmlLib20
