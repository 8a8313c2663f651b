// What the To... and From... operations for JSON put around an object's own writing and reading.
#include <gtest/gtest.h>

#include <stdexcept>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/async_output.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/json/json_context.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/compression.h"
#include "tests/model/bare_object.h"
#include "tests/model/node.h"
#include "tests/model/outcome.h"
#include "tests/model/scratch_folder.h"

namespace KestXmlLib20 {
namespace {

// A root with a member and an attribute, in a namespace.
class Small : public BareObject {
 protected:
  std::u16string_view GetTargetNamespace() const override { return u"urn:x"; }
  void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* ns, CSerializationContext const&,
                 bool isOptional) const override {
    writer->StartElement(isRoot && !isOptional ? u"r" : u"part", ns);
    writer->WriteAttribute(u"i", u"", u"\u20AC\n", ItemType_string);
    writer->StartElement(u"a", u"");
    writer->WriteText(u"1", ItemType_i4, false);
    writer->EndElement();
    writer->EndElement();
  }
};

CSerializationContext ContextOf(JsonRoundTrip roundTrip) {
  CSerializationContext context;
  context.SetIndentChars(u" ");
  context.GetJsonContext()->SetSupportRoundtrip(roundTrip);
  return context;
}

// clang-format off
struct WriteCase {
  char const* name; JsonRoundTrip roundTrip; bool pretty; EOLType eol;
  char16_t const* text;
} const kWrites[] = {
    {"Full",       JsonRoundTrip_Full,       false, EOLType_LF,   u"{\"AA:r\": {\"@xmlns:AA\": \"urn:x\",\"@i\": \"\u20AC\n\",\"a\": 1}}"},
    {"Attributes", JsonRoundTrip_Attributes, false, EOLType_CRLF, u"{\"r\": {\"@i\": \"\u20AC\r\n\",\"a\": 1}}"},
    {"None",       JsonRoundTrip_None,       true,  EOLType_LF,   u"{\n \"r\": {\n  \"i\": \"\u20AC\n\",\n  \"a\": 1\n }\n}"},
    {"PrettyCrLf", JsonRoundTrip_None,       true,  EOLType_CRLF, u"{\r\n \"r\": {\r\n  \"i\": \"\u20AC\r\n\",\r\n  \"a\": 1\r\n }\r\n}"},
};
// clang-format on

std::string BytesOf(char16_t const* text, XmlEncoding encoding) {
  if (encoding == XmlEncoding_UTF8) return ToUtf8(text);
  return std::string(CBinaryData(text).GetView());
}

TEST(ToJson, HasTheFormThatWasAskedFor) {
  ScratchFolder const folder;
  CSmartPtr<Small> const object(new Small);
  for (auto const& [name, roundTrip, pretty, eol, text] : kWrites) {
    SCOPED_TRACE(name);
    auto const context = ContextOf(roundTrip);
    EXPECT_EQ(object->ToJson(pretty, eol, context), text);
    for (auto const encoding :
         {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
      std::string const bytes = BytesOf(text, encoding);
      CBinaryData const data =
          object->ToJsonStream(pretty, encoding, eol, context, CompressionType_None);
      EXPECT_EQ(data.GetView(), bytes);
      // Only a file that grows with the object gets a byte order mark.
      for (bool const overlapped : {false, true}) {
        AsyncToXmlFile(overlapped);
        object->ToJsonFile(FromUtf8(folder.Path("f")).c_str(), pretty, encoding, eol, context,
                           CompressionType_None);
        bool const hasMark = overlapped && encoding != XmlEncoding_UTF8;
        EXPECT_EQ(BytesOfFile(folder.Path("f")), (hasMark ? "\xFF\xFE" : "") + bytes);
      }
    }
  }
  AsyncToXmlFile(false);
  EXPECT_EQ(object->ToJson(false, EOLType_LF, CSerializationContext()), kWrites[0].text)
      << "a context without JSON options has the defaults";
}

TEST(ToJson, RefusesWhatXmlRefuses) {
  ScratchFolder const folder;
  CSmartPtr<Small> const object(new Small);
  CSerializationContext const context;
  std::u16string const file = FromUtf8(folder.Path("f"));
  EXPECT_EQ(Thrown([&] { object->ToJson(true, EOLType{2}, context); }), u"Invalid EOL type.");
  EXPECT_EQ(Thrown([&] {
              object->ToJsonStream(true, XmlEncoding_None, EOLType_LF, context,
                                   CompressionType_None);
            }),
            u"Unknown Encoding, select UTF-8 (contact our support team)");
  EXPECT_EQ(Thrown([&] {
              object->ToJsonFile(file.c_str(), true, XmlEncoding_UTF8, EOLType_LF, context,
                                 CompressionType_ZLib);
            }),
            u"ZLIB Compression only available for To Stream methods.");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("f")));
  EXPECT_EQ(Thrown([&] {
              object->ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, context,
                                   CompressionType_GZip);
            }),
            u"Failed to compress data. [Error Code: 0]");
}

// Long enough that compression makes it shorter.
CSmartPtr<Node> Order() {
  CSmartPtr<Node> const order(new Node);
  std::string items;
  for (int i = 0; i < 100; ++i) items += ",{\"@id\":" + std::to_string(i) + ",\"name\":\"x\"}";
  order->FromJson(
      ("{\"p:order\":{\"@xmlns:p\":\"urn:p\",\"item\":[" + items.substr(1) + "]}}").c_str(),
      CSerializationContext());
  return order;
}

TEST(FromJson, ReadsEveryInputAlike) {
  std::string const json =
      "\xEF\xBB\xBF{\"p:r\":{\"@xmlns:p\":\"urn:p\",\"@i\":\"\xC3\xA4\",\"a\":" +
      std::string(2000, '1') + ",\"b\":[{\"c\":1},{\"c\":2}]}}";
  std::string const unmarked = json.substr(3);
  ScratchFolder const folder;
  CSerializationContext const context;
  Node expected;
  expected.FromXml(("<p:r xmlns:p='urn:p' i='\xC3\xA4'><a>" + std::string(2000, '1') +
                    "</a><b><c>1</c></b><b><c>2</c></b></p:r>")
                       .c_str(),
                   context);
  auto const expectToRead = [&](char const* name, auto read) {
    SCOPED_TRACE(name);
    CSmartPtr<Node> const node(new Node);
    read(*node);
    EXPECT_EQ(*node, expected);
  };
  auto const file = [&](std::string const& bytes) { return FromUtf8(folder.MakeFile("f", bytes)); };
  CBinaryData compressed{std::string_view(json)};
  CompressBinaryData(compressed, CompressionType_GZip);
  expectToRead("Narrow", [&](Node& it) { it.FromJson(unmarked.c_str(), context); });
  expectToRead("Wide", [&](Node& it) { it.FromJson(FromUtf8(unmarked).c_str(), context); });
  expectToRead("Data",
               [&](Node& it) { it.FromJsonStream(CBinaryData(std::string_view(json)), context); });
  expectToRead("Compressed", [&](Node& it) { it.FromJsonStream(compressed, context); });
  expectToRead("Bytes", [&](Node& it) {
    it.FromJsonStream(reinterpret_cast<unsigned char const*>(json.data()),
                      static_cast<std::uint32_t>(json.size()), context);
  });
  expectToRead("File", [&](Node& it) { it.FromJsonFile(file(json).c_str(), context); });
  expectToRead("CompressedFile", [&](Node& it) {
    it.FromJsonFile(file(std::string(compressed.GetView())).c_str(), context);
  });
}

TEST(FromJson, ReadsObjectsOfAnArray) {
  auto const order = Order();
  EXPECT_EQ(order->ns, u"urn:p");
  EXPECT_EQ(order->children.size(), 100U);
  EXPECT_EQ(order->children[99]->attributes[0].value, u"99");
  CSerializationContext context;
  CSmartPtr<Node> const root(new Node);
  context.GetJsonContext()->SetRootElementName(u"root");
  root->FromJson(u"[{\"a\":1}]", context);
  EXPECT_EQ(root->ToXml(false, false, EOLType_LF, context), u"<root><a>1</a></root>");
}

TEST(FromJson, RefusesEmptyInput) {
  CSerializationContext const context;
  CSmartPtr<Node> const node(new Node);
  std::u16string const string = u"JSON String is empty!";
  std::u16string const stream = u"JSON Stream is empty!";
  EXPECT_EQ(Thrown([&] { node->FromJson(u"", context); }), string);
  EXPECT_EQ(Thrown([&] { node->FromJson("", context); }), string);
  EXPECT_EQ(Thrown([&] { node->FromJson(static_cast<char const*>(nullptr), context); }), string);
  EXPECT_EQ(Thrown([&] { node->FromJsonStream(nullptr, 1, context); }), stream);
  EXPECT_EQ(Thrown([&] { node->FromJsonStream(CBinaryData(), context); }), stream);
  EXPECT_EQ(Thrown([&] { node->FromJsonFile(nullptr, context); }),
            u"Failed to open the file [] Error [0x00000002]");
}

constexpr char16_t kTwoRoots[] = u"{\"a\": 1, \"b\": 2}";
constexpr char16_t kTwoRootsFailure[] =
    u"Exception: Error converting JSON to XML:\n"
    u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>1</a>\n<b>2</b>\n\n"
    u"Exception: junk after document element at line 3";

TEST(FromJson, ShowsTheXmlThatCantBeRead) {
  auto const failure = [](char16_t const* json) {
    return KestModel::OutcomeOf([&] {
      CSmartPtr<Node>(new Node)->FromJson(json, CSerializationContext());
      return std::u16string(kNothingThrown);
    });
  };
  EXPECT_EQ(failure(kTwoRoots), kTwoRootsFailure);
  EXPECT_EQ(failure(u"{"),
            u"Validation: Unexpected End of File. Expected Object terminator character '}}' at "
            u"line 1, position 1. @ $")
      << "what is no JSON has no XML to show";
}

// Notes whether namespaces are ignored while it is read; then throws, if it is to.
struct Curious : BareObject {
  enum Failure { None, Family, Foreign };
  explicit Curious(Failure failure_) : failure(failure_) {}
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, CSerializationContext const& context,
                           bool) override {
    wasIgnored = context.GetIgnoreNamespaces();
    if (failure == Family) throw CKestException(u"no");
    if (failure == Foreign) throw std::runtime_error("no");
    return nullptr;
  }
  Failure failure;
  bool wasIgnored = false;
};

// A failure of the family leaves the setting on, which callers count on.
TEST(FromJson, IgnoresNamespacesUnlessTheRoundTripIsFull) {
  struct {
    char const* name;
    JsonRoundTrip roundTrip;
    bool before;
    Curious::Failure failure;
    bool during, after;
  } const rows[] = {
      {"Full", JsonRoundTrip_Full, false, Curious::None, false, false},
      {"FullFails", JsonRoundTrip_Full, false, Curious::Family, false, false},
      {"Attributes", JsonRoundTrip_Attributes, false, Curious::None, true, false},
      {"None", JsonRoundTrip_None, false, Curious::None, true, false},
      {"NoneBefore", JsonRoundTrip_None, true, Curious::None, true, true},
      {"NoneFails", JsonRoundTrip_None, false, Curious::Family, true, true},
      {"NoneFailsOtherwise", JsonRoundTrip_None, false, Curious::Foreign, true, false},
  };
  for (auto const& [name, roundTrip, before, failure, during, after] : rows) {
    SCOPED_TRACE(name);
    auto context = ContextOf(roundTrip);
    context.SetIgnoreNamespaces(before);
    CSmartPtr<Curious> const object(new Curious(failure));
    try {
      object->FromJson(u"{\"a\":1}", context);
      EXPECT_EQ(failure, Curious::None);
    } catch (CKestException const&) {
      EXPECT_EQ(failure, Curious::Family);
    } catch (std::runtime_error const&) {
      EXPECT_EQ(failure, Curious::Foreign);
    }
    EXPECT_EQ(object->wasIgnored, during);
    EXPECT_EQ(context.GetIgnoreNamespaces(), after);
  }
  auto context = ContextOf(JsonRoundTrip_None);
  context.SetSchemaType(SchemaType::DocumentTypeDefinition);
  CSmartPtr<Node>(new Node)->FromJson(u"{\"a\":1}", context);
  context.SetSchemaType(SchemaType::XmlSchema);
  EXPECT_TRUE(context.GetIgnoreNamespaces()) << "what is given back is what was said before";
}

}  // namespace
}  // namespace KestXmlLib20
