// Elements and attributes that no metadata describes.
#include <gtest/gtest.h>

#include <functional>

#include "kestxml/binding/attribute.h"
#include "kestxml/binding/attribute_col.h"
#include "kestxml/binding/element.h"
#include "kestxml/binding/element_col.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"
#include "tests/collections/event_log.h"
#include "tests/model/node.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

CSerializationContext const kContext;

std::u16string Written(CXmlObjectBase& object, bool prettyPrint = false,
                       CSerializationContext const& context = kContext) {
  return object.ToXml(false, prettyPrint, EOLType_LF, context);
}

CSmartPtr<CElement> NewElement() {
  return new CElement(u"");
}

CSmartPtr<CElement> Read(char16_t const* text) {
  CSmartPtr<CElement> const element = NewElement();
  element->FromXml(text);
  return element;
}

// Reads the child of a root, with declarations of namespaces as ordinary attributes.
CSmartPtr<CElement> ReadWithDeclarations(std::u16string const& child) {
  CSerializationContext context;
  context.SetSchemaType(SchemaType::DocumentTypeDefinition);
  CSmartPtr<CElement> const element = NewElement();
  element->FromXml((u"<root>" + child + u"</root>").c_str(), context);
  return element;
}

CSmartPtr<CElement> Nested(int depth, char16_t const* lastNamespace = u"") {
  CSmartPtr<CElement> const root(new CElement(u"e"));
  CElement* inner = root.Get();
  for (; depth > 2; --depth) inner = inner->GetChildElements()->Add(u"e", u"").Get();
  inner->GetChildElements()->Add(u"last", lastNamespace);
  return root;
}

using Operation = std::function<void()>;

TEST(OpenContent, RefusesNamespaces) {
  using Element = CSmartPtr<CElement>;
  CSmartPtr<CAttributeCol> const list(new CAttributeCol(u"", u"urn:a urn:b", u""));
  CSmartPtr<CAttributeCol> const other(new CAttributeCol(u"", u"##other", u"urn:t"));
  Element const element(new CElement(u"e", u"urn:e"));
  element->GetAttributes()->Add(u"id", u"1", u"urn:id");
  // clang-format off
  struct {
    char const* name; Operation operation; char16_t const* message;
  } const rows[] = {
      {"Keyword",       [] { Element(new CElement(u"e", u"##other")); }, u"Invalid Namespace [##other]."},
      {"NoName",        [] { Element(new CElement(nullptr, u"", nullptr, nullptr)); }, u"Element Name must have a value"},
      {"NoRestriction", [] { Element(new CElement(u"e", u"", nullptr, nullptr)); }, u"Namespace Restriction must have a value"},
      {"NoTarget",      [] { Element(new CElement(u"e", u"", u"##any", nullptr)); }, u"Target Namespace must have a value"},
      {"Element",       [] { Element(new CElement(u"e", u"urn:a", u"urn:b", u"urn:t")); }, u"Invalid namespace [urn:a]. The namespace must be one of [urn:b] where the target namespace is [urn:t]."},
      {"Elements",      [] { CSmartPtr(new CElementCol(u"urn:a", u"##local", u"urn:t")); }, u"Invalid namespace [urn:a]. The namespace must be one of [##local] where the target namespace is [urn:t]."},
      {"Attribute",     [&] { other->Add(u"id", u"1", u"urn:t"); }, u"Invalid namespace [urn:t]. The namespace must be one of [##other] where the target namespace is [urn:t]."},
      {"PartOfAList",   [&] { list->Add(u"id"); }, u"Invalid namespace [urn:a]. The namespace must be one of [urn:a urn:b] where the target namespace is []."},
      {"Tested",        [&] { element->SetNamespaceRestrictions(u"##local", u""); }, u"Invalid namespace [urn:e]. The namespace must be one of [##local] where the target namespace is []."},
      {"TestedAttribute", [&] { element->SetNamespaceRestrictions(u"urn:e", u""); }, u"Invalid namespace [urn:id]. The namespace must be one of [urn:e] where the target namespace is []."},
  };
  // clang-format on
  for (auto const& [name, operation, message] : rows) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Thrown<CKestInvalidNamespaceException>(operation), message);
  }
  EXPECT_EQ(Element(new CElement(u"e", u"##any other"))->GetNamespace(), u"##any other")
      << "only the keywords themselves are no URIs";
}

TEST(OpenContent, RefusesNamespacesFurtherDownWithAPointer) {
  for (int const depth : {2, 100'000}) {
    CSmartPtr<CElement> const root = Nested(depth, u"urn:last");
    EXPECT_NO_THROW(root->SetNamespaceRestrictions(u"##any", u""));
    try {
      root->SetNamespaceRestrictions(u"##local", u"");
      ADD_FAILURE() << "nothing was thrown";
    } catch (CKestInvalidNamespaceException const* const pointer) {
      std::unique_ptr<CKestInvalidNamespaceException const> const failure(pointer);
      EXPECT_EQ(failure->GetFullMessage(),
                u"The namespace last in the class urn:last is invalid against restriction "
                u"##local\nInvalid namespace [urn:last]. The namespace must be one of [##local] "
                u"where the target namespace is [].");
    }
  }
}

TEST(OpenContent, TakesTheNamespaceOfItsCollection) {
  // clang-format off
  struct {
    char16_t const* ns; char16_t const* restriction; char16_t const* ofAttribute; char16_t const* ofElement;
  } const rows[] = {
      {u"urn:n", u"##any",  u"urn:n", u"urn:n"},
      {u"",      u"##any",  u"",      u"##any"},  // the keyword becomes the namespace
      {u"",      u"urn:r",  u"urn:r", nullptr},
      {u"",      u"a#b c",  u"",      nullptr},
      {u"",      u"a",      u"",      nullptr},
  };
  // clang-format on
  for (auto const& [ns, restriction, ofAttribute, ofElement] : rows) {
    SCOPED_TRACE(testing::PrintToString(std::u16string(restriction)));
    CSmartPtr<CAttributeCol> const attributes(new CAttributeCol(ns, restriction, u""));
    EXPECT_EQ(attributes->Clone()->Add(u"a")->GetNamespace(), ofAttribute);
    CSmartPtr<CElementCol> const original(new CElementCol(ns, restriction, u"urn:t"));
    for (auto const& elements : {original, original->Clone()}) {
      EXPECT_EQ(elements->GetNamespace(), u"urn:t");
      if (ofElement) {
        EXPECT_EQ(elements->Add(u"e")->GetNamespace(), ofElement);
      } else {
        EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { elements->Add(u"e"); }),
                  u"A Namespace has not been set for this Collection");
      }
      elements->Add(u"e", u"urn:any");
    }
  }
}

TEST(OpenContent, KeepsTheNamespaceOfItsCollectionsThroughChanges) {
  CSmartPtr<CElement> const element(new CElement(u"e", u"urn:a", u"##any", u""));
  element->SetNamespace(u"urn:b");
  EXPECT_EQ(element->GetAttributes()->Add(u"id")->GetNamespace(), u"urn:a");
  EXPECT_EQ(element->GetChildElements()->Add(u"c")->GetNamespace(), u"urn:a");
  EXPECT_EQ(Written(*element),
            u"<AA:e xmlns:AA=\"urn:b\" xmlns:AB=\"urn:a\" AB:id=\"\">"
            u"<AB:c/></AA:e>");
}

constexpr char16_t kDocument[] =
    u"<n:a xmlns:n=\"urn:n\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    u"xsi:type=\"t\" id=\"&lt;1&gt;\">in front<b><c n:d=\"\"/></b><b>text</b> behind</n:a>";
constexpr char16_t kRewritten[] =
    u"<AA:a xmlns:AA=\"urn:n\" xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
    u"AB:type=\"t\" id=\"&lt;1&gt;\"><b><c AA:d=\"\"/></b><b>text</b>in front behind</AA:a>";

TEST(OpenContent, IsWrittenAsItWasRead) {
  CSmartPtr<CElement> const element = Read(kDocument);
  EXPECT_EQ(element->GetName(), u"a");
  EXPECT_EQ(element->GetAttributes()->Item(1)->GetValue(), u"<1>");
  EXPECT_EQ(element->GetChildElements()->Item(1)->GetText(), u"text");
  EXPECT_EQ(Written(*element), kRewritten);
  EXPECT_EQ(Written(*element->Clone()), kRewritten);

  CXmlDocument document;
  document.LoadXml(kDocument);
  element->CopyXmlElement(document.GetDocumentElement());
  EXPECT_EQ(Written(*element), kRewritten) << "what it held before is gone";
  element->FromXml(u"<a id='2'><d/></a>");
  EXPECT_EQ(element->GetAttributes()->GetCount(), 3) << "what is read joins it";
  EXPECT_EQ(element->GetChildElements()->GetCount(), 3);
}

TEST(OpenContent, ReadsTheRootOrItsFirstChild) {
  CSmartPtr<CElement> const element = Read(u"<a><b/></a>");
  EXPECT_EQ(element->GetName(), u"a");
  EXPECT_EQ(element->GetChildElements()->Item(0)->GetName(), u"b");
  CSmartPtr<CElement> const inherited = NewElement();
  inherited->FromXml(u"<a><b/></a>", kContext);
  EXPECT_EQ(inherited->GetName(), u"b");
  inherited->FromXml(u"<a/>", kContext);
  EXPECT_EQ(inherited->GetName(), u"b") << "there is no child";
  CSmartPtr<CElement> const strict(new CElement(u"s", u"urn:s"));
  strict->FromXml(u"<a xmlns='urn:other'/>");
  EXPECT_EQ(strict->GetName(), u"s") << "its restriction does not admit the element";
}

TEST(OpenContent, ReadsAttributesThatTheRestrictionAdmits) {
  CSmartPtr<CAttributeCol> const attributes(new CAttributeCol(u"", u"urn:r", u""));
  attributes->FromXml(u"<a b='1' r:c='2' xmlns:r='urn:r'/>", kContext);
  EXPECT_EQ(attributes->GetCount(), 2);
  EXPECT_EQ(Thrown<CKestInvalidNamespaceException>(
                [&] { attributes->FromXml(u"<a b='1' x:c='2' xmlns:x='urn:x'/>", kContext); }),
            u"Invalid Attribute [c]. The attributes namespace is Inappropriate.\nPath: /a");
  CSmartPtr<CAttribute> const attribute = attributes->Item(0);
  EXPECT_EQ(Thrown([&] { attribute->FromXml(u"<a/>", kContext); }),
            u"This should be done by the collection");
  attribute->SetNamespace(u"urn:x");
  attributes->Add(attribute.Get());
  EXPECT_EQ(attributes->GetCount(), 4) << "added without a test";
}

TEST(OpenContent, ReadsElementsOfOneName) {
  struct LockedCol : CElementCol {
    using CElementCol::CElementCol;
    using CElementCol::FromXmlLockElementName_Int;
  };
  CSmartPtr<LockedCol> const elements(new LockedCol(u"", u"##any", u"", 0, 1));
  CXmlDocument document;
  document.LoadXml("<a><b/><b/><b xmlns='urn:n'/><c/></a>");
  CXmlElement* const root = document.GetDocumentElement();
  CXmlElement* const next = elements->FromXmlLockElementName_Int(
      u"b", u"", root, root->GetFirstElement(), kContext, false);
  EXPECT_EQ(elements->GetCount(), 2);
  EXPECT_EQ(next->GetNamespaceURI(), u"urn:n");
  EXPECT_EQ(Thrown<CKestValidationException>([&] { Written(*elements); }),
            u"The Maximum number of [] elements allowed in this collection is 1");
}

constexpr char16_t kBlock[] = u"<a xmlns='urn:d' id='1'>t<b/></a>";

TEST(DefaultNamespace, IsWrittenInABlockWithoutAttributes) {
  EXPECT_EQ(Written(*ReadWithDeclarations(kBlock)), u"<a xmlns=\"urn:d\"><b/>t</a>");
  EXPECT_EQ(Written(*ReadWithDeclarations(kBlock)->Clone()),
            u"<a xmlns=\"urn:d\" id=\"1\"><b/>t</a>")
      << "a clone has no default namespace, only the attribute";
  CSmartPtr<CElement> const outer =
      ReadWithDeclarations(u"<o><a xmlns='urn:d'><p/><a xmlns='urn:e'/></a></o>");
  EXPECT_EQ(Written(*outer, true),
            u"<o>\n<a xmlns=\"urn:d\">\n\t<p/>\n<a xmlns=\"urn:e\"/>\n\n"
            u"</a>\n\n</o>\n");
}

TEST(DefaultNamespace, KeepsToTheLimitOnDepth) {
  std::u16string text;
  for (int i = 0; i < 8; ++i) text = u"<o><a xmlns='urn:d'>" + text + u"</a></o>";
  CSmartPtr<CElement> const element = ReadWithDeclarations(text);
  CSerializationContext context;
  context.GetLimits().SetMaxDepth(16);
  EXPECT_EQ(Written(*element, false, context), Written(*element));
  context.GetLimits().SetMaxDepth(15);
  EXPECT_EQ(Thrown([&] { Written(*element, false, context); }),
            u"The document exceeds the limit of 15 nested elements.");
}

// A writer of another format.
class NameWriter : public CXmlWriter {
 public:
  std::u16string names;
  void WriteComment(std::u16string_view) override {}
  void WriteProcessingInstruction(std::u16string_view) override {}
  void WriteRawAttributes(std::u16string_view) override {}
  void StartElement(std::u16string_view localName, std::u16string_view) override {
    names += localName;
  }
  void WriteText(std::u16string_view, ItemType, bool) override {}
  void EndElement() override {}
  void WriteAttribute(std::u16string_view localName, std::u16string_view, std::u16string_view,
                      ItemType) override {
    (names += u'@') += localName;
  }
  void WriteTypeAttribute(std::u16string_view, std::u16string_view, ItemType) override {}
  void WriteNil() override {}
};

TEST(DefaultNamespace, IsAnAttributeToOtherWriters) {
  struct Reach : Node {
    using CXmlObjectBase::ToXml_Int;
  };
  NameWriter writer;
  CSmartPtr<CElement> const element = ReadWithDeclarations(kBlock);
  Reach::ToXml_Int(element.Get(), &writer, true, u"", kContext, false);
  EXPECT_EQ(writer.names, u"a@xmlns@idb");
}

TEST(OpenContent, CopiesAnObjectByWayOfItsXml) {
  CSmartPtr<Node> const node(new Node(u"a", {}, u"urn:n"));
  node->attributes = {{u"id", u"", u"1"}};
  node->Add(u"b", u"text", u"urn:n");
  constexpr char16_t kWritten[] = u"<AA:a xmlns:AA=\"urn:n\" id=\"1\"><AA:b>text</AA:b></AA:a>";
  CSmartPtr<CElement> const plain(new CElement(node.Get(), nullptr));
  EXPECT_EQ(Written(*plain), kWritten);
  CSmartPtr<CElement> const block(new CElement(node.Get(), u"urn:n"));
  EXPECT_EQ(Written(*block), u"<a xmlns=\"urn:n\"><b>text</b></a>");

  CSmartPtr<Node> const back(new Node);
  CSerializationContext strict;  // it bounds the reading, not the writing
  strict.GetLimits().SetMaxDepth(2);
  back->FromXmlElement(plain.Get(), strict);
  EXPECT_EQ(*back, *node);
  strict.GetLimits().SetMaxDepth(1);
  EXPECT_EQ(Thrown([&] { back->FromXmlElement(plain.Get(), strict); }),
            u"The document exceeds the limit of 1 nested elements.\nPath: /AA:a");
}

TEST(DeepContent, EndsAndIsClonedWithoutRecursionAndIsNotWritten) {
  CSmartPtr<CElement> const root = Nested(100'000);
  CSmartPtr<CElement> clone = root->Clone();
  clone->GetChildElements()->Clear();
  clone = root->Clone();
  clone = nullptr;
  EXPECT_EQ(Thrown([&] { Written(*root); }),
            u"The document exceeds the limit of 1000 nested elements.");
}

TEST(DeepContent, TellsListenersOfItsEnd) {
  EventLog log;
  CSmartPtr<CElement> root = Nested(3);
  root->GetChildElements()->Item(0)->GetChildElements()->AddEventListener(&log);
  root = nullptr;
  EXPECT_EQ(log.events, (std::vector<std::string>{"-", "-!", "~"}));
}

TEST(ContextContent, IsMadeOnDemandAndSharedByCopies) {
  CSerializationContext context;
  context.GetNamespaceAliases().Add(u"p", u"urn:p");
  EXPECT_EQ(context.FindAdditionalRootAttributes(), nullptr);
  CSmartPtr<CAttributeCol> const attributes =
      static_cast<CSerializationContext const&>(context).GetAdditionalRootAttributes();
  EXPECT_EQ(context.FindAdditionalRootAttributes(), attributes);
  CSerializationContext const copy(context);
  attributes->Add(u"version", u"1", u"urn:any");
  context.GetNamespaceAliases().RemoveNamespace(u"urn:p");
  EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 1);
  EXPECT_TRUE(copy.GetNamespaceAliases().DoesNamespaceExist(u"urn:p"));
}

}  // namespace
}  // namespace KestXmlLib20
