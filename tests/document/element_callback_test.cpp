// The element callback and the limits of a load.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

std::vector<std::string> seen;  // a callback is a plain function

void Note(CXmlElement const& element) {
  seen.push_back(ToUtf8(element.GetXPath()) + "=" + ToUtf8(element.GetText()));
}

class ElementCallback : public testing::Test {
 protected:
  ElementCallback() { seen.clear(); }
};

TEST_F(ElementCallback, SeesEachElementAsItEnds) {
  CXmlDocument document([](CXmlElement* element) { return Note(*element), false; });
  document.LoadXml("<a>1<b>2</b>3<b>4</b></a>");
  EXPECT_EQ(seen, (std::vector<std::string>{"/a/b=2", "/a/b[2]=4", "/a=13"}));
  EXPECT_NE(document.GetDocumentElement()->GetFirstElement(), nullptr);
}

TEST_F(ElementCallback, ThrowsElementsAwayButNeverTheRoot) {
  CXmlDocument document([](CXmlElement* element) { return Note(*element), true; });
  document.LoadXml("<a><b><c/></b><b/>text</a>");
  EXPECT_EQ(seen, (std::vector<std::string>{"/a/b/c=", "/a/b=", "/a/b=", "/a=text"}));
  ASSERT_NE(document.GetDocumentElement(), nullptr);
  EXPECT_EQ(document.GetDocumentElement()->GetFirstElement(), nullptr);
  EXPECT_EQ(document.GetDocumentElement()->GetText(), u"text");
}

// What is kept stays whole beside what goes, and alone counts in paths.
TEST_F(ElementCallback, KeepsSomeOfManySiblings) {
  CXmlDocument document(
      [](CXmlElement* element) { return element->GetAttribute(u"go", u"") == u"1"; });
  std::string text = "<a>";
  for (int i = 0; i < 1000; ++i) {
    text += "<n" + std::to_string(i) + " go='" + (i % 3 ? "1" : "0") + "'>" + std::to_string(i) +
            "</n" + std::to_string(i) + "><k/>";
  }
  document.LoadXml((text + "</a>").c_str());
  int expected = 0;
  auto const* child = document.GetDocumentElement()->GetFirstElement();
  for (; child; child = child->GetNextSiblingElement()) {
    if (child->GetLocalName() == u"k") continue;
    EXPECT_EQ(ToUtf8(child->GetLocalName()), "n" + std::to_string(expected));
    EXPECT_EQ(ToUtf8(child->GetText()), std::to_string(expected));
    expected += 3;
  }
  EXPECT_EQ(expected, 1002);
}

TEST_F(ElementCallback, SeesTheTextOfWhatIsStillOpen) {
  CXmlDocument document([](CXmlElement* element) {
    if (auto const* parent = element->GetParentElm()) {
      seen.push_back(ToUtf8(parent->GetText()));
      EXPECT_EQ(parent->GetText().data()[parent->GetText().size()], u'\0');
    }
    return true;
  });
  document.LoadXml("<a>1<b/>2<b/></a>");
  EXPECT_EQ(seen, (std::vector<std::string>{"1", "12"}));
}

TEST_F(ElementCallback, MayThrowWhatItLikes) {
  CXmlDocument document([](CXmlElement* element) -> bool {
    if (element->GetLocalName() == u"b") throw std::out_of_range("mine");
    seen.push_back("after");
    return false;
  });
  EXPECT_THROW(document.LoadXml("<a><b/><c/></a>"), std::out_of_range);
  EXPECT_TRUE(seen.empty());
}

TEST_F(ElementCallback, MayLoadAnotherDocument) {
  CXmlDocument document([](CXmlElement*) {
    CXmlDocument inner;
    inner.LoadXml("<inner>text</inner>");
    seen.push_back(ToUtf8(inner.GetDocumentElement()->GetText()));
    return true;
  });
  document.LoadXml("<a><b/></a>");
  EXPECT_EQ(seen.size(), 2u);
}

struct LimitCase {
  char const* name;
  void (*set)(CSerializationLimits& limits);
  std::string atTheLimit, aboveIt;
  std::u16string message;
};

std::string Repeat(std::string const& text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) {
    result += text;
    if (auto const mark = result.rfind('#'); mark != std::string::npos) {
      result.replace(mark, 1, std::to_string(i));
    }
  }
  return result;
}

std::string Nested(int depth) {
  return Repeat("<a>", depth) + Repeat("</a>", depth);
}

TEST(Limits, HoldAtTheirValueAndRefuseOneMore) {
  std::u16string deepest;
  for (int i = 0; i < 1000; ++i) deepest += u"/a";
  LimitCase const cases[] = {
      {"Depth", [](auto& limits) { limits.SetMaxDepth(3); }, Nested(3), Nested(4),
       u"The document exceeds the limit of 3 nested elements.\nPath: /a/a/a"},
      {"DefaultDepth", [](auto&) {}, Nested(1000), Nested(1001),
       u"The document exceeds the limit of 1000 nested elements.\nPath: " + deepest},
      {"Attributes", [](auto& limits) { limits.SetMaxAttributes(2); }, "<r><a b='' c=''/></r>",
       "<r><a b='' c='' d=''/></r>", u"An element exceeds the limit of 2 attributes.\nPath: /r"},
      {"DefaultAttributes", [](auto&) {}, "<a " + Repeat("b#='' ", 10000) + "/>",
       "<a " + Repeat("b#='' ", 10001) + "/>",
       u"An element exceeds the limit of 10000 attributes."},
      {"Declarations", [](auto& limits) { limits.SetMaxNamespaceDeclarations(2); },
       "<r><a xmlns:b='u' xmlns:c='u'/><a xmlns:b='u'/></r>",
       "<r><a xmlns:b='u' xmlns:c='u' xmlns='u'/></r>",
       u"An element exceeds the limit of 2 namespace declarations.\nPath: /r"},
      {"DefaultDeclarations", [](auto&) {}, "<a " + Repeat("xmlns:b#='u' ", 10000) + "/>",
       "<a " + Repeat("xmlns:b#='u' ", 10001) + "/>",
       u"An element exceeds the limit of 10000 namespace declarations."},
      {"NamespaceLength", [](auto& limits) { limits.SetMaxNamespaceLength(5); },
       "<r><a xmlns='12345'/></r>", "<r><a xmlns='123456'/></r>",
       u"A namespace exceeds the limit of 5 characters.\nPath: /r"},
      {"DefaultNamespaceLength", [](auto&) {}, "<a xmlns='" + std::string(10000, 'u') + "'/>",
       "<a xmlns='" + std::string(10001, 'u') + "'/>",
       u"A namespace exceeds the limit of 10000 characters."},
      {"Elements", [](auto& limits) { limits.SetMaxElements(3); }, "<a><b/><b/></a>",
       "<a><b/><b/><b/></a>", u"The document exceeds the limit of 3 elements.\nPath: /a"},
  };
  for (LimitCase const& row : cases) {
    SCOPED_TRACE(row.name);
    CSerializationContext context;
    row.set(context.GetLimits());
    CXmlDocument document(context);
    EXPECT_NO_THROW(document.LoadXml(row.atTheLimit.c_str()));
    EXPECT_EQ(Thrown([&] { document.LoadXml(row.aboveIt.c_str()); }), row.message);
  }
}

TEST(Limits, OfNoneLetAnythingPass) {
  CSerializationContext context;
  context.GetLimits().SetMaxDepth(0);
  context.GetLimits().SetMaxAttributes(0);
  context.GetLimits().SetMaxNamespaceDeclarations(0);
  CXmlDocument document(context);
  document.LoadXml(Nested(20'000).c_str());
  document.LoadXml(("<a " + Repeat("b#='' ", 20'000) + "/>").c_str());
  EXPECT_EQ(document.GetDocumentElement()->GetAttributes().size(), 20'000u);
}

}  // namespace
}  // namespace KestXmlLib20
