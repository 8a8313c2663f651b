// The three ways from text to bytes: a stream to memory, a stream to a file, finished bytes to a
// file. They must agree.

#include "kestxml/document/file_text_stream.h"

#include <gtest/gtest.h>

#include "kestxml/document/binary_stream.h"
#include "kestxml/document/byte_text_stream.h"
#include "tests/model/scratch_folder.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_literals;

constexpr char16_t const* kUnknownEncoding =
    u"Unknown Encoding, select UTF-8 (contact our support team)";

// As a writer does: unit by unit, with an offer to flush after each.
void Write(CTextStream& stream, std::u16string_view text) {
  stream.Open();
  for (char16_t const unit : text) {
    stream.GetBuffer().Append(unit);
    if (stream.GetBuffer().GetLength() >= CTextStream::kFlushLength) stream.Flush();
  }
  stream.Close();
}

std::string RawUnits(std::u16string const& text) {
  return {reinterpret_cast<char const*>(text.data()), text.size() * 2};
}

TEST(Streams, AgreeInEveryEncoding) {
  struct {
    XmlEncoding encoding;
    std::string mark;  // at the start of files
    std::string (*bytes)(std::u16string const& text);
  } const encodings[] = {
      {XmlEncoding_UTF8, "", [](std::u16string const& text) { return ToUtf8(text); }},
      {XmlEncoding_UTF16, "\xFF\xFE", RawUnits},
      {XmlEncoding_UTF16NoDeclaration, "\xFF\xFE", RawUnits},
  };
  std::u16string const pair = u"\U0001F600";
  std::u16string const texts[] = {
      u"",
      u"<a>é€" + pair + u"</a>",
      std::u16string(4094, u'x') + pair + u"y",  // cut between two blocks
      std::u16string(4095, u'x') + pair + u"y",  // cut between two flushes
      std::u16string(4095, u'€') + u"\xDC00y",
      std::u16string(4095, u'x') + u"\xD800",  // without a partner at the very end
      std::u16string(100'000, u'é'),
  };
  ScratchFolder const scratch;
  std::string const path = scratch.Path("größe.xml");
  for (auto const& [encoding, mark, bytes] : encodings) {
    for (std::u16string const& text : texts) {
      SCOPED_TRACE(testing::Message() << "encoding " << encoding << ", units " << text.size());
      CByteTextStream memory(encoding);
      Write(memory, text);
      CBinaryData const data = memory.TakeBytes();
      EXPECT_EQ(data.GetView(), bytes(text));
      CFileTextStream file(FromUtf8(path).c_str(), encoding);
      Write(file, text);
      EXPECT_EQ(BytesOfFile(path), mark + bytes(text));
      CFileBinaryStream(data, FromUtf8(path).c_str(), encoding).WriteToFile();
      EXPECT_EQ(BytesOfFile(path), mark + bytes(text));
    }
  }
}

// The object is written to its end first: only taking the bytes fails.
TEST(Streams, NeedAByteFormOnlyForBytes) {
  for (auto const encoding : {XmlEncoding_None, static_cast<XmlEncoding>(4)}) {
    CByteTextStream memory(encoding);
    Write(memory, std::u16string(10'000, u'x'));
    EXPECT_EQ(Thrown([&] { memory.TakeBytes(); }), kUnknownEncoding);

    ScratchFolder const scratch;
    std::string const path = scratch.Path("file");
    CFileTextStream file(FromUtf8(path).c_str(), encoding);
    file.Open();
    file.Flush();  // of nothing
    file.GetBuffer().Append(u"x");
    EXPECT_EQ(Thrown([&] { file.Flush(); }), kUnknownEncoding);
    CFileBinaryStream(CBinaryData("abc"), FromUtf8(path).c_str(), encoding).WriteToFile();
    EXPECT_EQ(BytesOfFile(path), "abc");
  }
}

TEST(Streams, BeginAnewWithOpen) {
  ScratchFolder const scratch;
  std::string const path = scratch.Path("file");
  CFileTextStream file(FromUtf8(path).c_str(), XmlEncoding_UTF8);
  CByteTextStream memory(XmlEncoding_UTF8);
  for (CTextStream* stream :
       {static_cast<CTextStream*>(&file), static_cast<CTextStream*>(&memory)}) {
    Write(*stream, std::u16string(5000, u'x') + u"\xD800");
    stream->Open();
    stream->GetBuffer().Append(u"given up");
    Write(*stream, u"second");
  }
  EXPECT_EQ(BytesOfFile(path), "second");
  EXPECT_EQ(memory.TakeBytes().GetView(), "second");
}

TEST(Streams, LeaveAPartlyWrittenFileWhenGivenUp) {
  ScratchFolder const scratch;
  std::string const path = scratch.Path("file");
  {
    CFileTextStream stream(FromUtf8(path).c_str(), XmlEncoding_UTF16);
    stream.Open();
    stream.GetBuffer().Append(u"a");
    stream.Flush();
    stream.GetBuffer().Append(u"b");
  }
  EXPECT_EQ(BytesOfFile(path), "\xFF\xFE\x61\0"s);
}

TEST(Streams, NameTheFileAndTheErrorOfAFailure) {
  ScratchFolder const scratch;
  struct {
    std::string path;
    XmlEncoding encoding;
    std::string code;
    bool atFirstWrite;  // of the text stream: its later failures don't name the file
  } const rows[] = {
      {scratch.Path("none/file"), XmlEncoding_UTF8, "[0x00000003]", true},
      {scratch.Path("."), XmlEncoding_UTF8, "[0x00000005]", true},
      {"/dev/full", XmlEncoding_UTF8, "[0x00000070]", false},
      {"/dev/full", XmlEncoding_UTF16, "[0x00000070]", true},
  };
  for (auto const& [path, encoding, code, atFirstWrite] : rows) {
    auto const named = FromUtf8("Failed to write data to the file [" + path + "] error " + code);
    auto const later = FromUtf8("Failed to write data to the file. Error " + code);
    CFileTextStream stream(FromUtf8(path).c_str(), encoding);
    EXPECT_EQ(Thrown([&] { Write(stream, u"text"); }), atFirstWrite ? named : later);
    CFileBinaryStream finished(CBinaryData("bytes"), FromUtf8(path).c_str(), encoding);
    EXPECT_EQ(Thrown([&] { finished.WriteToFile(); }), named);
  }
}

}  // namespace
}  // namespace KestXmlLib20
