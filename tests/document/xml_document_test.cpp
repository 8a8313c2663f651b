// Loads from memory: what becomes of names, text, attributes and errors.

#include "kestxml/document/xml_document.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/preserve_character_ref_cr.h"
#include "tests/model/thrown.h"

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
    {"EntityWithElements", "<!DOCTYPE a [<!ENTITY e '1<b>2</b>'>]><a>0&e;&e;</a>", "a[011](b[2],b[2])"},
    {"NestedEntities", "<!DOCTYPE a [<!ENTITY e 'x&f;'><!ENTITY f '&#38;lt;'>]><a b='&e;'>&e;</a>", "a @b=x<[x<]"},
    {"DefaultedAttribute", "<!DOCTYPE a [<!ATTLIST a b CDATA 'c'>]><a/>", "a @b=c"},
    {"ExternalEntityIsNotFetched", "<!DOCTYPE a [<!ENTITY e SYSTEM 'file'>]><a>1&e;2</a>", "a[12]"},
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

TEST(Trees, FollowTheTextNarrowOrWide) {
  for (TreeCase const& row : kTrees) {
    SCOPED_TRACE(row.name);
    CXmlDocument document;
    document.LoadXml(row.text);
    EXPECT_EQ(OutlineOf(document), row.outline);
    // The mark and the encoding belong to the bytes.
    std::string const text = row.text;
    if (text.starts_with("\xEF\xBB\xBF") || text.find("\xE9</") != std::string::npos) continue;
    document.LoadXml(FromUtf8(text).c_str());
    EXPECT_EQ(OutlineOf(document), row.outline);
  }
}

TEST(WideText, IsUtf16WhateverItDeclares) {
  for (char const* const encoding : {"UTF-8", "ISO-8859-1", "UTF-16BE", "windows-1252"}) {
    auto const text =
        FromUtf8(std::string("<?xml version='1.0' encoding='") + encoding + "'?><a>é€</a>");
    CXmlDocument document;
    document.LoadXml(text.c_str());
    EXPECT_EQ(OutlineOf(document), "a[é€]") << encoding;
    std::u16string const marked = u"\uFEFF" + text;
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(marked.data()),
                           static_cast<std::uint32_t>(marked.size() * 2));
    EXPECT_EQ(OutlineOf(document), "a[é€]") << encoding;
    EXPECT_EQ(Thrown([&] { document.LoadXml(marked.c_str()); }),
              u"not well-formed (invalid token) at line 1")
        << "the text may not bring a mark of its own";
  }
}

TEST(ByteText, IsReadInItsEncoding) {
  using namespace std::string_literals;
  for (std::string const& bytes : {"<\0a\0>\0\xE9\0<\0/\0a\0>\0"s, "\0<\0a\0>\0\xE9\0<\0/\0a\0>"s,
                                   "\xFE\xFF\0<\0a\0>\0\xE9\0<\0/\0a\0>"s}) {
    CXmlDocument document;
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()));
    EXPECT_EQ(OutlineOf(document), "a[é]");
  }
}

// clang-format off
constexpr struct { char const* text; char16_t const* message; } kFailures[] = {
    {nullptr,            u"XML String is empty!"},
    {"",                 u"XML String is empty!"},
    {"<!--c-->",         u"no element found at line 1"},
    {"<a>\n<b>\n</a>", u"mismatched tag at line 3"},
    {"<a>",              u"no element found at line 1"},
    {"<a/><b/>",         u"junk after document element at line 1"},
    {"<p:a/>",           u"unbound prefix at line 1"},
    {"<?xml version='1.0' encoding='x-none'?><a/>", u"unknown encoding at line 1"},
    {"<a>&e;</a>",       u"undefined entity at line 1"},
    {"<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>", u"recursive entity reference at line 1"},
    {"<!DOCTYPE a [<!ENTITY e '<b>'>]><a>&e;</b></a>", u"asynchronous entity at line 1"},
    {"<!DOCTYPE a [<!ENTITY e '<'>]><a b='&e;'/>", u"not well-formed (invalid token) at line 1"},
};
// clang-format on

TEST(Failures, HaveTheParsersWordsAndTheLine) {
  CXmlDocument document;
  for (auto const& [text, message] : kFailures) {
    EXPECT_EQ(Thrown([&, &text = text] { document.LoadXml(text); }), message) << text;
    document.LoadXml("<a>again</a>");
    EXPECT_EQ(OutlineOf(document), "a[again]");
  }
  for (char16_t const* const none : {u"", static_cast<char16_t const*>(nullptr)}) {
    EXPECT_EQ(Thrown([&] { document.LoadXml(none); }), u"no element found at line 1");
    EXPECT_EQ(Thrown([&] { document.LoadXmlStream(nullptr, none ? 0 : 5); }),
              u"XML Stream is empty!");
  }
  EXPECT_EQ(document.LookupNamespaceFromAlias(static_cast<char16_t const*>(nullptr)), u"");
  EXPECT_EQ(document.LookupAliasFromNamespace(static_cast<char16_t const*>(nullptr)), u"");
}

// Each entity is ten of the one before: the parser's own guard ends it.
TEST(Failures, OfEntitiesThatGrowWithoutBounds) {
  std::string text = "<!DOCTYPE a [<!ENTITY e0 '" + std::string(100, 'x') + "'>";
  for (int i = 1; i < 10; ++i) {
    text += "<!ENTITY e" + std::to_string(i) + " '";
    for (int n = 0; n < 10; ++n) text += "&e" + std::to_string(i - 1) + ";";
    text += "'>";
  }
  for (char const* const use : {"]><a>&e9;</a>", "]><a b='&e9;'/>"}) {
    CXmlDocument document;
    EXPECT_EQ(Thrown([&] { document.LoadXml((text + use).c_str()); }),
              u"limit on input amplification factor (from DTD and entities) breached at line 1");
  }
}

TEST(Failures, LeaveWhatWasBuiltUntilTheNextLoad) {
  CXmlDocument document;
  EXPECT_NE(Thrown([&] { document.LoadXml("<a>text<b>more</a>"); }), kNothingThrown);
  EXPECT_EQ(OutlineOf(document), "a[text](b[more])");
  EXPECT_NE(Thrown([&] { document.LoadXml(""); }), kNothingThrown);
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
}

TEST(Options, ChangeTheTree) {
  CSerializationContext context;
  context.SetStripCDATA(false);
  context.SetSchemaType(SchemaType::DocumentTypeDefinition);
  CXmlDocument document(context);
  document.LoadXml("<p:a xmlns:p='u' p:b='1'>x<![CDATA[y<z]]>w</p:a>");
  EXPECT_EQ(OutlineOf(document), "p:a @xmlns:p=u @p:b=1[x<![CDATA[y<z]]>w]");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"p"), u"");
  SetPreserveCharacterRefCR(true);
  document.LoadXml("<a>1&#xD;2</a>");
  SetPreserveCharacterRefCR(false);
  EXPECT_EQ(OutlineOf(document), "a[1\r2]");
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

TEST(Names, OfOneDocumentAreHeldOnce) {
  std::string text = "<a>";
  for (int i = 0; i < 300; ++i) {
    text += "<b xmlns='urn:" + std::to_string(i % 150) + "'><c/></b>";
  }
  CXmlDocument document;
  document.LoadXml((text + "</a>").c_str());
  std::vector<XmlName const*> names;
  auto const* child = document.GetDocumentElement()->GetFirstElement();
  for (; child; child = child->GetNextSiblingElement()) {
    names.push_back(&child->GetName());
    auto const& inner = child->GetFirstElement()->GetName();
    EXPECT_EQ(inner.namespaceURI.data(), child->GetNamespaceURI().data());
    EXPECT_NE(&inner, names.back());
  }
  for (std::size_t i = 0; i < 150; ++i) EXPECT_EQ(names[i], names[i + 150]);
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

TEST(Paths, NameThePlace) {
  for (PathCase const& row : kPaths) {
    CXmlDocument document;
    document.LoadXml(row.text);
    auto const* element = document.GetDocumentElement();
    for (int step : row.steps) {
      element = element->GetFirstElement();
      while (step-- > 0) element = element->GetNextSiblingElement();
    }
    EXPECT_EQ(element->GetXPath(), row.path) << row.name;
  }
}

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

TEST(Attributes, AreClassified) {
  struct {
    char const* attribute;
    bool isNamespace, isNil;
  } const rows[] = {
      {"x:type", true, false},
      {"x:schemaLocation", true, false},
      {"x:noNamespaceSchemaLocation", true, false},
      {"x:xmlns", true, false},
      {"x:nil", false, true},
      {"x:other", false, false},
      {"o:type", false, false},
      {"nil", false, false},
  };
  for (auto const& [name, isNamespace, isNil] : rows) {
    CXmlDocument document;
    document.LoadXml((std::string("<a xmlns:o='urn:o' xmlns:x='http://www.w3.org/2001/"
                                  "XMLSchema-instance' ") +
                      name + "='a'/>")
                         .c_str());
    auto const* attribute = document.GetDocumentElement()->GetAttributes()[0];
    EXPECT_EQ(attribute->IsNamespaceAttribute(), isNamespace) << name;
    EXPECT_EQ(attribute->IsNilAttribute(), isNil) << name;
  }
}

}  // namespace
}  // namespace KestXmlLib20
