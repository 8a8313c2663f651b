// gzip and zlib wrapping: what shrinks, what fails, what counts as plain.

#include "kestxml/values/compression.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

#include "kestxml/values/binary_data.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

std::string Text(std::size_t length) {
  std::string text;
  for (int i = 0; text.size() < length; ++i) text += "<item>" + std::to_string(i) + "</item>";
  return text.substr(0, length);
}

std::string Compress(std::string const& text, CompressionType type) {
  CBinaryData data(text);
  CompressBinaryData(data, type);
  return std::string(data.GetView());
}

// What DecompressBuffer leaves of @p bytes.
std::string Decompress(std::string const& bytes, std::uint64_t maxBytes = 0) {
  CBinaryData input(bytes);
  std::uint32_t length = input.GetLength();
  unsigned char* data = input.ReleaseData();
  unsigned char* const before = data;
  std::u16string const message = Thrown([&] { DecompressBuffer(&data, &length, maxBytes); });
  bool const thrown = message != Thrown([] {});
  std::string const result(length ? reinterpret_cast<char const*>(data) : "", length);
  EXPECT_TRUE(!thrown || (data == before && result == bytes)) << "refused input is untouched";
  std::free(data);
  return thrown ? ToUtf8(message) : result;
}

TEST(Compression, InflatesToWhatWasCompressed) {
  for (std::size_t const length : {25u, 1000u, 65'535u, 65'536u, 65'537u, 3'000'000u}) {
    std::string const text = length == 25 ? std::string(25, 'a') : Text(length);
    std::string const gzip = Compress(text, CompressionType_GZip);
    std::string const zlib = Compress(text, CompressionType_ZLib);
    EXPECT_EQ(gzip.substr(0, 3), "\x1F\x8B\x08");
    EXPECT_EQ(zlib.substr(0, 2), "\x78\x01");
    EXPECT_EQ(Decompress(gzip), text);
    EXPECT_EQ(Decompress(zlib), text);
  }
}

// The result must fit into the size of the input; the code is what the last call of zlib gave.
TEST(Compression, FailsWhereNothingIsGained) {
  struct {
    CompressionType type;
    char const* text;
    char16_t const* message;
  } const rows[] = {
      {CompressionType_GZip, "<a/>", u"Failed to compress data. [Error Code: -5]"},
      {CompressionType_ZLib, "<a/>", u"Failed to compress data. [Error Code: 0]"},
      {CompressionType_GZip, "<root>12345/", u"Failed to compress data. [Error Code: 0]"},
  };
  for (auto const& row : rows) {
    CBinaryData data(row.text);
    EXPECT_EQ(Thrown([&] { CompressBinaryData(data, row.type); }), row.message) << row.text;
    EXPECT_EQ(data, CBinaryData());
  }
}

TEST(Compression, LeavesAsItIsWhatIsNotToBeCompressed) {
  EXPECT_EQ(Compress("text", CompressionType_None), "text");
  EXPECT_EQ(Compress("text", static_cast<CompressionType>(7)), "text");
  EXPECT_EQ(Compress("", CompressionType_GZip), "");
}

std::string Damaged(std::string bytes, std::size_t fromEnd) {
  bytes[bytes.size() - fromEnd] = static_cast<char>(~bytes[bytes.size() - fromEnd]);
  return bytes;
}

TEST(Decompression, LeavesAsItIsWhatDoesNotInflate) {
  std::string const gzip = Compress(Text(1000), CompressionType_GZip);
  std::string const zlib = Compress(Text(1000), CompressionType_ZLib);
  std::pair<char const*, std::string> const rows[] = {
      {"empty", ""},
      {"one byte", "\x1F"},
      {"XML", "<a/>"},
      {"no more than the mark", "\x1F\x8B"},
      {"looks like zlib", "x\x9C and then text"},
      {"truncated gzip", gzip.substr(0, gzip.size() - 1)},
      {"truncated zlib", zlib.substr(0, zlib.size() / 2)},
      {"wrong length", Damaged(gzip, 1)},
      {"wrong checksum", Damaged(zlib, 1)},
      {"wrong data", Damaged(gzip, gzip.size() / 2)},
      {"needs a dictionary", std::string("\x78\x20\0\0\0\1\0\0", 8)},
  };
  for (auto const& [name, bytes] : rows) EXPECT_EQ(Decompress(bytes), bytes) << name;
}

TEST(Decompression, DropsWhatFollowsTheStream) {
  std::string const gzip = Compress(Text(1000), CompressionType_GZip);
  EXPECT_EQ(Decompress(gzip + "rest"), Text(1000));
  EXPECT_EQ(Decompress(gzip + gzip), Text(1000));
}

TEST(Decompression, StopsAtItsLimit) {
  constexpr std::size_t kLength = 50'000'000;
  std::string const bomb = Compress(std::string(kLength, ' '), CompressionType_GZip);
  auto const refusal = [](std::uint64_t limit) {
    return "The document exceeds the limit of " + std::to_string(limit) +
           " bytes after decompression.";
  };
  for (std::uint64_t const limit : {1u, 65'535u, 65'536u, 65'537u, 49'999'999u}) {
    EXPECT_EQ(Decompress(bomb, limit), refusal(limit));
  }
  for (std::uint64_t const limit : {std::uint64_t{kLength}, ~std::uint64_t{0}}) {
    EXPECT_EQ(Decompress(bomb, limit).size(), kLength);
  }
}

}  // namespace
}  // namespace KestXmlLib20
