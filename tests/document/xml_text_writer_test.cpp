// XML text, character by character.
#include "kestxml/document/xml_text_writer.h"

#include <gtest/gtest.h>

#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/values/preserve_character_ref_cr.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using namespace std::string_view_literals;

// The writer, in calls that can be chained, without the arguments that it passes over.
class Writer : public CXmlTextWriter {
 public:
  using CXmlTextWriter::CXmlTextWriter;

  Writer& Alias(std::u16string_view alias, std::u16string_view uri) {
    return AddNamespace(alias, uri), *this;
  }
  Writer& Default(std::u16string_view uri) { return SetDefaultNamespace(uri), *this; }
  Writer& Start(std::u16string_view localName, std::u16string_view uri = u"") {
    return StartElement(localName, uri), *this;
  }
  Writer& Text(std::u16string_view text, bool isDefault = false) {
    return WriteText(text, ItemType_string, isDefault), *this;
  }
  Writer& Attribute(std::u16string_view localName, std::u16string_view value,
                    std::u16string_view uri = u"") {
    return WriteAttribute(localName, uri, value, ItemType_string), *this;
  }
  Writer& Type(std::u16string_view uri, std::u16string_view typeName) {
    return WriteTypeAttribute(uri, typeName, ItemType_string), *this;
  }
  Writer& Comment(std::u16string_view text) { return WriteComment(text), *this; }
  Writer& End() { return EndElement(), *this; }
};

template <typename Write>
std::u16string Written(Write const& write) {
  CTextStream stream(XmlEncoding_None);
  Writer writer(stream);
  writer.OpenWriter();
  write(writer);
  writer.CloseWriter();
  return stream.GetBuffer().ToString();
}

struct OutputCase {
  char const* name;
  void (*write)(Writer& w);
  char16_t const* expected;  // what is written, or the message
};

// clang-format off
constexpr OutputCase kFormatted[] = {
    {"EmptyRoot", [](Writer& w) { w.Start(u"a").End(); }, u"<a/>\n"},
    {"TextStaysOnTheLine",
     [](Writer& w) { w.Start(u"a").Start(u"b").Text(u"x").End().End(); },
     u"<a>\n\t<b>x</b>\n</a>\n"},
    {"DepthIsIndented",
     [](Writer& w) { w.SetIndent(u" ."); w.Start(u"a").Start(u"b").Start(u"c").End().End().End(); },
     u"<a>\n .<b>\n . .<c/>\n .</b>\n</a>\n"},
    {"CarriageReturnLineFeed",
     [](Writer& w) { w.SetEOLType(EOLType_CRLF); w.Start(u"a").Start(u"b").End().End(); },
     u"<a>\r\n\t<b/>\r\n</a>\r\n"},
    {"MixedContentIsIndentedToo",
     [](Writer& w) { w.Start(u"a").Text(u"x").Start(u"b").End().Text(u"y").End(); },
     u"<a>x\t<b/>\ny</a>\n"},
    {"CommentNeitherEndsTheTagNorIndents",
     [](Writer& w) { w.Start(u"a").Comment(u"<x>\n").End(); }, u"<a<!--&lt;x&gt;\n-->\n/>\n"},
    {"InstructionIsTheCallersText",
     [](Writer& w) { w.WriteProcessingInstruction(u"<?x <&?>\0y"sv); w.Start(u"a").End(); },
     u"<?x <&?>\n<a/>\n"},
};

constexpr OutputCase kUnformatted[] = {
    {"NoLineEnds",
     [](Writer& w) { w.WriteXmlDeclaration(); w.Comment(u"c").Start(u"a").Start(u"b").End().End(); },
     u"<?xml version=\"1.0\"?><!--c--><a><b/></a>"},
    {"EmptyTextLeavesTheTagOpen",
     [](Writer& w) { w.Start(u"a").Text(u"").Attribute(u"i", u"").End(); }, u"<a i=\"\"/>"},
    {"DefaultValueIsLeftOut", [](Writer& w) { w.Start(u"a").Text(u"x", true).End(); }, u"<a/>"},
    {"DefaultValueIsWrittenOnRequest",
     [](Writer& w) { w.SetWriteDefaultValues(true); w.Start(u"a").Text(u"x", true).End(); },
     u"<a>x</a>"},
    {"SectionIsCopied",
     [](Writer& w) { w.Start(u"a").Text(u"<![CDATA[<&>\r\n]]>").End(); },
     u"<a><![CDATA[<&>\r\n]]></a>"},
    {"SectionInsideTextIsNone",
     [](Writer& w) { w.Start(u"a").Text(u" <![CDATA[]]>").End(); },
     u"<a> &lt;![CDATA[]]&gt;</a>"},
    {"RawAttributes",
     [](Writer& w) { w.Start(u"a").WriteRawAttributes(u"j='<'"); w.End(); }, u"<a j='<'/>"},
    {"TwoRoots", [](Writer& w) { w.Start(u"a").End().Start(u"b").End(); }, u"<a/><b/>"},
    {"TextWithoutElement", [](Writer& w) { w.Text(u"x<"); }, u"x&lt;"},
};

constexpr OutputCase kNamespaces[] = {
    {"RequestedBeforeTheRoot",
     [](Writer& w) {
       w.Alias(u"q", u"urn:2").Alias(u"r", u"urn:1").Default(u"urn:d")
           .Start(u"a", u"urn:d").Start(u"b", u"urn:1").End().End();
     },
     u"<a xmlns=\"urn:d\" xmlns:r=\"urn:1\" xmlns:q=\"urn:2\"><r:b/></a>"},
    {"NoNamespaceInsideADefaultOne",
     [](Writer& w) { w.Default(u"urn:d").Start(u"a", u"urn:d").Start(u"b").End().End(); },
     u"<a xmlns=\"urn:d\"><b/></a>"},
    {"GeneratedOnTheRoot",
     [](Writer& w) { w.Alias(u"p", u"urn:p").Start(u"a", u"urn:x").Text(u"t").End(); },
     u"<AA:a xmlns:AA=\"urn:x\" xmlns:p=\"urn:p\">t</AA:a>"},
    {"SiblingsShareAGeneratedPrefix",
     [](Writer& w) {
       w.Start(u"a").Start(u"b", u"urn:x").Start(u"c", u"urn:y").Start(u"d", u"urn:x").End().End()
           .End().Start(u"e", u"urn:y").End().End();
     },
     u"<a><AA:b xmlns:AA=\"urn:x\"><AB:c xmlns:AB=\"urn:y\"><AA:d/></AB:c></AA:b>"
     u"<AA:e xmlns:AA=\"urn:y\"/></a>"},
    {"DefaultNamespaceIsNotThatOfAttributes",
     [](Writer& w) {
       w.Default(u"urn:d").Start(u"a", u"urn:d").Attribute(u"i", u"1", u"urn:d")
           .Attribute(u"j", u"2", u"urn:d").End();
     },
     u"<a xmlns=\"urn:d\" xmlns:AA=\"urn:d\" AA:i=\"1\" AA:j=\"2\"/>"},
    {"PrefixXmlNeedsNoDeclaration",
     [](Writer& w) { w.Start(u"a").Attribute(u"lang", u"de", kXmlNamespace).End(); },
     u"<a xml:lang=\"de\"/>"},
    {"NorDoesWhatBeginsLikeIt",
     [](Writer& w) {
       w.Alias(u"n", u"http://www.w3.org/XML/1998/namespace2")
           .Start(u"a", u"http://www.w3.org/XML/1998/namespace2").End();
     },
     u"<n:a/>"},
    {"EmptyAlias",
     [](Writer& w) {
       w.Alias(u"", u"urn:x").Start(u"a", u"urn:x").Attribute(u"i", u"1", u"urn:x").Text(u"t").End();
     },
     u"<:a xmlns:=\"urn:x\" :i=\"1\">t</:a>"},
    {"URIsAreNotEscaped",
     [](Writer& w) { w.Default(u"urn:&").Start(u"a").Attribute(u"i", u"1", u"urn:<").End(); },
     u"<a xmlns=\"urn:&\" xmlns:AA=\"urn:<\" AA:i=\"1\"/>"},
    {"AddedToAnOpenElementIsNotDeclared",
     [](Writer& w) {
       w.Start(u"a").Alias(u"p", u"urn:p").Start(u"b", u"urn:p").End()
           .Default(u"urn:p").Start(u"c", u"urn:p").End().End();
     },
     u"<a><p:b/><c/></a>"},
    {"AddedToAnOpenElementEndsWithIt",
     [](Writer& w) {
       w.Default(u"urn:d").Start(u"a").Start(u"b", u"urn:d").Default(u"urn:e")
           .Start(u"c", u"urn:e").End().End().Start(u"f", u"urn:d").End().End();
     },
     u"<a xmlns=\"urn:d\"><b><c/></b><f/></a>"},
    {"DefaultsReplacedInTheSameElement",
     [](Writer& w) {
       w.Default(u"urn:d").Start(u"a", u"urn:d").Default(u"urn:e").Start(u"b", u"urn:e").End()
           .Default(u"urn:a longer default namespace").Start(u"c", u"urn:e").End()
           .Start(u"f", u"urn:a longer default namespace").Default(u"urn:d").End()
           .Default(u"urn:d").End();
     },
     u"<a xmlns=\"urn:d\"><b/><AA:c xmlns:AA=\"urn:e\"/><f/></a>"},
    {"EndTagFollowsALaterPrefix",
     [](Writer& w) { w.Start(u"a", u"urn:x").Alias(u"p", u"urn:x").Text(u"t").End(); },
     u"<AA:a xmlns:AA=\"urn:x\">t</p:a>"},
    {"TypeWithoutNamespace",
     [](Writer& w) { w.Start(u"a").Type(u"", u"T").End(); },
     u"<a xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:type=\"T\"/>"},
    {"TypeInTheDefaultNamespace",
     [](Writer& w) {
       w.Alias(u"xsi", kXmlSchemaInstanceNamespace).Default(u"urn:d")
           .Start(u"a", u"urn:d").Type(u"urn:d", u"T").End();
     },
     u"<a xmlns=\"urn:d\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:type=\"T\"/>"},
    {"TypeWithANewPrefixHasTwoBlanks",
     [](Writer& w) { w.Start(u"a").Type(u"urn:x", u"T").Type(u"urn:x", u"U").End(); },
     u"<a xmlns:AA=\"urn:x\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\""
     u" AB:type=\"AA:T\" AB:type=\"AA:U\"/>"},
    {"Nil",
     [](Writer& w) { w.Alias(u"i", kXmlSchemaInstanceNamespace).Start(u"a").WriteNil(); w.End(); },
     u"<a xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:nil=\"true\"/>"},
};

constexpr char16_t kAttributesFirst[] = u"Attributes must be added before elements";

constexpr OutputCase kRefusals[] = {
    {"AttributeAfterText",
     [](Writer& w) { w.Start(u"a").Text(u"x").Attribute(u"i", u"1"); }, kAttributesFirst},
    {"AttributeAfterChild",
     [](Writer& w) { w.Start(u"a").Start(u"b").End().Attribute(u"i", u"1"); }, kAttributesFirst},
    {"AttributeWithoutElement", [](Writer& w) { w.Attribute(u"i", u"1"); }, kAttributesFirst},
    {"TypeAfterText",
     [](Writer& w) { w.Start(u"a").Text(u"x").Type(u"urn:x", u"T"); }, kAttributesFirst},
    {"NilAfterText", [](Writer& w) { w.Start(u"a").Text(u"x").WriteNil(); }, kAttributesFirst},
    {"ElementLeftOpen", [](Writer& w) { w.Start(u"a"); }, u"An Element has not been closed."},
    {"EndWithoutElement", [](Writer& w) { w.End(); }, u"An Element has not been opened."},
    {"LineEndOutOfRange",
     [](Writer& w) { w.SetEOLType(static_cast<EOLType>(2)); }, u"Invalid EOL type."},
};
// clang-format on

template <std::size_t kCount>
void ExpectOutput(OutputCase const (&rows)[kCount], bool prettyPrint) {
  for (OutputCase const& row : rows) {
    EXPECT_EQ(Written([&](Writer& writer) {
                writer.SetPrettyPrint(prettyPrint);
                row.write(writer);
              }),
              row.expected)
        << row.name;
  }
}

TEST(XmlTextWriter, WritesAsTold) {
  ExpectOutput(kFormatted, true);
  ExpectOutput(kUnformatted, false);
  ExpectOutput(kNamespaces, false);
}

TEST(XmlTextWriter, RefusesCallsOutOfPlace) {
  for (OutputCase const& row : kRefusals) {
    EXPECT_EQ(Thrown([&] { Written(row.write); }), row.expected) << row.name;
  }
}

// An element with @p value as its attribute and as its text.
std::u16string Twice(std::u16string_view value, EOLType eolType = EOLType_LF) {
  return Written([&](Writer& writer) {
    writer.SetPrettyPrint(false);
    writer.SetEOLType(eolType);
    writer.Start(u"a").Attribute(u"i", value).Text(value).End();
  });
}

TEST(XmlTextWriter, Escapes) {
  // clang-format off
  struct {
    std::u16string_view value, expected, expectedWithCRLF;
  } const rows[] = {
      {u"a<b&c>\"'", u"<a i=\"a&lt;b&amp;c&gt;&quot;'\">a&lt;b&amp;c&gt;\"'</a>", {}},
      {u"a\nb",      u"<a i=\"a&#xA;b\">a\nb</a>", u"<a i=\"a&#xA;b\">a\r\nb</a>"},
      {u"a\r\nb\r",  u"<a i=\"a&#xA;b\">a\nb</a>", u"<a i=\"a&#xA;b\">a\r\nb</a>"},
      {u"\t\x1\x1F\x7F",    u"<a i=\"\t\x1\x1F\x7F\">\t\x1\x1F\x7F</a>", {}},
      {u"a<\0b<"sv,         u"<a i=\"a&lt;\">a&lt;</a>", {}},
      {u"\xD800<\xDC00",    u"<a i=\"\xD800&lt;\xDC00\">\xD800&lt;\xDC00</a>", {}},
      // Their low or high bytes are those of units that are escaped.
      {u"\u013C\u2600\u0A0A\uFF3E", u"<a i=\"\u013C\u2600\u0A0A\uFF3E\">\u013C\u2600\u0A0A\uFF3E</a>", {}},
  };
  // clang-format on
  for (auto const& row : rows) {
    EXPECT_EQ(Twice(row.value), row.expected);
    EXPECT_EQ(Twice(row.value, EOLType_CRLF),
              row.expectedWithCRLF.empty() ? row.expected : row.expectedWithCRLF);
  }
  SetPreserveCharacterRefCR(true);
  EXPECT_EQ(Twice(u"\r\n"), u"<a i=\"&#xD;&#xA;\">&#xD;\n</a>");
  SetPreserveCharacterRefCR(false);
}

// Special units are looked for in groups of eight, which overlap at the end.
TEST(XmlTextWriter, FindsASpecialUnitAtEveryPlace) {
  for (std::size_t length = 1; length <= 26; ++length) {
    for (std::size_t at = 0; at < length; ++at) {
      std::u16string value(length, u'x'), expected(length, u'x');
      value[at] = u'<';
      expected.replace(at, 1, u"&lt;");
      EXPECT_EQ(Twice(value), u"<a i=\"" + expected + u"\">" + expected + u"</a>");
    }
  }
}

// The pieces of a tag are written in place where a block has room for all of them.
TEST(XmlTextWriter, WritesTheSameAcrossBlocks) {
  for (std::size_t before = CStringBuffer::kBlockSize - 60; before < CStringBuffer::kBlockSize;
       ++before) {
    std::u16string const text(before, u'x');
    std::u16string const written = Written([&](Writer& writer) {
      writer.Start(u"root").Text(text).Start(u"child", u"urn:x").Attribute(u"id", u"a<b");
      writer.Text(u"y").End().End();
    });
    EXPECT_EQ(written, u"<root>" + text +
                           u"\t<AA:child xmlns:AA=\"urn:x\" id=\"a&lt;b\">y</AA:child>\n</root>\n");
  }
}

TEST(XmlTextWriter, RefusesATextElementTooDeep) {
  CTextStream stream(XmlEncoding_None);
  CXmlTextWriter writer(stream);
  writer.SetMaxDepth(1);
  writer.StartElement(u"a", u"");
  EXPECT_EQ(Thrown([&] { writer.WriteTextElement(u"b", u"", u"x", ItemType_string, false); }),
            u"The document exceeds the limit of 1 nested elements.");
}

// The short way for elements that hold only text writes what the three calls write.
TEST(XmlTextWriter, WritesTextElementsAsByThreeCalls) {
  for (bool const isFormatted : {true, false}) {
    for (bool const isDefault : {true, false}) {
      for (auto const uri : {u""sv, u"urn:default"sv, u"urn:known"sv, u"urn:new"sv}) {
        for (auto const text : {u""sv, u"text"sv, u"<&\n"sv, u"<![CDATA[<]]>"sv, u"a\0b"sv}) {
          auto const written = [&](bool isShort) {
            CTextStream stream(XmlEncoding_None);
            CXmlTextWriter writer(stream);
            auto const element = [&] {
              if (isShort) {
                return writer.WriteTextElement(u"name", uri, text, ItemType_string, isDefault);
              }
              writer.StartElement(u"name", uri);
              writer.WriteText(text, ItemType_string, isDefault);
              writer.EndElement();
            };
            writer.OpenWriter();
            writer.SetPrettyPrint(isFormatted);
            writer.SetDefaultNamespace(u"urn:default");
            writer.AddNamespace(u"k", u"urn:known");
            writer.StartElement(u"root", u"urn:default");
            element();
            element();
            writer.EndElement();
            element();  // a root
            return stream.GetBuffer().ToString();
          };
          EXPECT_EQ(written(true), written(false));
        }
      }
    }
  }
}

// Notes what the writer asks of it.
class NotingStream : public CTextStream {
 public:
  NotingStream() : CTextStream(XmlEncoding_UTF8) {}

  void Open() override { m_notes += "open "; }
  void Close() override { m_notes += "close "; }
  void Flush() override {
    m_notes += "flush" + std::to_string(m_buffer.GetLength()) + " ";
    m_buffer.Clear();
  }
  std::string m_notes;
};

TEST(XmlTextWriter, OffersAFlushFromTheLengthOn) {
  NotingStream stream;
  Writer writer(stream);
  writer.OpenWriter();
  writer.Start(u"a").Text(std::u16string(4092, u'x'));  // 4,095 with the tag
  writer.Text(u"y").Text(std::u16string(10000, u'z'));
  EXPECT_EQ(Thrown([&] { writer.CloseWriter(); }), u"An Element has not been closed.");
  EXPECT_EQ(stream.m_notes, "open flush4096 flush10000 close ");
}

}  // namespace
}  // namespace KestXmlLib20
