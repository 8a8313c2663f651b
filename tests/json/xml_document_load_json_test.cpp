// JSON from bytes, texts and files.
#include <gtest/gtest.h>

#include "kestxml/values/compression.h"
#include "tests/json/converted.h"
#include "tests/model/scratch_folder.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_literals;

std::u16string FromBytes(std::string const& bytes, CSerializationContext const& context = {}) {
  return ConvertedBy(context, [&](CXmlDocument& document) {
    return document.LoadJsonStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                                   static_cast<std::uint32_t>(bytes.size()));
  });
}

std::u16string FromNarrow(char const* text) {
  return ConvertedBy({}, [&](CXmlDocument& document) { return document.LoadJson(text); });
}

std::u16string FromFile(std::string const& path) {
  return ConvertedBy(
      {}, [&](CXmlDocument& document) { return document.LoadJsonFile(FromUtf8(path).c_str()); });
}

std::string const kJson = "{\"\xC3\xA4\":\"\xE2\x82\xAC\xF0\x9F\x98\x80\"}";
std::u16string const kXml = u"<\u00E4>\u20AC\U0001F600</\u00E4>\n";

TEST(LoadJson, ReadsEveryInput) {
  ScratchFolder const folder;
  std::string const path = folder.MakeFile(
      "gr\xC3\xB6\xC3\x9F"
      "e.json",
      kJson);
  EXPECT_EQ(FromBytes(kJson), kXml);
  EXPECT_EQ(FromBytes("\xEF\xBB\xBF" + kJson), kXml);
  EXPECT_EQ(FromNarrow(kJson.c_str()), kXml);
  EXPECT_EQ(Converted(FromUtf8(kJson)), kXml);
  EXPECT_EQ(FromFile(path), kXml);
}

TEST(LoadJson, Inflates) {
  ScratchFolder const folder;
  std::string const json = "{\"a\":\"" + std::string(1000, 'x') + "\"}";
  for (auto const type : {CompressionType_GZip, CompressionType_ZLib}) {
    CBinaryData data{std::string_view(json)};
    CompressBinaryData(data, type);
    std::string const bytes(data.GetView());
    EXPECT_EQ(FromBytes(bytes), Converted(FromUtf8(json)));
    EXPECT_EQ(FromFile(folder.MakeFile("a", bytes)), Converted(FromUtf8(json)));
    CSerializationContext context;
    context.GetLimits().SetMaxInflatedBytes(100);
    EXPECT_EQ(FromBytes(bytes, context),
              u"Exception: The document exceeds the limit of 100 bytes after decompression.");
  }
}

TEST(LoadJson, RefusesEmptyInput) {
  std::u16string const stream = u"Exception: JSON Stream is empty!";
  std::u16string const string = u"Exception: JSON String is empty!";
  EXPECT_EQ(FromBytes(""), stream);
  EXPECT_EQ(ConvertedBy({}, [](CXmlDocument& it) { return it.LoadJsonStream(nullptr, 5); }),
            stream);
  EXPECT_EQ(FromNarrow(""), string);
  EXPECT_EQ(FromNarrow(nullptr), string);
  EXPECT_EQ(Converted(u""), string);
  ScratchFolder const folder;
  EXPECT_EQ(FromFile(folder.MakeFile("empty", "")), u"") << "a file without a value is one";
}

TEST(LoadJson, NamesTheFileThatCantBeRead) {
  ScratchFolder const folder;
  auto const path = folder.Path("missing");
  EXPECT_EQ(FromFile(path),
            u"Exception: Failed to open the file [" + FromUtf8(path) + u"] Error [0x00000002]");
}

// Each is a string of the value of one member; what is malformed becomes U+FFFD.
TEST(LoadJson, DecodesWhateverStandsInStrings) {
  struct {
    char const* name;
    std::string bytes;
    std::u16string text;
  } const rows[] = {
      {"LoneContinuation", "\x80", u"\uFFFD"},
      {"NeverInUtf8", "\xFF\xFE", u"\uFFFD\uFFFD"},
      {"Overlong", "\xC0\xAF", u"\uFFFD\uFFFD"},
      {"Surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
      {"BeyondUnicode", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"CutOffByTheQuote", "\xE2\x82", u"\uFFFD"},
  };
  for (auto const& [name, bytes, text] : rows) {
    SCOPED_TRACE(name);
    EXPECT_EQ(FromBytes("{\"a\":\"" + bytes + "\"}"), u"<a>" + text + u"</a>\n");
    EXPECT_EQ(FromNarrow(("{\"a\":\"" + bytes + "\"}").c_str()), u"<a>" + text + u"</a>\n");
  }
  EXPECT_EQ(Converted(u"{\"a\":\"\xD83D\"}"), u"<a>\uFFFD</a>\n");
}

TEST(LoadJson, EndsAtTheFirstNull) {
  EXPECT_EQ(FromBytes("{\"a\":1}\0x"s), u"<a>1</a>\n");
  EXPECT_EQ(FromBytes("{\"a\":\"b\0c\"}"s),
            u"Validation: Unexpected End of File. Expected string value at line 1, position 7. "
            u"@ $.a");
  EXPECT_EQ(FromBytes("{\0\"\0a\0"s),  // UTF-16, which only a text can be in
            u"Validation: Unexpected End of File. Expected Object terminator character '}}' at "
            u"line 1, position 1. @ $");
}

// The bytes lie at the end of a block of their size, so that a sanitizer sees a look beyond.
TEST(LoadJson, RefusesBytesThatAreCutOff) {
  std::string const json =
      "\xEF\xBB\xBF{\"\xC3\xA4\":[{\"b\":\"\xF0\x9F\x98\x80\\u0041\"},{\"c\":tru\x65}] }";
  for (std::size_t length = 1; length < json.size(); ++length) {
    std::string const exact = json.substr(0, length);
    std::u16string const outcome = FromBytes(exact);
    if (length == 3) {
      EXPECT_EQ(outcome, u"") << "a byte order mark alone is no value";
    } else {
      EXPECT_EQ(outcome.find(u"Validation: "), 0U) << length << ToUtf8(outcome);
      EXPECT_NE(outcome.find(u" at line "), outcome.npos) << length << ToUtf8(outcome);
    }
  }
}

}  // namespace
}  // namespace KestXmlLib20
