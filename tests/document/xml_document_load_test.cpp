// Loads from files and byte buffers.

#include <gtest/gtest.h>

#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/compression.h"
#include "tests/model/scratch_folder.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

constexpr std::size_t kBlock = 131'072;
constexpr char16_t kNotWellFormed[] = u"not well-formed (invalid token) at line 1";

std::string Document(std::size_t length) {
  return "<a>" + std::string(length - 7, 'x') + "</a>";
}

CBinaryData Compressed(std::size_t length, CompressionType type) {
  CBinaryData data(Document(length));
  CompressBinaryData(data, type);
  return data;
}

class Load : public testing::Test {
 protected:
  ~Load() override { AsyncFromXmlFile(false); }

  // The name of a file with these bytes; it lies outside ASCII.
  std::u16string File(std::string_view bytes) const {
    return FromUtf8(m_folder.MakeFile("größe.xml", std::string(bytes)));
  }
  std::u16string Failure(std::u16string const& file, bool overlapped = false) {
    AsyncFromXmlFile(overlapped);
    return Thrown([&] { m_document.Load(file.c_str()); });
  }
  // The length of the document that was loaded last.
  std::size_t Length() const { return m_document.GetDocumentElement()->GetText().size() + 7; }

  ScratchFolder const m_folder;
  CXmlDocument m_document;
};

TEST_F(Load, ReadsFilesOfEverySizeOnBothPaths) {
  for (bool const overlapped : {false, true}) {
    for (std::size_t const length :
         {std::size_t{8}, kBlock - 1, kBlock + 1, 3 * kBlock + 17, 50 * kBlock + 1}) {
      CXmlDocument document;
      AsyncFromXmlFile(overlapped);
      document.Load(File(Document(length)).c_str());
      EXPECT_EQ(document.GetDocumentElement()->GetText().size() + 7, length) << overlapped;
    }
  }
}

// Only a block that falls short of the others is known to be the last.
TEST_F(Load, RefusesAWholeNumberOfBlocksWhenOverlapped) {
  for (std::size_t const blocks : {1u, 2u}) {
    auto const name = File(Document(blocks * kBlock));
    EXPECT_EQ(Failure(name), kNothingThrown);
    EXPECT_EQ(Length(), blocks * kBlock);
    CXmlDocument document;
    AsyncFromXmlFile(true);
    EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }),
              u"Failed to read the contents of the file. Error [0x00000026]");
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
  }
}

// The offset of an overlapped load outlives it.
TEST_F(Load, GoesOnWhereTheLastOverlappedLoadEnded) {
  auto const name = File(Document(100));
  EXPECT_EQ(Failure(name, true), kNothingThrown);
  EXPECT_EQ(Failure(name, true),
            u"Failed to read the contents of the file [" + name + u"] Error [0x00000026]");
}

TEST_F(Load, FindsTheErrorInALaterBlock) {
  std::string text = Document(2 * kBlock);
  text.replace(kBlock + 10, 2, "\n<");
  EXPECT_EQ(Failure(File(text), true), u"not well-formed (invalid token) at line 2");
  EXPECT_EQ(m_document.GetDocumentElement(), nullptr);
}

// The system can't tell the size of a file of 4 GiB in 32 bits. That file has no blocks on disk.
TEST_F(Load, RefusesAFileOf4GiB) {
  auto const name = File("<a/>");
  std::filesystem::resize_file(std::filesystem::path(name), std::uintmax_t{1} << 32);
  EXPECT_EQ(Failure(name),
            u"Failed to get the size of the file [" + name + u"] Error [0x000000df]");
}

TEST_F(Load, InflatesWhatIsReadWhole) {
  for (auto const type : {CompressionType_GZip, CompressionType_ZLib}) {
    CBinaryData const data = Compressed(5000, type);
    m_document.LoadXmlStream(data.GetData(), data.GetLength());
    EXPECT_EQ(Length(), 5000u);
    EXPECT_EQ(Failure(File(data.GetView())), kNothingThrown);
    EXPECT_EQ(Length(), 5000u);
    AsyncFromXmlFile(true);
    CXmlDocument document;
    EXPECT_EQ(Thrown([&] { document.Load(File(data.GetView()).c_str()); }), kNotWellFormed);
  }
}

TEST_F(Load, TakesDamagedCompressedDataAsText) {
  CBinaryData const data = Compressed(5000, CompressionType_GZip);
  for (std::uint32_t length = 1; length < data.GetLength(); ++length) {
    EXPECT_EQ(Thrown([&] { m_document.LoadXmlStream(data.GetData(), length); }), kNotWellFormed);
  }
}

TEST_F(Load, HoldsTheLimitOnInflating) {
  CBinaryData const data = Compressed(100'000, CompressionType_GZip);
  CSerializationContext context;
  context.GetLimits().SetMaxInflatedBytes(100'000);
  CXmlDocument document(context);
  auto const load = [&] { document.LoadXmlStream(data.GetData(), data.GetLength()); };
  EXPECT_EQ(Thrown(load), kNothingThrown);
  context.GetLimits().SetMaxInflatedBytes(99'999);
  constexpr char16_t kRefused[] =
      u"The document exceeds the limit of 99999 bytes after decompression.";
  EXPECT_EQ(Thrown(load), kRefused);
  EXPECT_EQ(Thrown([&] { document.Load(File(data.GetView()).c_str()); }), kRefused);
}

}  // namespace
}  // namespace KestXmlLib20
