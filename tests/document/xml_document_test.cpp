// Loads from memory: what becomes of names, text, attributes and errors.

#include "kestxml/document/xml_document.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/preserve_character_ref_cr.h"
#include "kestxml/values/unicode.h"
#include "tests/model/row_name.h"

namespace KestXmlLib20 {
namespace {

// The tree in one line: {uri}local(@{uri}name=value ...)[text](child child).
std::string Outline(CXmlElement const& element) {
  auto const name = [](std::u16string_view uri, std::u16string_view local) {
    return uri.empty() ? ToUtf8(local) : "{" + ToUtf8(uri) + "}" + ToUtf8(local);
  };
  std::string out = name(element.GetNamespaceURI(), element.GetLocalName());
  for (auto const* attribute : element.GetAttributes()) {
    out += " @" + name(attribute->GetNamespaceURI(), attribute->GetLocalName()) + "=" +
           ToUtf8(attribute->GetValue());
  }
  if (!element.GetText().empty()) out += "[" + ToUtf8(element.GetText()) + "]";
  auto const* child = element.GetFirstElement();
  if (!child) return out;
  out += "(" + Outline(*child);
  while ((child = child->GetNextSiblingElement())) out += "," + Outline(*child);
  return out + ")";
}

std::string OutlineOf(CXmlDocument const& document) {
  return document.GetDocumentElement() ? Outline(*document.GetDocumentElement()) : "none";
}

std::string FailureOf(std::function<void()> const& load) {
  try {
    load();
  } catch (CKestException const& exception) {
    return ToUtf8(exception.GetFullMessage());
  }
  return "";
}

struct TreeCase {
  char const* name;
  char const* text;
  char const* outline;
};

// clang-format off
constexpr TreeCase kTrees[] = {
    {"Empty", "<a/>", "a"},
    {"TextAroundChildJoins", "<a>x<b/>y</a>", "a[xy](b)"},
    {"WhiteSpaceStays", "<a>\n <b/>\n</a>", "a[\n \n](b)"},
    {"LineEndsAreNormalised", "<a>1\r\n2\r3</a>", "a[1\n2\n3]"},
    {"ReferencedCarriageReturnIsDropped", "<a>1&#xD;2</a>", "a[12]"},
    {"AllCarriageReturns", "<a>&#13;&#13;</a>", "a"},
    {"Entities", "<a>&lt;&amp;&#8364;&#x1F600;</a>", "a[<&€😀]"},
    {"InternalEntity", "<!DOCTYPE a [<!ENTITY e 'b'>]><a x='&e;'>&e;</a>", "a @x=b[b]"},
    {"CommentsAndInstructionsGo", "<?p q?><a>1<!--c-->2<?r s?>3</a><!--d-->", "a[123]"},
    {"CDATAIsStripped", "<a>x<![CDATA[y<z]]>w</a>", "a[xy<zw]"},
    {"Attributes", "<a b='1' c=''/>", "a @b=1 @c="},
    {"AttributeCarriageReturnStays", "<a b='1&#xD;2'/>", "a @b=1\r2"},
    {"DefaultNamespace", "<a xmlns='u'><b c='1'/></a>", "{u}a({u}b @c=1)"},
    {"Prefixes", "<p:a xmlns:p='u' p:b='1'/>", "{u}a @{u}b=1"},
    {"SameLocalNames", "<a xmlns:p='u'><b/><p:b/><b/></a>", "a(b,{u}b,b)"},
    {"DeclarationsAreNoAttributes", "<a xmlns='u' xmlns:p='v'/>", "{u}a"},
    {"UriWithBarIsCutAtTheFirst", "<a xmlns='u|v'/>", "{u}v|a"},
    {"UriWithBars", "<p:a xmlns:p='u|v|w' p:x='1'/>", "{u}v|w|a @{u}v|w|x=1"},
    {"XmlPrefix", "<a xml:lang='en'/>", "a @{http://www.w3.org/XML/1998/namespace}lang=en"},
    {"LatinOne", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "a[é]"},
    {"Utf8Mark", "\xEF\xBB\xBF<a/>", "a"},
};
// clang-format on

class Tree : public ::testing::TestWithParam<TreeCase> {};

TEST_P(Tree, FollowsTheText) {
  CXmlDocument document;
  document.LoadXml(GetParam().text);
  EXPECT_EQ(OutlineOf(document), GetParam().outline);
}

TEST_P(Tree, IsTheSameForWideText) {
  // The declaration and the mark belong to the bytes of the narrow text.
  std::string text = GetParam().text;
  if (text.starts_with("\xEF\xBB\xBF") || text.find("\xE9</") != std::string::npos) return;
  CXmlDocument document;
  document.LoadXml(FromUtf8(text).c_str());
  EXPECT_EQ(OutlineOf(document), GetParam().outline);
}

INSTANTIATE_TEST_SUITE_P(, Tree, ::testing::ValuesIn(kTrees), RowName());

TEST(WideText, IsUtf16WhateverItDeclares) {
  for (char16_t const* encoding : {u"UTF-8", u"ISO-8859-1", u"UTF-16BE", u"windows-1252"}) {
    std::u16string const text =
        std::u16string(u"<?xml version='1.0' encoding='") + encoding + u"'?><a>é€</a>";
    CXmlDocument document;
    document.LoadXml(text.c_str());
    EXPECT_EQ(OutlineOf(document), "a[é€]") << ToUtf8(encoding);
  }
}

TEST(WideText, MayNotBringItsOwnMark) {
  CXmlDocument document;
  EXPECT_EQ(FailureOf([&] { document.LoadXml(u"\uFEFF<a/>"); }),
            "not well-formed (invalid token) at line 1");
}

TEST(ByteText, IsReadInItsEncoding) {
  struct Row {
    char const* name;
    std::string bytes;
  };
  using namespace std::string_literals;
  Row const rows[] = {
      {"LittleEndian", "<\0a\0>\0\xE9\0<\0/\0a\0>\0"s},
      {"BigEndian", "\0<\0a\0>\0\xE9\0<\0/\0a\0>"s},
      {"BigEndianMark", "\xFE\xFF\0<\0a\0>\0\xE9\0<\0/\0a\0>"s},
  };
  for (Row const& row : rows) {
    CXmlDocument document;
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(row.bytes.data()),
                           static_cast<std::uint32_t>(row.bytes.size()));
    EXPECT_EQ(OutlineOf(document), "a[é]") << row.name;
  }
}

TEST(ByteText, WithAMarkIsUtf16WhateverItDeclares) {
  std::u16string const text = u"\uFEFF<?xml version='1.0' encoding='UTF-8'?><a>é</a>";
  CXmlDocument document;
  document.LoadXmlStream(reinterpret_cast<unsigned char const*>(text.data()),
                         static_cast<std::uint32_t>(text.size() * 2));
  EXPECT_EQ(OutlineOf(document), "a[é]");
}

struct FailureCase {
  char const* name;
  char const* text;
  char const* message;
};

constexpr FailureCase kFailures[] = {
    {"EmptyText", "", "XML String is empty!"},
    {"NoElement", "<!--c-->", "no element found at line 1"},
    {"Mismatch", "<a>\n<b>\n</a>", "mismatched tag at line 3"},
    {"UnclosedRoot", "<a>", "no element found at line 1"},
    {"TwoRoots", "<a/><b/>", "junk after document element at line 1"},
    {"UnboundPrefix", "<p:a/>", "unbound prefix at line 1"},
    {"UnknownEncoding", "<?xml version='1.0' encoding='x-none'?><a/>",
     "unknown encoding at line 1"},
    {"RecursiveEntity", "<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>",
     "recursive entity reference at line 1"},
};

class Failure : public ::testing::TestWithParam<FailureCase> {};

TEST_P(Failure, HasTheParsersWordsAndTheLine) {
  CXmlDocument document;
  EXPECT_EQ(FailureOf([&] { document.LoadXml(GetParam().text); }), GetParam().message);
  document.LoadXml("<a>again</a>");
  EXPECT_EQ(OutlineOf(document), "a[again]");
}

INSTANTIATE_TEST_SUITE_P(, Failure, ::testing::ValuesIn(kFailures), RowName());

TEST(Failures, OfEmptyInput) {
  CXmlDocument document;
  EXPECT_EQ(FailureOf([&] { document.LoadXml(u""); }), "no element found at line 1");
  EXPECT_EQ(FailureOf([&] { document.LoadXmlStream(nullptr, 0); }), "XML Stream is empty!");
}

TEST(Failures, LeaveWhatWasBuiltUntilTheNextLoad) {
  CXmlDocument document;
  EXPECT_NE(FailureOf([&] { document.LoadXml("<a>text<b>more</a>"); }), "");
  EXPECT_EQ(OutlineOf(document), "a[text](b[more])");
  EXPECT_NE(FailureOf([&] { document.LoadXml(""); }), "");
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
}

TEST(Options, KeepCDATAInItsSourceForm) {
  CSerializationContext context;
  context.SetStripCDATA(false);
  CXmlDocument document(context);
  document.LoadXml("<a>x<![CDATA[y<z]]>w</a>");
  EXPECT_EQ(OutlineOf(document), "a[x<![CDATA[y<z]]>w]");
}

TEST(Options, WithoutNamespacesPrefixesStayInNames) {
  CSerializationContext context;
  context.SetSchemaType(SchemaType::DocumentTypeDefinition);
  CXmlDocument document(context);
  document.LoadXml("<p:a xmlns:p='u' p:b='1'/>");
  EXPECT_EQ(OutlineOf(document), "p:a @xmlns:p=u @p:b=1");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"p"), u"");
}

TEST(Options, PreserveReferencedCarriageReturns) {
  SetPreserveCharacterRefCR(true);
  CXmlDocument document;
  document.LoadXml("<a>1&#xD;2</a>");
  SetPreserveCharacterRefCR(false);
  EXPECT_EQ(document.GetDocumentElement()->GetText(), u"1\r2");
}

TEST(Text, OfAnySizeIsTerminatedAndFilteredAtEveryPlace) {
  for (std::size_t const length :
       {1u, 2u, 3u, 4u, 5u, 7u, 8u, 9u, 15u, 16u, 17u, 63u, 64u, 1023u, 1024u, 1025u, 5000u}) {
    std::string const before(length, 'x');
    std::string const text = "<a>" + before + "&#13;" + before + "<b/>" + before + "</a>";
    CXmlDocument document;
    document.LoadXml(text.c_str());
    auto const view = document.GetDocumentElement()->GetText();
    EXPECT_EQ(view, std::u16string(3 * length, u'x')) << length;
    EXPECT_EQ(view.data()[view.size()], u'\0');
  }
}

TEST(Views, AreTerminatedAndNeverNull) {
  CXmlDocument document;
  document.LoadXml("<a b='' c='v'/>");
  auto const* root = document.GetDocumentElement();
  for (auto const view : {root->GetText(), root->GetNamespaceURI(), root->GetLocalName(),
                          root->GetAttribute(u"b", u""), root->GetAttribute(u"c", u""),
                          root->GetAttribute(u"none", u""), root->GetAttribute(u"c", u"u")}) {
    ASSERT_NE(view.data(), nullptr);
    EXPECT_EQ(view.data()[view.size()], u'\0');
  }
  EXPECT_EQ(root->GetAttribute(u"c", u""), u"v");
  EXPECT_EQ(root->GetAttributes().size(), 2u);
  EXPECT_EQ(root->GetAttributes()[1]->GetElement(), root);
  EXPECT_EQ(root->GetDocument(), &document);
}

// What came of the first text must not lie where the second is put.
TEST(Views, OfTextThatIsDroppedAreTerminatedToo) {
  CXmlDocument document;
  document.LoadXml(("<a><b>&#13;</b><b>" + std::string(1000, 'x') + "</b></a>").c_str());
  auto const text = document.GetDocumentElement()->GetFirstElement()->GetText();
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(*text.data(), u'\0');
}

TEST(NullPointers, CountAsEmpty) {
  CXmlDocument document;
  EXPECT_EQ(FailureOf([&] { document.LoadXml(static_cast<char const*>(nullptr)); }),
            "XML String is empty!");
  EXPECT_EQ(FailureOf([&] { document.LoadXml(static_cast<char16_t const*>(nullptr)); }),
            "no element found at line 1");
  EXPECT_EQ(FailureOf([&] { document.LoadXmlStream(nullptr, 5); }), "XML Stream is empty!");
  EXPECT_EQ(FailureOf([&] { document.Load(nullptr); }),
            "Failed to open the file [] Error [0x00000002]");
  char16_t const* const none = nullptr;
  EXPECT_EQ(document.LookupNamespaceFromAlias(none), u"");
  EXPECT_EQ(document.LookupAliasFromNamespace(none), u"");
}

TEST(Names, OfManyNamespacesShareTheirTexts) {
  std::string text = "<a>";
  for (int i = 0; i < 300; ++i) {
    text += "<b xmlns='urn:" + std::to_string(i % 150) + "'/>";
  }
  CXmlDocument document;
  document.LoadXml((text + "</a>").c_str());
  std::vector<XmlName const*> names;
  auto const* child = document.GetDocumentElement()->GetFirstElement();
  for (; child; child = child->GetNextSiblingElement()) names.push_back(&child->GetName());
  for (std::size_t i = 0; i < 150; ++i) EXPECT_EQ(names[i], names[i + 150]);
}

TEST(Names, OfOneDocumentAreHeldOnce) {
  CXmlDocument document;
  document.LoadXml("<a xmlns='u'><b/><b/><c/></a>");
  auto const* first = document.GetDocumentElement()->GetFirstElement();
  auto const* second = first->GetNextSiblingElement();
  auto const* third = second->GetNextSiblingElement();
  EXPECT_EQ(&first->GetName(), &second->GetName());
  EXPECT_NE(&first->GetName(), &third->GetName());
  EXPECT_EQ(first->GetNamespaceURI().data(), third->GetNamespaceURI().data());
}

struct PathCase {
  char const* name;
  char const* text;
  std::vector<int> steps;  // which child, level by level
  char16_t const* path;
};

// clang-format off
PathCase const kPaths[] = {
    {"Root", "<a/>", {}, u"/a"},
    {"OnlyChild", "<a><b/></a>", {0}, u"/a/b"},
    {"FirstOfSeveral", "<a><b/><b/><b/></a>", {0}, u"/a/b[1]"},
    {"LastOfSeveral", "<a><b/><b/><b/></a>", {2}, u"/a/b[3]"},
    {"OthersDoNotCount", "<a><c/><b/><c/><b/></a>", {3}, u"/a/b[2]"},
    {"Prefixed", "<p:a xmlns:p='u'><p:b/><p:b/></p:a>", {1}, u"/p:a/p:b[2]"},
    {"DefaultNamespaceHasNoPrefix", "<a xmlns='u'><b/></a>", {0}, u"/a/b"},
    {"AlsoDefaultHasNoPrefix", "<p:a xmlns:p='u'><b xmlns='u'/></p:a>", {0}, u"/a/b"},
    {"LowestPrefixWins", "<q:a xmlns:q='u' xmlns:p='u'/>", {}, u"/p:a"},
    {"NamesThatPrintAlikeCount", "<x xmlns:p='u'><b xmlns='v'/><b xmlns=''/></x>", {1}, u"/x/b[2]"},
    {"DifferentPrefixesDoNotCount", "<a xmlns:p='u' xmlns:q='v'><p:b/><q:b/></a>", {1}, u"/a/q:b"},
};
// clang-format on

class Path : public ::testing::TestWithParam<PathCase> {};

TEST_P(Path, NamesThePlace) {
  CXmlDocument document;
  document.LoadXml(GetParam().text);
  auto const* element = document.GetDocumentElement();
  for (int step : GetParam().steps) {
    element = element->GetFirstElement();
    while (step-- > 0) element = element->GetNextSiblingElement();
  }
  EXPECT_EQ(element->GetXPath(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(, Path, ::testing::ValuesIn(kPaths), RowName());

// The prefix stands before the "@": messages have always shown it so.
TEST(Paths, OfAttributes) {
  CXmlDocument document;
  document.LoadXml("<a xmlns:p='u' id='1' p:id='2'/>");
  auto const attributes = document.GetDocumentElement()->GetAttributes();
  EXPECT_EQ(attributes[0]->GetXPath(), u"/a/@id");
  EXPECT_EQ(attributes[1]->GetXPath(), u"/a/p:@id");
}

TEST(Aliases, AreFlatAndTheLastDeclarationHolds) {
  CXmlDocument document;
  document.LoadXml("<a xmlns:p='u1' xmlns='d'><b xmlns:p='u2' xmlns=''/></a>");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"p"), u"u2");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u""), u"");
  EXPECT_EQ(document.LookupAliasFromNamespace(u"u2"), u"p");
  EXPECT_EQ(document.LookupAliasFromNamespace(u"u1"), u"");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"q"), u"");
}

struct AttributeCase {
  char const* name;
  char const* attribute;
  bool isNamespace;
  bool isNil;
};

constexpr AttributeCase kAttributes[] = {
    {"Type", "x:type='a'", true, false},
    {"SchemaLocation", "x:schemaLocation='a'", true, false},
    {"NoNamespaceSchemaLocation", "x:noNamespaceSchemaLocation='a'", true, false},
    {"Xmlns", "x:xmlns='a'", true, false},
    {"Nil", "x:nil='whatever'", false, true},
    {"OtherOfTheNamespace", "x:other='a'", false, false},
    {"OtherNamespace", "o:type='a'", false, false},
    {"NoNamespace", "nil='true'", false, false},
};

TEST(Attributes, AreClassified) {
  for (AttributeCase const& row : kAttributes) {
    SCOPED_TRACE(row.name);
    std::string const text = std::string("<a xmlns:o='urn:o' xmlns:x='") +
                             "http://www.w3.org/2001/XMLSchema-instance' " + row.attribute + "/>";
    CXmlDocument document;
    document.LoadXml(text.c_str());
    auto const* attribute = document.GetDocumentElement()->GetAttributes()[0];
    EXPECT_EQ(attribute->IsNamespaceAttribute(), row.isNamespace);
    EXPECT_EQ(attribute->IsNilAttribute(), row.isNil);
  }
}

}  // namespace
}  // namespace KestXmlLib20
