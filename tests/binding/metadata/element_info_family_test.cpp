// The entries of element tables one by one: what no document shows, and what no class of the model
// has.
#include "kestxml/binding/metadata/element_info_family.h"

#include <gtest/gtest.h>

#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/format_string.h"
#include "tests/model/assembled.h"
#include "tests/model/choices_and_alls.h"
#include "tests/model/outcome.h"

namespace KestModel {
namespace {

constexpr auto kElement = XmlElementType_Element;
constexpr auto kPseudo = XmlElementType_PseudoElement;
constexpr auto kGroup = static_cast<XmlElementType>(2);

using Properties = CAssembled::Properties;
using Init = void (*)(Properties&);
using MakeEntry = CElementInfo* (*)();

// clang-format off

// What the property holds at first.
Init const Note      = [](Properties& p) { p[0].SetXmlObject(new CNote(u"A")); };
Init const Leg       = [](Properties& p) { p[0].SetXmlObject(new CLeg); };
Init const Heap      = [](Properties& p) { p[0].SetXmlObject(new CHeap); };
Init const Open      = [](Properties& p) { p[0].SetXmlObject(new CElement(u"A")); };
Init const LocalOnly = [](Properties& p) { p[0].SetXmlObject(new CElement(u"A", u"", u"##local", u"")); };
Init const Two       = [](Properties& p) { p[0].SetXmlCollection(new CNoteCol(u"A", u"", 2, 2)); };  // at least and at most
Init const Elements  = [](Properties& p) { p[0].SetXmlCollection(new CElementCol(u"", u"##any", u"")); };
Init const Nil       = [](Properties& p) { p[0].SetNil(); };
Init const Letter    = [](Properties& p) { p[0].SetChar(u'c'); };
template <std::int32_t kValue>
void Number(Properties& p) { p[0].SetI4(kValue); }
// A choice that reads and yet finds nothing, since its collection stays open.
template <XmlElementType kType>
void OpenChoice(Properties& p) {
  static CDesign const design(Class(XmlElementGroupType_Choice, kType, u""), {new CElementInfoAllCol(u"A", u"", 0)});
  p[0].SetXmlObject(new CAssembled(design, Two));
}

// Factories.
using Object = CSmartPtr<CXmlObjectBase>;
Object MakeNote(int, char16_t const* name) { return new CNote(name); }
Object MakeLeg(int, char16_t const*) { return new CLeg; }
Object MakeHeap(int, char16_t const*) { return new CHeap; }
Object MakeNone(int, char16_t const*) { return nullptr; }
template <ClassFactory kMake>
Object ForElement(CXmlElement*) { return kMake(0, u"A"); }

// Entries, most with the name A.
template <typename Info>
CElementInfo* Prim() { return Primitive<Info>(u"A", 0, {.type = ItemType_i4}); }
template <typename Info>
CElementInfo* Enum() { return ColorElement<Info>(u"A", 0); }
template <typename Info, XmlElementType kType, bool kHasContent = true>
CElementInfo* ClsMnd() { return new Info(u"A", u"", 0, kType, MakeNote, 0, kHasContent); }
template <typename Info, XmlElementType kType, ClassFactory kMake, std::int32_t kIndex = 0>
CElementInfo* Cls() { return new Info(u"A", u"", kIndex, kType, kMake, 0); }
template <typename Info, XmlElementType kType, ClassFactory kMake>
CElementInfo* AbsCls() { 
  if constexpr (std::is_same_v<Info, CElementInfoAllAbsClsMnd>) return new Info(u"A", u"", 0, kType, ForElement<kMake>, 0);
  else return new Info(u"A", u"", 0, kType, ForElement<kMake>);
 }
template <typename Info>
CElementInfo* Untpd() { return new Info(u"A", u"urn:a", 0, u"##any", u""); }
template <typename Info>
CElementInfo* Other() { return new Info(u"AnyElement", u"", 0, u"##other", u""); }
template <typename Info>
CElementInfo* Col() { return new Info(u"A", u"", 0); }
CElementInfo* Bounded() {  // its default is beyond its own bound
  return Primitive<CElementInfoSeqPrimOpt>(u"A", 0, {.type = ItemType_i4, .maxInclusive = u"4", .nillable = true, .defaultValue = u"5"});
}
CElementInfo* Refused() { return Primitive<CElementInfoSeqPrimOpt>(u"A", kRefused); }
CElementInfo* Character() { return Primitive<CElementInfoSeqPrimOpt>(u"A", 0, {.type = ItemType_char}); }

// clang-format on

std::u16string Describe(KestVariant const& value) {
  switch (value.GetTypeAsEnum()) {
    case ItemType_Invalid:
      return u"unset";
    case ItemType_xmlObject:
      return value.GetXmlObject() ? u"object" : u"null";
    case ItemType_xmlCollection:
      return FormatString(u"%d", value.GetXmlCollection()->GetCount());
    default:
      return value.ToString();
  }
}

constexpr char16_t kMissing[] = u"Validation: Failed to find the required child element [A]. @ /O";
constexpr char16_t kNull[] = u"InvalidParam: The Property [A] is mandatory, it may not be NULL";

// clang-format off
struct EntryCase {
  char const* name; MakeEntry entry; Init init; XmlElementType owner; Tolerate tolerate; char16_t const* children;
  char16_t const* outcome;  ///< what was returned, the element that is then the current one, the property; or the failure
};

EntryCase const kReads[] = {
    {"Prim",                    Prim<CElementInfoSeqPrimMnd>, nullptr, kElement, nullptr, u"<A>1</A>", u"true end 1"},
    {"PrimTolerated",           Prim<CElementInfoSeqPrimMnd>, nullptr, kElement, MissingElements, u"<X/>", u"true X unset"},
    {"PrimBehindUnknown",       Prim<CElementInfoSeqPrimMnd>, nullptr, kElement, UnknownElements, u"<X/><A>1</A>", u"true end 1"},
    {"PrimBehindUnknownMissing", Prim<CElementInfoSeqPrimMnd>, nullptr, kElement, UnknownElements, u"<X/>", kMissing},
    {"PrimInGroup",             Prim<CElementInfoSeqPrimMnd>, nullptr, kPseudo, nullptr, u"<X/>", u"false X unset"},
    {"PrimInGroupTolerated",    Prim<CElementInfoSeqPrimMnd>, nullptr, kPseudo, MissingElements, u"<X/>", u"false X unset"},
    {"PrimInGroupScans",        Prim<CElementInfoSeqPrimMnd>, nullptr, kPseudo, UnknownElements, u"<X/><A>1</A>", u"true end 1"},
    {"PrimInGroupScansInVain",  Prim<CElementInfoSeqPrimMnd>, nullptr, kPseudo, UnknownElements, u"<X/>", u"false end unset"},
    {"EnumInGroupDoesNotScan",  Enum<CElementInfoSeqEnumMnd>, nullptr, kPseudo, UnknownElements, u"<X/><A>blue</A>", u"false X unset"},
    {"EnumScans",               Enum<CElementInfoSeqEnumMnd>, nullptr, kElement, UnknownElements, u"<X/><A>blue</A>", u"true end 2"},
    {"EnumTolerated",           Enum<CElementInfoSeqEnumMnd>, nullptr, kElement, MissingElements, u"<X/>", u"true X unset"},
    {"EnumMissing",             Enum<CElementInfoSeqEnumMnd>, nullptr, kElement, nullptr, u"", kMissing},

    {"ClsScans",                ClsMnd<CElementInfoSeqClsMnd, kElement>, Note, kElement, UnknownElements, u"<X/><A/><B/>", u"true B object"},
    {"ClsTolerated",            ClsMnd<CElementInfoSeqClsMnd, kElement>, Note, kElement, MissingElements, u"<X/>", u"true X object"},
    {"ClsMissing",              ClsMnd<CElementInfoSeqClsMnd, kElement>, Note, kElement, nullptr, u"<X/>", kMissing},
    {"ClsInGroup",              ClsMnd<CElementInfoSeqClsMnd, kElement>, Note, kGroup, UnknownElements, u"<X/><A/>", u"false X object"},
    {"ClsNull",                 ClsMnd<CElementInfoSeqClsMnd, kElement>, nullptr, kElement, nullptr, u"<A/>", kNull},
    {"GroupMissing",            ClsMnd<CElementInfoSeqClsMnd, kPseudo>, Leg, kElement, nullptr, u"", kMissing},
    {"GroupNotThere",           ClsMnd<CElementInfoSeqClsMnd, kPseudo>, Leg, kElement, UnknownElements, u"<X/>", kMissing},
    {"GroupMissingInGroup",     ClsMnd<CElementInfoSeqClsMnd, kPseudo>, Leg, kGroup, nullptr, u"", u"false end object"},
    {"GroupNotThereInGroup",    ClsMnd<CElementInfoSeqClsMnd, kPseudo>, Leg, kGroup, nullptr, u"<X/>", u"false X object"},
    {"GroupInGroup",            ClsMnd<CElementInfoSeqClsMnd, kPseudo>, Leg, kGroup, nullptr, u"<Rail>1</Rail><X/>", u"true X object"},
    {"FreeGroupMissing",        ClsMnd<CElementInfoSeqClsMnd, kPseudo, false>, Leg, kElement, UnknownElements, u"", u"true end object"},
    {"FreeGroupNotThere",       ClsMnd<CElementInfoSeqClsMnd, kPseudo, false>, Leg, kElement, nullptr, u"<X/>", u"true X object"},
    // The owner then steps over an element and asks again.
    {"FreeGroupBehindUnknown",  ClsMnd<CElementInfoSeqClsMnd, kPseudo, false>, Leg, kElement, UnknownElements, u"<X/>", u"false X object"},
    {"FreeGroupInGroup",        ClsMnd<CElementInfoSeqClsMnd, kPseudo, false>, Leg, kGroup, UnknownElements, u"<X/>", u"true X object"},
    {"ChoiceGroupMovesOn",      ClsMnd<CElementInfoSeqClsMnd, kPseudo, false>, OpenChoice<kPseudo>, kElement, nullptr, u"<A/><X/>", u"true X object"},
    {"ChoiceGroupGivesBack",    ClsMnd<CElementInfoSeqClsMnd, kPseudo, false>, OpenChoice<kPseudo>, kElement, UnknownElements, u"<A/><X/>", u"false A object"},
    {"OtherChoiceGroupMovesOn", ClsMnd<CElementInfoSeqClsMnd, kGroup, false>, OpenChoice<kGroup>, kElement, UnknownElements, u"<A/><X/>", u"true X object"},
    {"OptCls",                  Cls<CElementInfoSeqClsOpt, kElement, MakeNote>, nullptr, kElement, nullptr, u"<A/>", u"true end object"},
    {"OptClsNotThere",          Cls<CElementInfoSeqClsOpt, kElement, MakeNote>, nullptr, kElement, nullptr, u"<X/>", u"true X unset"},
    {"OptClsNone",              Cls<CElementInfoSeqClsOpt, kElement, MakeNone>, nullptr, kElement, nullptr, u"<A/>", u"true A unset"},
    {"OptGroupMissing",         Cls<CElementInfoSeqClsOpt, kGroup, MakeLeg>, nullptr, kElement, nullptr, u"", u"true end unset"},
    {"OptGroupNotThere",        Cls<CElementInfoSeqClsOpt, kGroup, MakeLeg>, nullptr, kElement, nullptr, u"<X/>", u"true X unset"},
    {"OptGroup",                Cls<CElementInfoSeqClsOpt, kGroup, MakeLeg>, nullptr, kElement, nullptr, u"<Rail>1</Rail>", u"true end object"},
    {"ChoiceClsNotThere",       Cls<CElementInfoChoiceClsOpt, kElement, MakeNote>, nullptr, kElement, nullptr, u"<X/>", u"false X unset"},
    {"ChoiceClsNone",           Cls<CElementInfoChoiceClsOpt, kElement, MakeNone>, nullptr, kElement, nullptr, u"<A/>", u"false A unset"},
    {"ChoiceGroupMissing",      Cls<CElementInfoChoiceClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"", u"false end unset"},
    {"ChoiceGroupTakenBack",    Cls<CElementInfoChoiceClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<X/>", u"false X null"},
    {"ChoiceGroup",             Cls<CElementInfoChoiceClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<Rail>1</Rail>", u"true end object"},
    // Of the two, the one in a choice is stored before it is read.
    {"OptClsReadFirst",         Cls<CElementInfoSeqClsOpt, kElement, MakeNote, kRefused>, nullptr, kElement, nullptr, u"<A lang='EN'/>",
                                u"Exception: Failed to set the property value [EN]. @ /O/A/@lang\nException: Invalid Value for lang [EN]."},
    {"OptClsRefused",           Cls<CElementInfoSeqClsOpt, kElement, MakeNote, kRefused>, nullptr, kElement, nullptr, u"<A/>",
                                u"Validation: Failed to set the property value. @ /O/A\nException: refused"},
    {"ChoiceClsStoredFirst",    Cls<CElementInfoChoiceClsOpt, kElement, MakeNote, kRefused>, nullptr, kElement, nullptr, u"<A lang='EN'/>",
                                u"Validation: Failed to set the property value. @ /O/A\nException: refused"},
    // Only a choice tells its member that it may be empty.
    {"ChoiceMayBeEmptyInChoice", Cls<CElementInfoChoiceClsOpt, kElement, MakeHeap>, nullptr, kElement, nullptr, u"<A/>", u"true end object"},
    {"ChoiceMayNotBeEmpty",     Cls<CElementInfoSeqClsOpt, kElement, MakeHeap>, nullptr, kElement, nullptr, u"<A/>",
                                u"Exception: No child elements within the element [A] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements @ /O/A"},
    {"AllGroup",                ClsMnd<CElementInfoAllClsMnd, kPseudo>, Leg, kElement, nullptr, u"<Rail>1</Rail>", u"true end object"},
    {"AllGroupNotThere",        ClsMnd<CElementInfoAllClsMnd, kPseudo>, Leg, kElement, nullptr, u"<X/>", u"false X object"},
    {"AllGroupMissing",         ClsMnd<CElementInfoAllClsMnd, kPseudo>, Leg, kElement, nullptr, u"", u"false end object"},
    {"AllOptGroup",             Cls<CElementInfoAllClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<Rail>1</Rail>", u"true end object"},
    {"AllOptGroupNotThere",     Cls<CElementInfoAllClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<X/>", u"false X unset"},
    {"AllOptGroupMissing",      Cls<CElementInfoAllClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"", u"false end unset"},
    {"AllOptNone",              Cls<CElementInfoAllClsOpt, kElement, MakeNone>, nullptr, kElement, nullptr, u"<A/>", u"false A unset"},

    {"AbsClsInGroup",           AbsCls<CElementInfoSeqAbsClsMnd, kElement, MakeNote>, nullptr, kPseudo, nullptr, u"<X/>", u"false X unset"},
    {"AbsClsNoneInGroup",       AbsCls<CElementInfoSeqAbsClsMnd, kElement, MakeNone>, nullptr, kPseudo, nullptr, u"<A/>", u"false A unset"},
    {"AllAbsGroup",             AbsCls<CElementInfoAllAbsClsMnd, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<Rail>1</Rail>", u"true end object"},
    {"AllAbsGroupNotThere",     AbsCls<CElementInfoAllAbsClsMnd, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<X/>", u"false X unset"},
    {"AllAbsGroupNone",         AbsCls<CElementInfoAllAbsClsMnd, kPseudo, MakeNone>, nullptr, kElement, nullptr, u"<X/>", u"false X unset"},
    {"AllAbsOptGroup",          AbsCls<CElementInfoAllAbsClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"<Rail>1</Rail>", u"true end object"},
    {"AllAbsOptGroupMissing",   AbsCls<CElementInfoAllAbsClsOpt, kPseudo, MakeLeg>, nullptr, kElement, nullptr, u"", u"false end unset"},

    {"UntpdMissingInGroup",     Untpd<CElementInfoSeqUntpdMnd>, Open, kPseudo, nullptr, u"", kMissing},
    {"UntpdNotThereInGroup",    Untpd<CElementInfoSeqUntpdMnd>, Open, kPseudo, nullptr, u"<X/>", u"false X object"},
    {"UntpdAny",                Other<CElementInfoSeqUntpdMnd>, Open, kElement, nullptr, u"<X/>", u"true end object"},
    {"UntpdNull",               Untpd<CElementInfoSeqUntpdMnd>, nullptr, kElement, nullptr, u"<A/>", kNull},
    {"UntpdElsewhere",          Untpd<CElementInfoSeqUntpdMnd>, LocalOnly, kElement, nullptr, u"<A xmlns='urn:x'/>",
                                u"Validation: Failed to find the required element from namespace [urn:a]. @ /O"},
    {"UntpdOptMissing",         Untpd<CElementInfoSeqUntpdOpt>, nullptr, kElement, nullptr, u"", u"true end unset"},
    {"UntpdOptNotThere",        Untpd<CElementInfoSeqUntpdOpt>, nullptr, kElement, nullptr, u"<X/>", u"true X unset"},
    {"UntpdOptNotOther",        Other<CElementInfoSeqUntpdOpt>, nullptr, kElement, nullptr, u"<X/>", u"true X unset"},
    {"UntpdOptOther",           Other<CElementInfoSeqUntpdOpt>, nullptr, kElement, nullptr, u"<X xmlns='urn:x'/>", u"true end object"},
    {"ChoiceUntpdMissing",      Untpd<CElementInfoChoiceUntpdOpt>, nullptr, kElement, nullptr, u"", u"false end unset"},
    {"ChoiceUntpdTakenBack",    Untpd<CElementInfoChoiceUntpdOpt>, nullptr, kElement, nullptr, u"<X/>", u"false X null"},
    {"AllUntpdMissing",         Untpd<CElementInfoAllUntpdMnd>, Open, kElement, nullptr, u"", u"false end object"},
    {"AllUntpdNotThere",        Untpd<CElementInfoAllUntpdMnd>, Open, kElement, nullptr, u"<X/>", u"false X object"},
    {"AllUntpdOptMissing",      Untpd<CElementInfoAllUntpdOpt>, nullptr, kElement, nullptr, u"", u"false end unset"},
    {"AllUntpdOptNotThere",     Untpd<CElementInfoAllUntpdOpt>, nullptr, kElement, nullptr, u"<X/>", u"false X unset"},

    {"ColTooFew",               Col<CElementInfoSeqCol>, Two, kElement, nullptr, u"<A/><X/>", u"Validation: The Minimum number of [A] elements allowed in this collection is 2"},
    {"ColTooFewInGroup",        Col<CElementInfoSeqCol>, Two, kGroup, nullptr, u"<A/><X/>", u"false X 1"},
    {"ColTooFewTolerated",      Col<CElementInfoSeqCol>, Two, kGroup, AnyCount, u"<A/><X/>", u"true X 1"},
    {"ColNull",                 Col<CElementInfoSeqCol>, nullptr, kElement, nullptr, u"<A/>", kNull},
    {"ChoiceColTooFew",         Col<CElementInfoChoiceCol>, Two, kElement, nullptr, u"<A/><X/>", u"Validation: The Minimum number of [A] elements allowed in this collection is 2"},
    {"ChoiceColTooFewInGroup",  Col<CElementInfoChoiceCol>, Two, kGroup, nullptr, u"<A/><X/>", u"false A 1"},
    {"ChoiceColInGroup",        Col<CElementInfoChoiceCol>, Two, kGroup, nullptr, u"<A/><A/><X/>", u"true X 2"},
    {"ChoiceColNotThere",       Col<CElementInfoChoiceCol>, Two, kElement, nullptr, u"<X/>", u"false X 0"},
    {"AllColStaysOpen",         Col<CElementInfoAllCol>, Two, kElement, nullptr, u"<A/><X/>", u"false X 1"},
    {"UntpdColOfOneNamespace",  Col<CElementInfoSeqUntpdCol>, Elements, kElement, nullptr, u"<A xmlns='urn:a'/><A xmlns='urn:a'/><A/>", u"true A 2"},
    {"UntpdColMissing",         Col<CElementInfoSeqUntpdCol>, Elements, kElement, nullptr, u"", u"true end 0"},
    {"ChoiceUntpdColMissing",   Col<CElementInfoChoiceUntpdCol>, Elements, kElement, nullptr, u"", u"false end 0"},
    {"UntpdColOfOtherObjects",  Col<CElementInfoSeqUntpdCol>, Two, kElement, nullptr, u"<A/>", u"Exception: Serialization Data Error : The collection should be a CElementCol, it was not!"},
};
// clang-format on

TEST(ElementInfo, ReadsOrLeavesTheCurrentElement) {
  for (auto const& row : kReads) {
    SCOPED_TRACE(row.name);
    CDesign const design(Class(XmlElementGroupType_Sequence, row.owner, u"O"), {row.entry()});
    CSmartPtr<CAssembled> const owner(new CAssembled(design, row.init));
    CXmlDocument document;
    document.LoadXml((u"<O>" + std::u16string(row.children) + u"</O>").c_str());
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* current = root->GetFirstElement();
    auto const read = [&] {
      bool const result = design.GetTables().elements[0]->ElementFromXml(
          MakeContext(row.tolerate), owner.Get(), root, &current, u"", row.owner);
      return (result ? u"true " : u"false ") +
             (current ? std::u16string(current->GetLocalName()) : u"end") + u" " +
             Describe(owner->properties[0]);
    };
    EXPECT_EQ(OutcomeOf(read), row.outcome);
  }
}

// clang-format off
TEST(ElementInfo, ValidatesAtTheEndOfAnAllGroup) {
  constexpr char16_t kNotFound[] = u"Validation: Failed to find the mandatory element [A].";
  constexpr char16_t kNever[] = u"Exception: Not implemented, should never be called";
  struct {
    char const* name; MakeEntry entry; char16_t const* inElement; char16_t const* inGroup;
  } const rows[] = {
      {"Prim",           Prim<CElementInfoAllPrimMnd>, kNotFound, u"false"},
      {"Enum",           Enum<CElementInfoAllEnumMnd>, kNotFound, u"false"},
      {"AbsCls",         AbsCls<CElementInfoAllAbsClsMnd, kElement, MakeNote>, kNotFound, u"false"},
      {"Untpd",          Untpd<CElementInfoAllUntpdMnd>, kNotFound, u"false"},
      {"Cls",            ClsMnd<CElementInfoAllClsMnd, kElement>, kNotFound, u"false"},
      {"ClsWithoutContent", ClsMnd<CElementInfoAllClsMnd, kElement, false>, u"true", u"false"},
      {"GroupWithoutContent", ClsMnd<CElementInfoAllClsMnd, kGroup, false>, u"true", u"false"},
      {"PseudoWithoutContent", ClsMnd<CElementInfoAllClsMnd, kPseudo, false>, kNotFound, u"false"},
      {"PrimOpt",        Prim<CElementInfoAllPrimOpt>, u"true", u"true"},
      {"EnumOpt",        Enum<CElementInfoAllEnumOpt>, u"true", u"true"},
      {"ClsOpt",         Cls<CElementInfoAllClsOpt, kElement, MakeNote>, u"true", u"true"},
      {"AbsClsOpt",      AbsCls<CElementInfoAllAbsClsOpt, kElement, MakeNote>, u"true", u"true"},
      {"UntpdOpt",       Untpd<CElementInfoAllUntpdOpt>, u"true", u"true"},
      {"Col",            Col<CElementInfoAllCol>, kNever, kNever},
      {"Sequence",       Prim<CElementInfoSeqPrimMnd>, kNever, kNever},
      {"Choice",         Prim<CElementInfoChoicePrimOpt>, kNever, kNever},
  };
  // clang-format on
  CSerializationContext const context = MakeContext(MissingElements);
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    std::unique_ptr<CElementInfo> const entry(row.entry());
    for (bool const inElement : {true, false}) {
      auto const validate = [&]() -> std::u16string {
        return entry->Validate(context, nullptr, false, inElement) ? u"true" : u"false";
      };
      EXPECT_EQ(OutcomeOf(validate), inElement ? row.inElement : row.inGroup);
    }
  }
}

std::u16string NotWritten(std::u16string const& failure) {
  return u"Validation: Failed to convert the element [O] to XML\n" + failure;
}
std::u16string NotSet(std::u16string const& failure) {
  return u"Exception: Failed to set the property value. @ /O/A\nException: " + failure;
}
CElementInfo* Facet(Simple const& simple) {
  return Primitive<CElementInfoSeqPrimMnd>(u"A", 0, simple);
}

Init const TwoNotes = [](Properties& p) {
  CSmartPtr<CNoteCol> const notes(new CNoteCol(u"A", u"", 0, 1));
  notes->Add(new CNote);
  notes->Add(new CNote);
  p[0].SetXmlCollection(notes.Get());
};

// clang-format off
TEST(ElementInfo, WritesItsProperty) {
  AssembledCase const rows[] = {
      {"PrimMnd",          Prim<CElementInfoSeqPrimMnd>(), nullptr, nullptr, nullptr, NotWritten(kNull)},
      {"EnumMnd",          Enum<CElementInfoAllEnumMnd>(), nullptr, nullptr, nullptr, NotWritten(kNull)},
      {"ClsMnd",           ClsMnd<CElementInfoSeqClsMnd, kElement>(), nullptr, nullptr, nullptr, NotWritten(kNull)},
      {"AbsClsMnd",        AbsCls<CElementInfoAllAbsClsMnd, kElement, MakeNote>(), nullptr, nullptr, nullptr, NotWritten(kNull)},
      {"UntpdMnd",         Untpd<CElementInfoSeqUntpdMnd>(), nullptr, nullptr, nullptr, NotWritten(kNull)},
      {"SeqCol",           Col<CElementInfoSeqCol>(), nullptr, nullptr, nullptr, NotWritten(kNull)},
      {"ChoiceCol",        Col<CElementInfoChoiceCol>(), nullptr, nullptr, nullptr, u"<O/>"},
      {"PrimOpt",          Prim<CElementInfoAllPrimOpt>(), nullptr, nullptr, nullptr, u"<O/>"},
      {"EnumOpt",          Enum<CElementInfoSeqEnumOpt>(), nullptr, nullptr, nullptr, u"<O/>"},
      {"ClsOpt",           Cls<CElementInfoAllClsOpt, kElement, MakeNote>(), nullptr, nullptr, nullptr, u"<O/>"},
      {"UntpdOpt",         Untpd<CElementInfoSeqUntpdOpt>(), nullptr, nullptr, nullptr, u"<O/>"},
      {"Refused",          Refused(), nullptr, nullptr, nullptr, NotWritten(u"Validation: Failed to get the property value for [A].\nException: refused")},
      {"Nil",              Bounded(), Nil, nullptr, nullptr, u"<O><A xmlns:AA=XSI AA:nil='true'/></O>"},
      {"EnumNil",          Enum<CElementInfoSeqEnumMnd>(), Nil, nullptr, nullptr, u"<O><A xmlns:AA=XSI AA:nil='true'/></O>"},
      {"Default",          Bounded(), Number<5>, nullptr, nullptr, u"<O><A/></O>"},
      {"Bound",            Bounded(), Number<4>, nullptr, nullptr, u"<O><A>4</A></O>"},
      {"BeyondBound",      Bounded(), Number<6>, nullptr, nullptr, NotWritten(u"Exception: Invalid Value for A [6]")},
      {"NoColor",          Enum<CElementInfoSeqEnumMnd>(), Number<7>, nullptr, nullptr, NotWritten(u"InvalidValue: Invalid Color [7]")},
      {"Character",        Character(), Letter, nullptr, nullptr, NotWritten(u"InvalidValue: Unknown type [char].")},
      {"TooMany",          Col<CElementInfoSeqCol>(), TwoNotes, nullptr, nullptr, NotWritten(u"Validation: The Maximum number of [A] elements allowed in this collection is 1")},
      {"TooManyInAll",     Col<CElementInfoAllCol>(), TwoNotes, nullptr, nullptr, NotWritten(u"Validation: The Maximum number of [A] elements allowed in this collection is 1")},
      {"TooManyTolerated", Col<CElementInfoSeqCol>(), TwoNotes, AnyCount, nullptr, u"<O><Note/><Note/></O>"},
      {"TooManyInChoice",  Col<CElementInfoChoiceCol>(), TwoNotes, nullptr, nullptr, u"<O><Note/><Note/></O>"},
      {"NoMemberInChoice", Cls<CElementInfoChoiceClsOpt, kElement, MakeHeap>(), Heap, nullptr, nullptr, u"<O><Heap/></O>"},
      {"NoMember",         Cls<CElementInfoSeqClsOpt, kElement, MakeHeap>(), Heap, nullptr, nullptr, NotWritten(u"Validation: Failed to convert the element [Heap] to XML\nValidation: This element is a choice, and as such must have at one (and only one) valid item, currently there are none set")},
      {"NoMemberTolerated", Cls<CElementInfoSeqClsOpt, kElement, MakeHeap>(), Heap, MissingChoice, nullptr, u"<O><Heap/></O>"},
  };
  ExpectOutcomes(rows);
}

TEST(ElementInfo, ReportsTheFacetThatAValueViolates) {
  AssembledCase const rows[] = {
      {"Length",           Facet({.maxLength = 1}), nullptr, nullptr, u"<O><A>aa</A></O>", NotSet(u"Invalid Value for A [aa].")},
      {"Pattern",          Facet({.pattern = u"[a-z]+"}), nullptr, nullptr, u"<O><A>A</A></O>", NotSet(u"Invalid Value for A [A].")},
      {"NoPattern",        Facet({.pattern = u"("}), nullptr, nullptr, u"<O><A>a</A></O>", NotSet(u"Invalid Regular Expression: a Error: 'missing closing parenthesis'\nInvalid Value for A [a].")},
      {"Bound",            Facet({.type = ItemType_ui1, .minInclusive = u"2"}), nullptr, nullptr, u"<O><A>1</A></O>", NotSet(u"Invalid Value for A [1]")},
      {"LongBound",        Facet({.type = ItemType_i8, .maxInclusive = u"2"}), nullptr, nullptr, u"<O><A>3</A></O>", NotSet(u"Invalid Value for A [3].")},
      {"NoBound",          Facet({.type = ItemType_i4, .maxInclusive = u"x"}), nullptr, nullptr, u"<O><A>1</A></O>", NotSet(u"The value [x] can not be converted to a i4\nInvalid Value for A [1].")},
      {"RealBound",        Facet({.type = ItemType_r4, .minExclusive = u"2"}), nullptr, nullptr, u"<O><A>2</A></O>", NotSet(u"Invalid Value for A [2.000000]")},
      {"Bytes",            Facet({.type = ItemType_hexBinary, .maxLength = 1}), nullptr, nullptr, u"<O><A>0a0b</A></O>", NotSet(u"Invalid Value for A [0A0B].")},
      // A default is taken as if it had been read.
      {"Default",          Bounded(), nullptr, nullptr, u"<O><A/></O>", NotSet(u"Invalid Value for A [5]")},
  };
  ExpectOutcomes(rows);
}
// clang-format on

TEST(ElementInfo, ChecksOnlyPrimitives) {
  std::unique_ptr<CElementInfo> const entry(Enum<CElementInfoSeqEnumMnd>());
  KestVariant value;
  value.SetI4(1);
  EXPECT_EQ(Thrown([&] { entry->CheckRestriction(value); }),
            u"Cannot CheckRestriction for type: i4");
}

TEST(ElementInfo, FindsANamespaceForAWildcard) {
  struct Reach : CElementInfoSeqUntpdOpt {
    using CElementInfo::GetAnyDefaultNamespace;
  };
  struct {
    char16_t const *restriction, *defaultNamespace, *result;
  } const rows[] = {
      {u"##any", u"urn:d", u"urn:d"},
      {u"##other", u"urn:d", u""},
      {u"##other", u"", u"DefaultNamespace"},
      {u"##local", u"urn:d", u""},
      {u"##targetNamespace", u"urn:d", u"urn:t"},
      {u"##targetNamespace ##local", u"urn:d", u"urn:t"},
      {u"##Any", u"urn:d", u""},
      {u"urn:a urn:b", u"urn:d", u""},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(Reach::GetAnyDefaultNamespace(row.restriction, row.defaultNamespace, u"urn:t"),
              row.result)
        << ToUtf8(row.restriction);
  }
}

}  // namespace
}  // namespace KestModel
