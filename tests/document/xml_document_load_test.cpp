// Loads from files and byte buffers.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/compression.h"
#include "kestxml/values/unicode.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = 131'072;

class Load : public ::testing::Test {
 protected:
  void SetUp() override {
    auto const* test = ::testing::UnitTest::GetInstance()->current_test_info();
    m_folder = fs::temp_directory_path() / (std::string("kestxml_load_") + test->name());
    fs::create_directories(m_folder);
  }
  void TearDown() override {
    AsyncFromXmlFile(false);
    fs::remove_all(m_folder);
  }

  // A file with these bytes, under a name outside ASCII.
  std::u16string File(std::string const& bytes) {
    auto const path = m_folder / u8"größe.xml";
    std::ofstream(path, std::ios::binary) << bytes;
    return path.u16string();
  }
  std::u16string Missing(char const* name) const { return (m_folder / name).u16string(); }

  static std::string Bytes(CBinaryData const& data) {
    return {reinterpret_cast<char const*>(data.GetData()), data.GetLength()};
  }

  fs::path m_folder;
};

std::string Document(std::size_t length) {
  std::string const frame = "<a></a>";
  return "<a>" + std::string(length - frame.size(), 'x') + "</a>";
}

CBinaryData Compressed(std::string const& text, CompressionType type) {
  std::string copy = text;
  CBinaryData data(reinterpret_cast<unsigned char*>(copy.data()),
                   static_cast<std::uint32_t>(copy.size()), false);
  CompressBinaryData(data, type);
  return data;
}

std::size_t TextLength(CXmlDocument const& document) {
  return document.GetDocumentElement()->GetText().size();
}

TEST_F(Load, ReadsFilesOfEverySizeOnBothPaths) {
  for (bool overlapped : {false, true}) {
    AsyncFromXmlFile(overlapped);
    for (std::size_t length : {std::size_t{8}, kBlock - 1, kBlock + 1, 3 * kBlock + 17}) {
      CXmlDocument document;
      document.Load(File(Document(length)).c_str());
      EXPECT_EQ(TextLength(document), length - 7) << length << overlapped;
    }
  }
}

// Only a block that falls short of the others is known to be the last.
TEST_F(Load, RefusesAWholeNumberOfBlocksWhenOverlapped) {
  for (std::size_t const blocks : {1u, 2u}) {
    auto const name = File(Document(blocks * kBlock));
    CXmlDocument document;
    document.Load(name.c_str());
    EXPECT_EQ(TextLength(document), blocks * kBlock - 7);
    AsyncFromXmlFile(true);
    EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }),
              u"Failed to read the contents of the file. Error [0x00000026]");
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    AsyncFromXmlFile(false);
  }
}

// The offset of an overlapped load outlives it.
TEST_F(Load, GoesOnWhereTheLastOverlappedLoadEnded) {
  auto const name = File(Document(100));
  AsyncFromXmlFile(true);
  CXmlDocument document;
  document.Load(name.c_str());
  EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }),
            u"Failed to read the contents of the file [" + name + u"] Error [0x00000026]");
}

TEST_F(Load, FindsTheErrorInALaterBlock) {
  std::string text = Document(2 * kBlock);
  text.replace(kBlock + 10, 2, "\n<");
  AsyncFromXmlFile(true);
  CXmlDocument document;
  EXPECT_EQ(Thrown([&] { document.Load(File(text).c_str()); }),
            u"not well-formed (invalid token) at line 2");
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
}

TEST_F(Load, SaysWhyAFileCanNotBeHad) {
  auto const directory = m_folder.u16string();
  auto const missing = Missing("none.xml");
  auto const missingFolder = Missing("none/none.xml");
  for (bool overlapped : {false, true}) {
    AsyncFromXmlFile(overlapped);
    for (auto const& [name, code] :
         {std::pair{missing, u"0x00000002"}, std::pair{missingFolder, u"0x00000003"},
          std::pair{directory, u"0x00000005"}}) {
      CXmlDocument document;
      EXPECT_EQ(Thrown([&, &file = name] { document.Load(file.c_str()); }),
                u"Failed to open the file [" + name + u"] Error [" + code + u"]");
    }
  }
}

TEST_F(Load, RefusesAnEmptyFile) {
  auto const name = File("");
  CXmlDocument document;
  EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }), u"no element found at line 1");
  AsyncFromXmlFile(true);
  EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }),
            u"Failed to read the contents of the file [" + name + u"] Error [0x00000026]");
}

// The system can't tell the size of a file of 4 GiB in 32 bits. The file has no blocks on disk.
TEST_F(Load, RefusesAFileOf4GiB) {
  auto const name = File("<a/>");
  fs::resize_file(fs::path(name), std::uintmax_t{1} << 32);
  CXmlDocument document;
  EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }),
            u"Failed to get the size of the file [" + name + u"] Error [0x000000df]");
}

TEST_F(Load, InflatesWhatIsReadWhole) {
  for (auto const type : {CompressionType_GZip, CompressionType_ZLib}) {
    CBinaryData const data = Compressed(Document(5000), type);
    auto const name = File(Bytes(data));
    CXmlDocument document;
    document.LoadXmlStream(data.GetData(), data.GetLength());
    EXPECT_EQ(TextLength(document), 4993u);
    document.Load(name.c_str());
    EXPECT_EQ(TextLength(document), 4993u);
    AsyncFromXmlFile(true);
    EXPECT_EQ(Thrown([&] { document.Load(name.c_str()); }),
              u"not well-formed (invalid token) at line 1");
    AsyncFromXmlFile(false);
  }
}

TEST_F(Load, TakesDamagedCompressedDataAsText) {
  CBinaryData const data = Compressed(Document(5000), CompressionType_GZip);
  CXmlDocument document;
  for (std::uint32_t length = 1; length < data.GetLength(); ++length) {
    EXPECT_EQ(Thrown([&] { document.LoadXmlStream(data.GetData(), length); }),
              u"not well-formed (invalid token) at line 1");
  }
}

TEST_F(Load, HoldsTheLimitOnInflating) {
  CBinaryData const data = Compressed(Document(100'000), CompressionType_GZip);
  CSerializationContext context;
  context.GetLimits().SetMaxInflatedBytes(100'000);
  CXmlDocument document(context);
  document.LoadXmlStream(data.GetData(), data.GetLength());
  EXPECT_EQ(TextLength(document), 99'993u);
  context.GetLimits().SetMaxInflatedBytes(99'999);
  char16_t const* const refused =
      u"The document exceeds the limit of 99999 bytes after decompression.";
  EXPECT_EQ(Thrown([&] { document.LoadXmlStream(data.GetData(), data.GetLength()); }), refused);
  EXPECT_EQ(Thrown([&] { document.Load(File(Bytes(data)).c_str()); }), refused);
}

}  // namespace
}  // namespace KestXmlLib20
