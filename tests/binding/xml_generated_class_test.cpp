// Generated classes beyond the documents that they read: setters, the root of what is written,
// tables in their lifetime, and amounts.
#include "kestxml/binding/xml_generated_class.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "kestxml/binding/attribute.h"
#include "kestxml/binding/attribute_col.h"
#include "kestxml/document/xml_document.h"
#include "tests/model/assembled.h"
#include "tests/model/choices_and_alls.h"
#include "tests/model/outcome.h"

namespace KestModel {
namespace {

constexpr auto kElement = XmlElementType_Element;

CSmartPtr<CBox> NewBox() {
  CSmartPtr<CBox> const box(new CBox);
  box->Tag()->SetId(1);
  box->Tag()->Value().SetI4(5);
  box->Shape() = new CSquare;
  return box;
}

// clang-format off
TEST(Written, SaysWhereItFailed) {
  struct {
    char const* name; std::u16string (*write)(); char16_t const* outcome;
  } const rows[] = {
      {"Facet",     [] { CSmartPtr<CCrate> const crate(new CCrate); return Written(*crate); },
                    u"Validation: Failed to convert the element [Crate] to XML\nException: Invalid Value for Weight [0.000000]"},
      {"SetterFacet", [] { CSmartPtr<CCrate> const crate(new CCrate); crate->SetLabel(u"123456789"); return Written(*crate); },
                    u"Exception: Invalid Value for Label [123456789]."},
      {"Deep",      [] { auto const box = NewBox(); box->Tag() = new CTag; return Written(*box); },
                    u"Validation: Failed to convert the element [Box] to XML\nValidation: Failed to convert the element [Tag] to XML\n"
                    u"Exception: Failed to convert attributes to XML\nException: Invalid Type 0 to convert to string"},
      {"Mandatory", [] { auto const box = NewBox(); box->Shape() = nullptr; return Written(*box); },
                    u"Validation: Failed to convert the element [Box] to XML\nInvalidParam: The Property [Shape] is mandatory, it may not be NULL"},
      {"Nil",       [] { CSmartPtr<CTag> const tag(new CTag); tag->SetId(1); tag->SetNil(true); return Written(*tag); },
                    u"<Tag id='1' xmlns:AA=XSI AA:nil='true'/>"},
      {"NilValue",  [] { CSmartPtr<CTag> const tag(new CTag); tag->SetId(1); tag->Value().SetNil(); return Written(*tag); },
                    u"<Tag id='1' xmlns:AA=XSI AA:nil='true'/>"},
      {"NoText",    [] { CSmartPtr<CTag> const tag(new CTag); tag->SetId(1); return Written(*tag); },
                    u"Validation: Failed to convert the element [Tag] to XML\nException: Invalid Type 0 to convert to string"},
      // Under its own name the derived type needs no type attribute.
      {"OwnName",   [] { CSmartPtr<CSquare> const square(new CSquare); return Written(*square); },
                    u"<AA:Square xmlns:AA='urn:shapes'><AA:Side>0</AA:Side></AA:Square>"},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(OutcomeOf(row.write), Expand(row.outcome));
  }
}

TEST(Written, BeginsWithWhatTheContextAddsToTheRoot) {
  CSerializationContext context;
  context.GetProcessingInstructions() = {u"<?a?>", u"<?b?>"};
  context.GetNamespaceAliases().Add(u"s", kShapes);
  context.SetDefaultNamespaceURI(u"urn:d");
  context.GetAdditionalRootAttributes()->Add(u"more", u"1");
  context.SetInLineSchema(u"raw=\"<\"");
  CSmartPtr<CTag> const tag(new CTag);
  tag->SetId(1);
  tag->SetNil(true);
  EXPECT_EQ(Written(*tag, context),
            Expand(u"<?a?><?b?><Tag xmlns='urn:d' xmlns:s='urn:shapes' more='1' id='1' raw=\"<\" "
                   u"xmlns:AA=XSI AA:nil='true'/>"));
  auto const box = NewBox();
  context.SetInLineSchema(u"");
  EXPECT_EQ(Written(*box, context),
            Expand(u"<?a?><?b?><Box xmlns='urn:d' xmlns:s='urn:shapes' more='1'>"
                   u"<Tag id='1'>5</Tag><s:Square><s:Side>0</s:Side></s:Square></Box>"));
}

TEST(Choice, KeepsOneMember) {
  constexpr char16_t kAlreadySet[] =
      u"The Property [Number] is already set. Only one element within this class bay "
      u"be set at a time";
  CSmartPtr<CPick> const pick(new CPick);
  pick->SetNumber(5);
  EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { pick->SetNote(new CNote); }), kAlreadySet);
  pick->SetNote(nullptr);
  EXPECT_EQ(pick->GetSelection(), u"Number");
  EXPECT_EQ(Thrown([&] { pick->SetNumber(100); }), u"Invalid Value for Number [100]");
  EXPECT_EQ(Written(*pick), u"<Pick><Number>5</Number></Pick>");
  pick->FromXml(u"<Pick><Note/></Pick>", {});
  EXPECT_EQ(pick->GetSelection(), u"Note");
  pick->SetNote(nullptr);
  EXPECT_EQ(pick->GetSelection(), u"");

  CSmartPtr<CHeap> const heap(new CHeap);
  heap->GetNumbers()->Add(1);
  EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { heap->GetNotes()->Add(new CNote); }),
            kAlreadySet);
  heap->GetNumbers()->Clear();
  EXPECT_EQ(heap->GetSelection(), u"");
  heap->FromXml(u"<Heap><Color>red</Color></Heap>", {});
  EXPECT_EQ(heap->GetSelection(), u"Color");
}

CSmartPtr<CXmlObjectBase> MakeAllGroup(int, char16_t const*) {
  static CDesign const design(
      Class(XmlElementGroupType_All, XmlElementType_PseudoElement, u"",
            {.failIfAttributeUnknown = false}),
      {Primitive<CElementInfoAllPrimMnd>(u"A", 0), Primitive<CElementInfoAllPrimOpt>(u"B", 1)});
  return new CAssembled(design);
}

constexpr char16_t kNotInAll[] =
    u"Validation: Failed to process the element. @ /O\n"
    u"Exception: Not implemented, should never be called";

// clang-format off
TEST(Assembled, IsReadAndWritten) {
  static_assert(std::is_abstract_v<CElementInfoAllEnumCol>);
  auto const notes = [](CAssembled::Properties& p) { p[0].SetXmlCollection(new CNoteCol(u"Note", u"", 0, -1)); };
  auto const oneNote = [](CAssembled::Properties& p) {
    CSmartPtr<CNoteCol> const one(new CNoteCol(u"Note", u"", 0, -1));
    one->Add(new CNote);
    p[0].SetXmlCollection(one.Get());
  };
  auto const all = [](std::initializer_list<CElementInfo*> entries) { return CDesign(Class(XmlElementGroupType_All, kElement, u"O"), entries); };
  auto const choice = [](CElementInfo* entry) { return CDesign(Class(XmlElementGroupType_Choice, kElement, u"O"), {entry}); };
  auto const unknown = [] { return CDesign(Class(static_cast<XmlElementGroupType>(3), kElement, u"O"), {}); };
  auto const group = [] {
    return CDesign(Class(XmlElementGroupType_Sequence, kElement, u"O"),
                   {new CElementInfoSeqClsOpt(u"G", u"", 0, XmlElementType_PseudoElement, MakeAllGroup, 0), Primitive<CElementInfoSeqPrimOpt>(u"B", 1)});
  };
  AssembledCase const rows[] = {
      // Having no end tag of its own the group passes over what it does not know.
      {"AllGroup",          group(), nullptr, nullptr, u"<O><B>2</B><A>1</A><B>3</B></O>", u"<O><A>1</A><B>2</B></O>"},
      // Without its mandatory member the group counts as not found, and what it read is read again.
      {"AllGroupNotFound",  group(), nullptr, nullptr, u"<O><B>3</B></O>", u"<O><B>3</B></O>"},
      {"AllGroupBehindUnknown", group(), nullptr, UnknownElements, u"<O><X/><B>2</B><A>1</A></O>", u"<O><A>1</A><B>2</B></O>"},
      {"EmptyAll",          all({}), nullptr, nullptr, u"<O/>", u"<O/>"},
      {"EmptyAllWithChild", all({}), nullptr, nullptr, u"<O><X/></O>",
                            u"Exception: Failed read all the elements held within the element [O]. The unexpected element [X] remains unprocessed @ /O"},
      {"EmptyAllTolerant",  all({}), nullptr, UnknownElements, u"<O><X/><X/></O>", u"<O/>"},
      // A collection stays open for more, which its group can't come to terms with.
      {"AllCol",            all({new CElementInfoAllCol(u"Note", u"", 0)}), notes, nullptr, u"<O><Note/></O>", kNotInAll},
      {"AllPrimCol",        all({new CElementInfoAllPrimCol(u"Note", u"", 0)}), notes, nullptr, u"<O><Note/></O>", kNotInAll},
      {"AllUntpdCol",       all({new CElementInfoAllUntpdCol(u"Note", u"", 0)}), notes, nullptr, u"<O><Note/></O>", kNotInAll},
      {"AllClsCol",         all({new CElementInfoAllClsCol(u"Note", u"", 0, kElement)}), notes, nullptr, u"<O><Note/></O>", kNotInAll},
      {"AllAbsClsCol",      all({new CElementInfoAllAbsClsCol(u"Note", u"", 0, kElement)}), notes, nullptr, u"<O/>", kNotInAll},
      {"AllColIsWritten",   all({new CElementInfoAllClsCol(u"Note", u"", 0, kElement)}), oneNote, nullptr, nullptr, u"<O><Note/></O>"},
      {"FreeChoice",        choice(new CElementInfoChoiceClsCol(u"Note", u"", 0, kElement)), notes, nullptr, u"<O><Note/></O>", u"<O><Note/></O>"},
      {"FreeChoiceEmpty",   choice(new CElementInfoChoiceClsCol(u"Note", u"", 0, kElement)), notes, nullptr, u"<O/>", u"<O/>"},
      {"UnknownGroup",      unknown(), nullptr, nullptr, u"<O/>", u"Validation: Failed to process the element. @ /O\nException: Unknown Group Type"},
      {"UnknownGroupWritten", unknown(), nullptr, nullptr, nullptr, u"Validation: Failed to convert the element [O] to XML\nException: Unknown XML Group Type"},
  };
  // clang-format on
  ExpectOutcomes(rows);
}

// Each level names its element, and the limit of the writer is at the end of the chain.
TEST(Assembled, IsNotWrittenBeyondTheLimitOnDepth) {
  CDesign const design(new CElementInfoSeqClsOpt(u"O", u"", 0, kElement, nullptr, 0));
  CSmartPtr<CAssembled> object(new CAssembled(design));
  for (int depth = 1; depth < 3; ++depth) {
    CSmartPtr<CAssembled> const outer(new CAssembled(design));
    outer->properties[0].SetXmlObject(object.Get());
    object = outer;
  }
  CSerializationContext context;
  context.GetLimits().SetMaxDepth(3);
  EXPECT_EQ(Written(*object, context), u"<O><O><O/></O></O>");
  context.GetLimits().SetMaxDepth(2);
  EXPECT_EQ(OutcomeOf([&] { return Written(*object, context); }),
            u"Validation: Failed to convert the element [O] to XML\n"
            u"Validation: Failed to convert the element [O] to XML\n"
            u"Validation: Failed to convert the element [O] to XML\n"
            u"Exception: The document exceeds the limit of 2 nested elements.");
}

TEST(Assembled, KnowsItsElements) {
  struct CReach : CAssembled {
    using CAssembled::CAssembled;
    using CXmlGeneratedClass::IsElementInList;
  };
  CDesign const design(Primitive<CElementInfoSeqPrimOpt>(u"A", 0));
  CSmartPtr<CReach> const object(new CReach(design));
  CXmlDocument document;
  document.LoadXml("<A xmlns='urn:x'/>");
  EXPECT_FALSE(object->IsElementInList({}, document.GetDocumentElement()));
  EXPECT_TRUE(object->IsElementInList(MakeContext(AnyNamespace), document.GetDocumentElement()));
  EXPECT_FALSE(object->IsElementInList({}, nullptr));
}

// A type attribute, seen by a factory.
TEST(ClassFactory, SplitsTheTypeAtItsFirstColon) {
  struct CFactory : CClassfactoryBase {
    using CClassfactoryBase::GetElementType;
    using CClassfactoryBase::GetElementTypeNamespaceUri;
  };
  struct {
    char const *attribute, *type, *ns;
  } const rows[] = {
      {"", "", "urn:own"},
      {"x:type='T'", "T", "urn:own"},
      {"x:type='p:T'", "T", "urn:p"},
      {"x:type='q:T'", "T", "urn:own"},
      {"x:type='p:T:U'", "T:U", "urn:p"},
      {"type='p:T'", "", "urn:own"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.attribute);
    CXmlDocument document;
    document.LoadXml((std::string("<o xmlns='urn:own' xmlns:p='urn:p' "
                                  "xmlns:x='http://www.w3.org/2001/XMLSchema-instance' ") +
                      row.attribute + "/>")
                         .c_str());
    EXPECT_EQ(CFactory::GetElementType(document.GetDocumentElement()), FromUtf8(row.type));
    EXPECT_EQ(CFactory::GetElementTypeNamespaceUri(document.GetDocumentElement()),
              FromUtf8(row.ns));
  }
}

// Building the tables, reading and writing with the default context, which nothing may change.
TEST(Tables, AreSharedByThreads) {
  CSerializationContext const& context = CSerializationContext::GetDefaultContext();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 50; ++round) {
        CSmartPtr<CHeap> const heap(new CHeap);
        std::u16string const document = u"<Heap><Number>1</Number><Number>2</Number></Heap>";
        EXPECT_EQ(Outcome(*heap, document, context), document);
        CSmartPtr<CForm> const form(new CForm);
        EXPECT_NE(Outcome(*form, u"<Form/>", context), u"");
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(context.FindAdditionalRootAttributes(), nullptr);
}

double SecondsToRead(std::int32_t count) {
  CDesign const design(new CElementInfoSeqClsCol(u"Note", u"", 0, kElement));
  std::string document = "<O>";
  for (std::int32_t i = 0; i < count; ++i) document += "<Note/>";
  document += "</O>";
  CSmartPtr<CNoteCol> notes;
  CSmartPtr<CAssembled> const object(new CAssembled(design, [&](CAssembled::Properties& p) {
    notes = new CNoteCol(u"Note", u"", 0, -1);
    p[0].SetXmlCollection(notes.Get());
  }));
  auto const begin = std::chrono::steady_clock::now();
  object->FromXml(document.c_str(), {});
  std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - begin;
  EXPECT_EQ(notes->GetCount(), count);
  return seconds.count();
}

// Quadratic time would take a hundred times as much, and so would a walk for each item.
TEST(Collection, OfAMillionItemsIsReadInLinearTime) {
  double const ofFew = SecondsToRead(100'000);
  EXPECT_LT(SecondsToRead(1'000'000), 40 * ofFew + 1);
}

}  // namespace
}  // namespace KestModel
