// JSON text, character by character. Much of it is no JSON to a strict reader; all of it is kept.
#include "kestxml/json/json_text_writer.h"

#include <gtest/gtest.h>

#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/document/xml_writer_context.h"
#include "tests/model/outcome.h"
#include "tests/model/row_name.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;

// The writer, in calls that can be chained.
class Writer : public CJsonTextWriter {
 public:
  using CJsonTextWriter::CJsonTextWriter;

  Writer& Mode(JsonRoundTrip value) {
    SetSupportRoundtrip(value);
    return *this;
  }
  Writer& Start(std::u16string_view localName, std::u16string_view uri = u"") {
    StartElement(localName, uri);
    return *this;
  }
  Writer& Text(std::u16string_view text, ItemType type = ItemType_string) {
    WriteText(text, type, false);
    return *this;
  }
  Writer& Attribute(std::u16string_view localName, std::u16string_view value,
                    std::u16string_view uri = u"", ItemType type = ItemType_string) {
    WriteAttribute(localName, uri, value, type);
    return *this;
  }
  Writer& Type(std::u16string_view uri, std::u16string_view typeName) {
    WriteTypeAttribute(uri, typeName, ItemType_string);
    return *this;
  }
  Writer& Leaf(std::u16string_view localName, std::u16string_view text) {
    return Start(localName).Text(text, ItemType_i4).End();
  }
  // As the metadata does around the items of a collection.
  Writer& Items(int state) {
    GetCurrentContext()->m_arrayState = state;
    return *this;
  }
  Writer& End() {
    EndElement();
    return *this;
  }
};

struct OutputCase {
  char const* name;
  void (*write)(Writer& w);
  char16_t const* expected;  // what is written, or the failure
};

void PrintTo(OutputCase const& row, std::ostream* out) {
  *out << row.name;
}

std::u16string Written(OutputCase const& row, bool prettyPrint) {
  CTextStream stream(XmlEncoding_None);
  Writer writer(stream);
  return KestModel::OutcomeOf([&] {
    writer.OpenWriter();
    writer.SetPrettyPrint(prettyPrint);
    row.write(writer);
    writer.CloseWriter();
    return stream.GetBuffer().ToString();
  });
}

// A root with two objects in a collection and a child behind it.
void WriteCollection(Writer& w) {
  w.Start(u"r").Items(1);
  w.Start(u"c").Leaf(u"x", u"1").End();
  w.Start(u"c").Leaf(u"x", u"2").Leaf(u"y", u"3").End();
  w.Items(3).Leaf(u"d", u"4").End();
}

// clang-format off
constexpr OutputCase kUnformatted[] = {
    {"Element",        [](Writer& w) { w.Start(u"r").Start(u"a").Text(u"x").End().End(); }, u"\"r\": {\"a\": \"x\"}"},
    {"AttributeAndText", [](Writer& w) { w.Start(u"r").Attribute(u"b", u"1").Text(u"t").End(); }, u"\"r\": {\"@b\": \"1\",\"#text\": \"t\"}"},
    {"AttributesOnly", [](Writer& w) { w.Start(u"r").Attribute(u"b", u"1").Attribute(u"c", u"2", u"", ItemType_i4).End(); }, u"\"r\": {\"@b\": \"1\",\"@c\": 2}"},
    {"Siblings",       [](Writer& w) { w.Start(u"r").Leaf(u"a", u"1").Leaf(u"b", u"2").End(); }, u"\"r\": {\"a\": 1,\"b\": 2}"},
    {"EmptyHasNoValue", [](Writer& w) { w.Start(u"r").Start(u"a").End().Leaf(u"b", u"2").End(); }, u"\"r\": {\"a\": ,\"b\": 2}"},
    {"EmptyText",      [](Writer& w) { w.Start(u"r").Start(u"a").Text(u"").End().End(); }, u"\"r\": {\"a\": \"\"}"},
    {"ChildBehindText", [](Writer& w) { w.Start(u"r").Text(u"x").Leaf(u"a", u"1").End(); }, u"\"r\": \"x\"{\"a\": 1}"},
    {"TextBehindChild", [](Writer& w) { w.Start(u"r").Leaf(u"a", u"1").Text(u"x").End(); }, u"\"r\": {\"a\": 1,\"#text\": \"x\"}"},
    {"NilAndTheLikeAreNothing", [](Writer& w) { w.WriteProcessingInstruction(u"<?x?>"); w.Start(u"r"); w.WriteRawAttributes(u"a='1'"); w.WriteNil(); w.End(); }, u"\"r\": "},
    {"Comment",        [](Writer& w) { w.SetEOLType(EOLType_CRLF); w.WriteComment(u"a\n\"b\"\u0001"); w.Start(u"r").Text(u"x").End(); }, u"/* a\r\n\"b\"\\u0001 */\r\n\"r\": \"x\""},
    {"DefaultValueIsWritten", [](Writer& w) { w.Start(u"r"); w.WriteText(u"x", ItemType_string, true); w.End(); }, u"\"r\": \"x\""},
    // The bracket closes where the parent ends; plain values repeat the member and leave it alone.
    {"Collection",     WriteCollection, u"\"r\": {\"c\": [{\"x\": 1},{\"x\": 2,\"y\": 3},\"d\": 4]}"},
    {"CollectionOfPlainValues", [](Writer& w) { w.Start(u"r").Items(1).Leaf(u"a", u"1").Leaf(u"a", u"2").Items(3).End(); }, u"\"r\": {\"a\": 1,\"a\": 2]}"},
    {"CollectionWithAttributes", [](Writer& w) { w.Start(u"r").Items(1).Start(u"c").Attribute(u"i", u"1").End().Start(u"c").Attribute(u"i", u"2").Text(u"x").End().Items(3).End(); }, u"\"r\": {\"c\": [{\"@i\": \"1\"},{\"@i\": \"2\",\"#text\": \"x\"}]}"},
    {"EmptyItems",     [](Writer& w) { w.Start(u"r").Items(1).Start(u"c").Leaf(u"x", u"1").End().Start(u"c").End().Leaf(u"c", u"2").Items(3).End(); }, u"\"r\": {\"c\": [{\"x\": 1},,2]}"},
    {"PlainValueThenObject", [](Writer& w) { w.Start(u"r").Items(1).Leaf(u"c", u"1").Start(u"c").Leaf(u"x", u"2").End().Items(3).End(); }, u"\"r\": {\"c\": 1,\"c\": [{\"x\": 2}]}"},
    {"TwoCollections", [](Writer& w) { w.Start(u"r"); for (auto const* name : {u"c", u"d"}) { w.Items(1).Start(name).Leaf(u"x", u"1").End().Items(3); } w.End(); }, u"\"r\": {\"c\": [{\"x\": 1},\"d\": [{\"x\": 1}]}"},
    {"NestedCollections", [](Writer& w) { w.Start(u"r").Items(1).Start(u"c").Items(1).Start(u"d").Leaf(u"x", u"1").End().Items(3).End().Items(3).End(); }, u"\"r\": {\"c\": [{\"d\": [{\"x\": 1}]}]}"},
    // Strings.
    {"Unescaped",      [](Writer& w) { w.Start(u"r").Text(u"\"\\/\b\t\f\r'\u007F\u00E9\U0001F600").End(); }, u"\"r\": \"\"\\/\b\t\f'\u007F\u00E9\U0001F600\""},
    {"OtherControls",  [](Writer& w) { w.Start(u"r").Text(u"\0\u0001\v\u000E\u001F "sv).End(); }, u"\"r\": \"\\u0000\\u0001\\u000B\\u000E\\u001F \""},
    {"ControlAmongMany", [](Writer& w) { w.Start(u"r").Attribute(u"a", u"0123456789\u0002abcdefgh\n\r.").End(); }, u"\"r\": {\"@a\": \"0123456789\\u0002abcdefgh\n.\"}"},
    {"LineFeed",       [](Writer& w) { w.SetEOLType(EOLType_CRLF); w.Start(u"r").Text(u"a\r\nb\n").End(); }, u"\"r\": \"a\r\nb\r\n\""},
    {"BareIsUnchecked", [](Writer& w) { w.Start(u"r").Text(u"INF\n\"", ItemType_r8).End(); }, u"\"r\": INF\n\""},
    // Namespaces.
    {"Declarations",   [](Writer& w) { w.AddNamespace(u"q", u"urn:2"); w.AddNamespace(u"p", u"urn:1"); w.SetDefaultNamespace(u"urn:d"); w.Start(u"r", u"urn:d").Start(u"a", u"urn:1").Text(u"x").End().End(); }, u"\"r\": {\"@xmlns\": \"urn:d\",\"@xmlns:p\": \"urn:1\",\"@xmlns:q\": \"urn:2\",\"p:a\": \"x\"}"},
    {"DeclarationsThenText", [](Writer& w) { w.SetDefaultNamespace(u"\"d\""); w.Start(u"r").Text(u"x").End(); }, u"\"r\": {\"@xmlns\": \"\"d\"\",\"#text\": \"x\"}"},
    {"RootGetsAPrefix", [](Writer& w) { w.AddNamespace(u"p", u"urn:1"); w.Start(u"r", u"urn:x").Start(u"a", u"urn:x").Text(u"x").End().End(); }, u"\"AA:r\": {\"@xmlns:AA\": \"urn:x\",\"@xmlns:p\": \"urn:1\",\"AA:a\": \"x\"}"},
    {"UnknownBelow",   [](Writer& w) { w.Start(u"r").Start(u"a", u"urn:x").End().End(); }, u"Exception: Unknown Namespace: a."},
    {"UnknownOfAttribute", [](Writer& w) { w.Start(u"r").Attribute(u"i", u"1", u"urn:x").End(); }, u"Exception: Unknown Namespace: i."},
    {"DefaultIsNotThatOfAttributes", [](Writer& w) { w.SetDefaultNamespace(u"urn:d"); w.Start(u"r").Attribute(u"i", u"1", u"urn:d").End(); }, u"Exception: Unknown Namespace: i."},
    {"KnownOfAttribute", [](Writer& w) { w.Start(u"r").Attribute(u"lang", u"de", kXmlNamespace).End(); }, u"\"r\": {\"@xml:lang\": \"de\"}"},
    {"ItemsNeedNoPrefix", [](Writer& w) { w.Start(u"r").Items(1).Start(u"c").Leaf(u"x", u"1").End().Start(u"c", u"urn:x").Leaf(u"x", u"2").End().Items(3).End(); }, u"\"r\": {\"c\": [{\"x\": 1},{\"x\": 2}]}"},
    {"Type",           [](Writer& w) { w.AddNamespace(u"xsi", kXmlSchemaInstanceNamespace); w.AddNamespace(u"p", u"urn:1"); w.Start(u"r").Type(u"", u"t").Type(u"urn:1", u"u").End(); }, u"\"r\": {\"@xmlns:xsi\": \"http://www.w3.org/2001/XMLSchema-instance\",\"@xmlns:p\": \"urn:1\",\"@xsi:type\": \"t\",\"@xsi:type\": \"p:u\"}"},
    {"TypeWithoutXsi", [](Writer& w) { w.Start(u"r").Type(u"", u"t").End(); }, u"Exception: Unknown Namespace: type."},
    {"TypeUnknown",    [](Writer& w) { w.AddNamespace(u"xsi", kXmlSchemaInstanceNamespace); w.Start(u"r").Type(u"urn:1", u"t").End(); }, u"Exception: Unknown Namespace: t."},
    // The other modes leave namespaces out.
    {"AttributesOnlyMode", [](Writer& w) { w.Mode(JsonRoundTrip_Attributes).SetDefaultNamespace(u"urn:d"); w.Start(u"r", u"urn:x").Type(u"urn:1", u"t").Attribute(u"i", u"1", u"urn:y").Text(u"x").End(); }, u"\"r\": {\"@i\": \"1\",\"#text\": \"x\"}"},
    {"NoneMode",       [](Writer& w) { w.Mode(JsonRoundTrip_None).AddNamespace(u"p", u"urn:x"); w.Start(u"r", u"urn:x").Type(u"", u"t").Attribute(u"b", u"1").Text(u"t").Start(u"c", u"urn:x").Text(u"1", ItemType_i4).End().End(); }, u"\"r\": {\"b\": \"1\",\"\": \"t\",\"c\": 1}"},
    {"NoneModeCollection", [](Writer& w) { w.Mode(JsonRoundTrip_None); WriteCollection(w); }, u"\"r\": {\"c\": [{\"x\": 1},{\"x\": 2,\"y\": 3},\"d\": 4]}"},
    // Failures.
    {"LeftOpen",       [](Writer& w) { w.Start(u"r"); }, u"Exception: An Element has not been closed."},
    {"EolType",        [](Writer& w) { w.SetEOLType(EOLType{2}); }, u"Exception: Invalid EOL type."},
    {"TooDeep",        [](Writer& w) { w.SetMaxDepth(1); w.Start(u"r").Start(u"a"); }, u"Exception: The document exceeds the limit of 1 nested elements."},
    {"NothingOpen",    [](Writer& w) { w.Text(u"x"); }, u"Exception: An Element has not been opened."},
};

constexpr OutputCase kFormatted[] = {
    {"DepthCountsFromOne", [](Writer& w) { w.SetIndent(u" ."); w.Start(u"r").Start(u"a").Leaf(u"b", u"1").End().Leaf(u"c", u"2").End(); }, u" .\"r\": {\n . .\"a\": {\n . . .\"b\": 1\n . .},\n . .\"c\": 2\n .}"},
    {"Attributes",         [](Writer& w) { w.SetEOLType(EOLType_CRLF); w.Start(u"r").Attribute(u"i", u"1").Attribute(u"j", u"2").Text(u"x").End(); }, u"\t\"r\": {\r\n\t\t\"@i\": \"1\",\r\n\t\t\"@j\": \"2\",\r\n\t\t\"#text\": \"x\"\r\n\t}"},
    {"Declarations",       [](Writer& w) { w.SetDefaultNamespace(u"d"); w.Start(u"r", u"x").Leaf(u"a", u"1").End(); }, u"\t\"AA:r\": {\n\t\t\"@xmlns:AA\": \"x\",\n\t\t\"@xmlns\": \"d\",\n\t\t\"a\": 1\n\t}"},
    {"Collection",         WriteCollection,
     u"\t\"r\": {\n"
     u"\t\t\"c\": [\n"
     u"\t\t\t{\n\t\t\t\t\"x\": 1\n\t\t\t},\n"
     u"\t\t\t{\n\t\t\t\t\"x\": 2,\n\t\t\t\t\"y\": 3\n\t\t\t},\n"
     u"\t\t\t\"d\": 4\n"
     u"\t\t]\n"
     u"\t}"},
    {"CollectionInCollection", [](Writer& w) { w.SetIndent(u"."); w.Start(u"r").Items(1).Start(u"c").Items(1).Start(u"d").Leaf(u"x", u"1").End().Items(3).End().Items(3).End(); },
     u".\"r\": {\n"
     u"..\"c\": [\n"
     u"...{\n"
     u"....\"d\": [\n"
     u".....{\n......\"x\": 1\n.....}\n"
     u"....]\n"
     u"...}\n"
     u"..]\n"
     u".}"},
    // Each of them adds a level and the one bracket takes one, so the rest lies deeper.
    {"TwoCollections", [](Writer& w) { w.SetIndent(u"."); w.Start(u"r").Start(u"s"); for (auto const* name : {u"c", u"d"}) { w.Items(1).Start(name).Leaf(u"x", u"1").End().Items(3); } w.End().Leaf(u"b", u"2").End(); },
     u".\"r\": {\n"
     u"..\"s\": {\n"
     u"...\"c\": [\n"
     u"....{\n.....\"x\": 1\n....},\n"
     u"....\"d\": [\n"
     u".....{\n......\"x\": 1\n.....}\n"
     u"....]\n"
     u"...},\n"
     u"...\"b\": 2\n"
     u"..}"},
    // The bracket that plain values leave takes a level that none of them added.
    {"CollectionOfPlainValues", [](Writer& w) { w.Start(u"r").Start(u"s").Items(1).Leaf(u"a", u"1").Items(3).End().Leaf(u"b", u"2").End(); },
     u"\t\"r\": {\n\t\t\"s\": {\n\t\t\t\"a\": 1\n\t\t]\n\t},\n\t\t\"b\": 2\n\t}"},
};
// clang-format on

class JsonWriterUnformatted : public testing::TestWithParam<OutputCase> {};
TEST_P(JsonWriterUnformatted, WritesTheBytes) {
  EXPECT_EQ(Written(GetParam(), false), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Rows, JsonWriterUnformatted, testing::ValuesIn(kUnformatted), RowName());

class JsonWriterFormatted : public testing::TestWithParam<OutputCase> {};
TEST_P(JsonWriterFormatted, WritesTheBytes) {
  EXPECT_EQ(Written(GetParam(), true), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Rows, JsonWriterFormatted, testing::ValuesIn(kFormatted), RowName());

// The shorter way gives what the three calls give, and fails as they do.
TEST(CJsonTextWriter, WritesTextElementsAsTheThreeCallsDo) {
  struct {
    char const* name;
    char16_t const *localName, *uri, *text;
    ItemType type;
  } const rows[] = {
      {"String", u"a", u"", u"x", ItemType_string},
      {"Empty", u"a", u"", u"", ItemType_string},
      {"Number", u"a", u"", u"1", ItemType_i4},
      {"Default", u"a", u"urn:d", u"x", ItemType_string},
      {"Prefix", u"a", u"urn:p", u"a\n\u0001\"", ItemType_string},
      {"NoPrefix", u"a", u"urn:x", u"x", ItemType_string},
  };
  for (auto const& row : rows) {
    for (int bits = 0; bits < 16; ++bits) {
      SCOPED_TRACE(testing::Message() << row.name << ' ' << bits);
      auto const written = [&](auto writeElement) {
        return KestModel::OutcomeOf([&] {
          CTextStream stream(XmlEncoding_None);
          CJsonTextWriter writer(stream);
          writer.SetPrettyPrint((bits & 1) != 0);
          writer.SetSupportRoundtrip((bits & 2) != 0 ? JsonRoundTrip_Full : JsonRoundTrip_None);
          writer.SetDefaultNamespace(u"urn:d");
          writer.AddNamespace(u"p", u"urn:p");
          writer.SetMaxDepth((bits & 8) != 0 ? 2 : 3);
          writer.StartElement(u"r", u"");
          writer.GetCurrentContext()->m_arrayState = (bits & 4) != 0 ? 1 : 0;
          for (int i = 0; i < 2; ++i) {
            writeElement(writer, row);
            writer.StartElement(u"c", u"");
            writeElement(writer, row);
            writer.EndElement();
          }
          writer.EndElement();
          return stream.GetBuffer().ToString();
        });
      };
      EXPECT_EQ(written([](CJsonTextWriter& writer, auto const& it) {
                  writer.WriteTextElement(it.localName, it.uri, it.text, it.type, false);
                }),
                written([](CJsonTextWriter& writer, auto const& it) {
                  writer.StartElement(it.localName, it.uri);
                  writer.WriteText(it.text, it.type, false);
                  writer.EndElement();
                }));
    }
  }
}

TEST(CJsonTextWriter, QuotesAllButNumbersAndBooleans) {
  for (int type = 0; type < kItemTypeCount; ++type) {
    bool const isBare = (type >= 3 && type <= 12) || (type >= 24 && type <= 26);
    CTextStream stream(XmlEncoding_None);
    Writer writer(stream);
    writer.Start(u"r").Text(u"1", ItemType{type}).End();
    EXPECT_EQ(stream.GetBuffer().ToString(), isBare ? u"\t\"r\": 1" : u"\t\"r\": \"1\"") << type;
  }
}

}  // namespace
}  // namespace KestXmlLib20
