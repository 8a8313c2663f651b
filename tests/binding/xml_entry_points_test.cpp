// What the To... and From... operations put around an object's own writing and reading.
#include <gtest/gtest.h>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/async_output.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
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

CSmartPtr<Node> SmallObject() {
  CSmartPtr<Node> object(new Node(u"a"));
  object->Add(u"b", u"\u20AC\n");
  return object;
}

// Of every length in UTF-8, and of everything that is escaped; longer than the buffers between.
CSmartPtr<Node> LargeObject() {
  CSmartPtr<Node> orders(new Node(u"orders", {}, u"urn:orders"));
  for (int i = 0; i < 400; ++i) {
    std::u16string const number(static_cast<std::size_t>(i % 7 + 1), u'7');
    Node& order = orders->Add(u"order");
    order.attributes = {{u"id", u"", number}, {u"note", u"urn:notes", u"a \"b\" <c>\n& d"}};
    order.Add(u"name", u"<\u00FC & \u20AC>\n\U0001F600", u"urn:orders");
    order.Add(u"empty");
  }
  return orders;
}

std::string BytesOf(char16_t const* text, XmlEncoding encoding) {
  if (encoding == XmlEncoding_UTF8) return ToUtf8(text);
  return std::string(CBinaryData(text).GetView());
}

// In memory there is no byte order mark, in a file there is one in UTF-16, whichever way the file
// is written.
TEST(ToXml, HasTheFormThatWasAskedFor) {
  // clang-format off
  struct {
    char const* name; bool header; bool pretty; XmlEncoding encoding; EOLType eol;
    char16_t const* text;
  } const rows[] = {
      {"Utf8",       true,  false, XmlEncoding_UTF8,  EOLType_LF,   u"<?xml version=\"1.0\" encoding=\"UTF-8\"?><a><b>\u20AC\n</b></a>"},
      {"Utf16",      true,  false, XmlEncoding_UTF16, EOLType_LF,   u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a><b>\u20AC\n</b></a>"},
      {"Undeclared", true,  false, XmlEncoding_UTF16NoDeclaration, EOLType_LF, u"<?xml version=\"1.0\"?><a><b>\u20AC\n</b></a>"},
      {"NoHeader",   false, false, XmlEncoding_UTF8,  EOLType_LF,   u"<a><b>\u20AC\n</b></a>"},
      {"PrettyLf",   false, true,  XmlEncoding_UTF8,  EOLType_LF,   u"<a>\n\t<b>\u20AC\n</b>\n</a>\n"},
      {"PrettyCrLf", true,  true,  XmlEncoding_UTF16, EOLType_CRLF, u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<a>\r\n\t<b>\u20AC\r\n</b>\r\n</a>\r\n"},
      {"PlainCrLf",  false, false, XmlEncoding_UTF8,  EOLType_CRLF, u"<a><b>\u20AC\r\n</b></a>"},
  };
  // clang-format on
  ScratchFolder const folder;
  for (auto const& [name, header, pretty, encoding, eol, text] : rows) {
    SCOPED_TRACE(name);
    std::string const bytes = BytesOf(text, encoding);
    EXPECT_EQ(SmallObject()
                  ->ToXmlStream(header, pretty, encoding, eol, kContext, CompressionType_None)
                  .GetView(),
              bytes);
    for (bool const overlapped : {false, true}) {
      AsyncToXmlFile(overlapped);
      SmallObject()->ToXmlFile(FromUtf8(folder.Path("f")).c_str(), header, pretty, encoding, eol,
                               kContext, CompressionType_None);
      EXPECT_EQ(BytesOfFile(folder.Path("f")),
                (encoding == XmlEncoding_UTF8 ? "" : "\xFF\xFE") + bytes);
    }
  }
  AsyncToXmlFile(false);
  EXPECT_EQ(SmallObject()->ToXml(true, true, EOLType_CRLF, kContext),
            u"<?xml version=\"1.0\"?>\r\n<a>\r\n\t<b>\u20AC\r\n</b>\r\n</a>\r\n")
      << "a text has no encoding to name";
}

// Writes a value that is its type's default, as a root or as an optional part.
class DefaultValue : public BareObject {
 protected:
  std::u16string_view GetTargetNamespace() const override { return u"urn:x"; }
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* ns,
                 CSerializationContext const&, bool isOptionalChoice) const override {
    writer->StartElement(registerNamespaces && !isOptionalChoice ? u"root" : u"part", ns);
    writer->WriteText(u"x", ItemType_string, true);
    writer->EndElement();
  }
};

TEST(ToXml, HandsOnWhatTheContextSays) {
  CSmartPtr<DefaultValue> const object(new DefaultValue);
  CSerializationContext context;
  EXPECT_EQ(object->ToXml(false, false, EOLType_LF, context), u"<AA:root xmlns:AA=\"urn:x\"/>");
  context.SetWriteDefaultElementValues(true);
  EXPECT_EQ(object->ToXml(false, false, EOLType_LF, context),
            u"<AA:root xmlns:AA=\"urn:x\">x</AA:root>");
  context.SetIndentChars(u"  ");
  context.GetProcessingInstructions().push_back(u"<?go on?>");
  EXPECT_EQ(SmallObject()->ToXml(false, true, EOLType_LF, context),
            u"<?go on?>\n<a>\n  <b>\u20AC\n</b>\n</a>\n");
}

// Has bytes of its own, which a file must get too.
struct OwnBytes : BareObject {
  CBinaryData ToXmlStream(bool, bool, XmlEncoding, EOLType, CSerializationContext const&,
                          CompressionType) override {
    return CBinaryData(std::string_view("own"));
  }
};

TEST(ToXmlFile, WritesTheBytesOfToXmlStream) {
  ScratchFolder const folder;
  CSmartPtr<OwnBytes> const object(new OwnBytes);
  object->ToXmlFile(FromUtf8(folder.Path("f")).c_str(), false, false, XmlEncoding_UTF16, EOLType_LF,
                    kContext, CompressionType_None);
  EXPECT_EQ(BytesOfFile(folder.Path("f")), "\xFF\xFEown");
}

struct Way {
  bool header, pretty;
  XmlEncoding encoding;
  EOLType eol;
};

// Calls @p test with every form of output and the large object.
template <typename Test>
void ForEachWay(Test test) {
  auto const object = LargeObject();
  for (int bits = 0; bits < 8; ++bits) {
    for (auto const encoding :
         {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
      SCOPED_TRACE(testing::Message() << "bits " << bits << ", encoding " << encoding);
      test(*object, Way{(bits & 1) != 0, (bits & 2) != 0, encoding, EOLType{(bits & 4) / 4}});
    }
  }
}

template <typename Read>
void ExpectToRead(Node const& expected, Read read) {
  CSmartPtr<Node> const node(new Node);
  read(*node);
  EXPECT_EQ(*node, expected);
}

TEST(RoundTrip, ThroughAStream) {
  ForEachWay([](Node& object, Way const& way) {
    for (auto const compression :
         {CompressionType_None, CompressionType_GZip, CompressionType_ZLib}) {
      CBinaryData const data =
          object.ToXmlStream(way.header, way.pretty, way.encoding, way.eol, kContext, compression);
      ExpectToRead(object, [&](Node& to) { to.FromXmlStream(data, kContext); });
    }
  });
}

TEST(RoundTrip, ThroughAFile) {
  ScratchFolder const folder;
  auto const path = FromUtf8(folder.Path("f"));
  ForEachWay([&](Node& object, Way const& way) {
    for (int bits = 0; bits < 4; ++bits) {
      AsyncToXmlFile((bits & 1) != 0);
      AsyncFromXmlFile((bits & 2) != 0);
      object.ToXmlFile(path.c_str(), way.header, way.pretty, way.encoding, way.eol, kContext,
                       CompressionType_None);
      ExpectToRead(object, [&](Node& to) { to.FromXmlFile(path.c_str(), kContext); });
    }
    AsyncToXmlFile(false);
    AsyncFromXmlFile(false);
  });
}

// Compression goes through memory whatever AsyncToXmlFile says. The byte order mark stands ahead of
// the compressed bytes, so that a file in UTF-16 can't be read before it is taken off.
TEST(RoundTrip, ThroughACompressedFile) {
  ScratchFolder const folder;
  auto const path = FromUtf8(folder.Path("f"));
  AsyncToXmlFile(true);
  ForEachWay([&](Node& object, Way const& way) {
    object.ToXmlFile(path.c_str(), way.header, way.pretty, way.encoding, way.eol, kContext,
                     CompressionType_GZip);
    if (way.encoding != XmlEncoding_UTF8) {
      std::string const bytes = BytesOfFile(folder.Path("f"));
      EXPECT_EQ(bytes.substr(0, 4), "\xFF\xFE\x1F\x8B");
      EXPECT_NE(Thrown([&] { object.FromXmlFile(path.c_str(), kContext); }), kNothingThrown);
      folder.MakeFile("f", bytes.substr(2));
    }
    ExpectToRead(object, [&](Node& to) { to.FromXmlFile(path.c_str(), kContext); });
  });
  AsyncToXmlFile(false);
}

TEST(RoundTrip, ThroughText) {
  auto const object = LargeObject();
  auto const text = object->ToXml(true, true, EOLType_LF, kContext);
  ExpectToRead(*object, [&](Node& to) { to.FromXml(text.c_str(), kContext); });
  ExpectToRead(*object, [&](Node& to) { to.FromXml(ToUtf8(text).c_str(), kContext); });
}

TEST(FromXmlElement, ReadsAPartOfTheCallersTree) {
  CXmlDocument document;
  document.LoadXml("<r><a/><b x='1'><c>t</c></b></r>");
  auto* const element = document.GetDocumentElement()->GetFirstElement()->GetNextSiblingElement();
  Node expected(u"b");
  expected.attributes = {{u"x", u"", u"1"}};
  expected.Add(u"c", u"t");
  ExpectToRead(expected, [&](Node& to) { to.FromXmlElement(element, kContext); });
}

TEST(FromXml, TakesTheSchemaTypeFromTheContext) {
  CSerializationContext context;
  context.SetSchemaType(SchemaType::DocumentTypeDefinition);
  Node expected(u"p:a");
  expected.attributes = {{u"xmlns:p", u"", u"u"}};
  ExpectToRead(expected, [&](Node& to) { to.FromXml("<p:a xmlns:p='u'/>", context); });
}

}  // namespace
}  // namespace KestXmlLib20
