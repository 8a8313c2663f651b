// What ends a To... or From... operation, and what it leaves behind.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/async_output.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/unicode.h"
#include "tests/model/bare_object.h"
#include "tests/model/node.h"
#include "tests/model/scratch_folder.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

CSerializationContext const kContext;

constexpr char16_t kInvalidEol[] = u"Invalid EOL type.";
constexpr char16_t kUnclosed[] = u"An Element has not been closed.";
constexpr char16_t kUnknownEncoding[] =
    u"Unknown Encoding, select UTF-8 (contact our support team)";
constexpr char16_t kZLib[] = u"ZLIB Compression only available for To Stream methods.";
constexpr char16_t kNoDirectory[] = u"Failed to write data to the file [%] error [0x00000003]";
constexpr auto kNoEol = static_cast<EOLType>(2);

// Writes one element, which it may leave open, and counts that.
class Root : public BareObject {
 public:
  explicit Root(bool closes = true) : m_closes(closes) {}
  mutable int written = 0;

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CSerializationContext const&,
                 bool) const override {
    ++written;
    writer->StartElement(u"a", u"");
    if (m_closes) writer->EndElement();
  }

 private:
  bool m_closes;
};

// A "%" in a message stands for the file.
std::u16string WithFile(std::u16string message, std::u16string const& file) {
  if (auto const at = message.find(u'%'); at != message.npos) message.replace(at, 1, file);
  return message;
}

// The encoding is looked at when the whole object has been written, and compression comes last.
TEST(ToXmlStreamFails, InOrder) {
  // clang-format off
  struct {
    char const* name; bool closes; XmlEncoding encoding; EOLType eol; CompressionType compression;
    char16_t const* message; int written;
  } const rows[] = {
      {"EolType",         true,  XmlEncoding_None, kNoEol,     CompressionType_None, kInvalidEol,      0},
      {"Unclosed",        false, XmlEncoding_None, EOLType_LF, CompressionType_None, kUnclosed,        1},
      {"NoEncoding",      true,  XmlEncoding_None, EOLType_LF, CompressionType_GZip, kUnknownEncoding, 1},
      {"UnknownEncoding", true,  XmlEncoding{4},   EOLType_LF, CompressionType_None, kUnknownEncoding, 1},
      {"TooShort",        true,  XmlEncoding_UTF8, EOLType_LF, CompressionType_GZip, u"Failed to compress data. [Error Code: 0]", 1},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    CSmartPtr<Root> const object(new Root(row.closes));
    EXPECT_EQ(Thrown([&] {
                object->ToXmlStream(true, false, row.encoding, row.eol, kContext, row.compression);
              }),
              row.message);
    EXPECT_EQ(object->written, row.written);
  }
}

TEST(ToXmlFails, WithAnUnknownEolTypeOrAnOpenElement) {
  CSmartPtr<Root> const object(new Root(false));
  EXPECT_EQ(Thrown([&] { object->ToXml(true, false, kNoEol, kContext); }), kInvalidEol);
  EXPECT_EQ(Thrown([&] { object->ToXml(true, false, EOLType_LF, kContext); }), kUnclosed);
}

TEST(ToXmlFileFails, AndLeavesWhatWasWritten) {
  // clang-format off
  struct {
    char const* name; bool async; char const* file; bool closes; XmlEncoding encoding; EOLType eol;
    CompressionType compression; char16_t const* message; bool leavesFile;
  } const rows[] = {
      {"ZLibBeforeAllElse",  true,  "x/f",       false, XmlEncoding_None, kNoEol,     CompressionType_ZLib, kZLib,            false},
      {"EolType",            false, "f",         true,  XmlEncoding_UTF8, kNoEol,     CompressionType_None, kInvalidEol,      false},
      {"EolTypeAsync",       true,  "f",         true,  XmlEncoding_UTF8, kNoEol,     CompressionType_None, kInvalidEol,      true},
      {"NoEncoding",         false, "f",         true,  XmlEncoding_None, EOLType_LF, CompressionType_None, kUnknownEncoding, false},
      {"NoEncodingAsync",    true,  "f",         true,  XmlEncoding_None, EOLType_LF, CompressionType_None, kUnknownEncoding, true},
      {"Unclosed",           false, "f",         false, XmlEncoding_UTF8, EOLType_LF, CompressionType_None, kUnclosed,        false},
      {"UnclosedAsync",      true,  "f",         false, XmlEncoding_UTF8, EOLType_LF, CompressionType_None, kUnclosed,        true},
      {"NoDirectory",        false, "x/f",       true,  XmlEncoding_UTF8, EOLType_LF, CompressionType_None, kNoDirectory,     false},
      {"NoDirectoryAsync",   true,  "x/f",       true,  XmlEncoding_UTF8, EOLType_LF, CompressionType_None, kNoDirectory,     false},
      {"FullDisk",           false, "/dev/full", true,  XmlEncoding_UTF8, EOLType_LF, CompressionType_None, u"Failed to write data to the file [%] error [0x00000070]", true},
      {"FullDiskAsync",      true,  "/dev/full", true,  XmlEncoding_UTF8, EOLType_LF, CompressionType_None, u"Failed to write data to the file. Error [0x00000070]",    true},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    ScratchFolder const folder;
    std::string const file = row.file[0] == '/' ? row.file : folder.Path(row.file);
    CSmartPtr<Root> const object(new Root(row.closes));
    AsyncToXmlFile(row.async);
    auto const message = Thrown([&] {
      object->ToXmlFile(FromUtf8(file).c_str(), false, false, row.encoding, row.eol, kContext,
                        row.compression);
    });
    AsyncToXmlFile(false);
    EXPECT_EQ(message, WithFile(row.message, FromUtf8(file)));
    EXPECT_EQ(std::filesystem::exists(file), row.leavesFile);
  }
}

TEST(FromXmlFails, WithTheMessageOfItsLoad) {
  // clang-format off
  struct {
    char const* name; void (*read)(Node&); char16_t const* message;
  } const rows[] = {
      {"Bytes",       [](Node& to) { to.FromXml("<a>\n</b>", kContext); },         u"mismatched tag at line 2"},
      {"Text",        [](Node& to) { to.FromXml(u"<a>\n</b>", kContext); },        u"mismatched tag at line 2"},
      {"EmptyBytes",  [](Node& to) { to.FromXml("", kContext); },                  u"XML String is empty!"},
      {"NullBytes", [](Node& to) { to.FromXml(static_cast<char const*>(nullptr), kContext); }, u"XML String is empty!"},
      {"NullText", [](Node& to) { to.FromXml(static_cast<char16_t const*>(nullptr), kContext); }, u"no element found at line 1"},
      {"NullName", [](Node& to) { to.FromXmlFile(nullptr, kContext); }, u"Failed to open the file [] Error [0x00000002]"},
      {"EmptyText",   [](Node& to) { to.FromXml(u"", kContext); },                 u"no element found at line 1"},
      {"EmptyData",   [](Node& to) { to.FromXmlStream(CBinaryData(), kContext); }, u"XML Stream is empty!"},
      {"NullElement", [](Node& to) { to.FromXmlElement(static_cast<CXmlElement*>(nullptr), kContext); }, u"Invalid or empty XML document"},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    CSmartPtr<Node> const node(new Node(u"before", u"text"));
    EXPECT_EQ(Thrown([&] { row.read(*node); }), row.message);
    EXPECT_EQ(*node, Node(u"before", u"text"));
  }
}

TEST(FromXmlFileFails, WithTheMessageOfItsLoad) {
  ScratchFolder const folder;
  folder.MakeFile("broken", "<a>\n</b>");
  folder.MakeFile("empty", "");
  folder.MakeFile("secret", "<a/>");
  std::filesystem::permissions(folder.Path("secret"), std::filesystem::perms::owner_write);
  // clang-format off
  struct {
    bool async; char const* file; char16_t const* message;
  } const rows[] = {
      {false, "broken", u"mismatched tag at line 2"},
      {true,  "broken", u"mismatched tag at line 2"},
      {false, "none",   u"Failed to open the file [%] Error [0x00000002]"},
      {true,  "none",   u"Failed to open the file [%] Error [0x00000002]"},
      {false, "x/none", u"Failed to open the file [%] Error [0x00000003]"},
      {false, ".",      u"Failed to open the file [%] Error [0x00000005]"},
      {true,  ".",      u"Failed to open the file [%] Error [0x00000005]"},
      {false, "empty",  u"no element found at line 1"},
      {true,  "empty",  u"Failed to read the contents of the file [%] Error [0x00000026]"},
      {false, "secret", u"Failed to open the file [%] Error [0x00000005]"},
  };
  // clang-format on
  for (auto const& row : rows) {
    if (row.file == std::string("secret") && geteuid() == 0) continue;  // root reads any file
    SCOPED_TRACE(testing::Message() << row.file << (row.async ? ", async" : ""));
    auto const file = FromUtf8(folder.Path(row.file));
    CSmartPtr<Node> const node(new Node);
    AsyncFromXmlFile(row.async);
    auto const message = Thrown([&] { node->FromXmlFile(file.c_str(), kContext); });
    AsyncFromXmlFile(false);
    EXPECT_EQ(message, WithFile(row.message, file));
  }
}

TEST(DepthLimit, HoldsOnWritingAndOnReading) {
  CSmartPtr<Node> const root(new Node(u"a"));
  root->Add(u"b").Add(u"c");
  auto const text = root->ToXml(false, false, EOLType_LF, kContext);
  CSerializationContext context;
  auto const write = [&] { root->ToXml(false, false, EOLType_LF, context); };
  auto const writeBytes = [&] {
    root->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, context, CompressionType_None);
  };
  auto const read = [&] { CSmartPtr<Node>(new Node)->FromXml(text.c_str(), context); };

  context.GetLimits().SetMaxDepth(3);
  for (auto const& thrown : {Thrown(write), Thrown(writeBytes), Thrown(read)}) {
    EXPECT_EQ(thrown, kNothingThrown);
  }
  context.GetLimits().SetMaxDepth(2);
  for (auto const& thrown : {Thrown(write), Thrown(writeBytes), Thrown(read)}) {
    EXPECT_EQ(thrown.substr(0, thrown.find(u'\n')),
              u"The document exceeds the limit of 2 nested elements.");
  }
}

}  // namespace
}  // namespace KestXmlLib20
