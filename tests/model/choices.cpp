#include "tests/model/choices.h"

#include <iterator>

namespace KestModel {

namespace {

constexpr char16_t const* kMembers[] = {u"Number", u"Color", u"Note", u"Shape", u"Other"};
constexpr char16_t const* kCollections[] = {u"Number", u"Color", u"Note",
                                            u"Shape",  u"Word",  u"Other"};

}  // namespace

Tables CPick::BuildTables() {
  return {Class(XmlElementGroupType_Choice, XmlElementType_Element, u"Pick"),
          Table<CElementInfo>(
              {Primitive<CElementInfoChoicePrimOpt>(
                   u"Number", 0, {.type = ItemType_i4, .maxInclusive = u"99", .nillable = true}),
               ColorElement<CElementInfoChoiceEnumOpt>(u"Color", 1),
               new CElementInfoChoiceClsOpt(u"Note", u"", 2, XmlElementType_Element,
                                            CModelFactory::Create, CModelFactory::ClassId_Note),
               new CElementInfoChoiceAbsClsOpt(u"Shape", kShapes, 3, XmlElementType_Element,
                                               CModelFactory::CreateShape),
               new CElementInfoChoiceUntpdOpt(u"Other", u"", 4, u"##any", u"")}),
          Table<CAttributeInfo>({})};
}

void CPick::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  if (!read) Select(kMembers[propertyIndex], value);
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_number, read, value);
    case 1: return Exchange(m_color, read, value);
    case 2: return Exchange(m_note, read, value);
    case 3: return Exchange(m_shape, read, value);
    case 4: return Exchange(m_other, read, value);
  }
  // clang-format on
}

void CPick::Init() {
  m_selection.clear();
  m_number.Clear();
  m_color.Clear();
  m_note = nullptr;
  m_shape = nullptr;
  m_other = nullptr;
}

void CPick::SetNumber(std::int32_t number) {
  KestVariant value;
  value.SetI4(number);
  GetClassElementInfo()[0]->CheckRestriction(value);
  AccessProperty(0, false, value);
}

void CPick::SetNote(CNote* note) {
  KestVariant value;
  value.SetXmlObject(note);
  AccessProperty(2, false, value);
}

void CPick::Select(char16_t const* name, KestVariant const& value) {
  bool const isObject = value.GetTypeAsEnum() == ItemType_xmlObject;
  CXmlObjectBase* const object = isObject ? value.GetXmlObject().Get() : this;
  if (object || m_selection == name) Choice_SelectElement(name, object, m_selection);
}

Tables CHeap::BuildTables() {
  return {Class(XmlElementGroupType_Choice, XmlElementType_Element, u"Heap"),
          Table<CElementInfo>(
              {new CElementInfoChoicePrimCol(u"Number", u"", 0),
               new CElementInfoChoiceEnumCol(u"Color", u"", 1),
               new CElementInfoChoiceClsCol(u"Note", u"", 2, XmlElementType_Element),
               new CElementInfoChoiceAbsClsCol(u"Shape", kShapes, 3, XmlElementType_Element),
               new CElementInfoChoiceCol(u"Word", u"", 4),
               new CElementInfoChoiceUntpdCol(u"Other", u"", 5)}),
          Table<CAttributeInfo>({})};
}

void CHeap::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_numbers, read, value);
    case 1: return Exchange(m_colors, read, value);
    case 2: return Exchange(m_notes, read, value);
    case 3: return Exchange(m_shapes, read, value);
    case 4: return Exchange(m_words, read, value);
    case 5: return Exchange(m_others, read, value);
  }
  // clang-format on
}

void CHeap::Init() {
  Listen(false);
  m_selection.clear();
  m_numbers = ValueCol<Ci4Col>(u"Number", 2, 3);
  m_colors = new CColorCol(u"Color", u"", 1, -1);
  m_notes = new CNoteCol(u"Note", u"", 1, -1);
  m_shapes = new CShapeCol(u"Shape", kShapes, 1, -1);
  m_words = ValueCol<CstringCol>(u"Word", 1, -1);
  m_others = new CElementCol(u"", u"##any", u"", 1, -1);
  Listen(true);
}

void CHeap::Listen(bool on) {
  CXmlCollectionBase* const collections[] = {m_numbers.Get(), m_colors.Get(), m_notes.Get(),
                                             m_shapes.Get(),  m_words.Get(),  m_others.Get()};
  for (auto* const collection : collections) {
    if (collection && on) collection->AddEventListener(this);
    if (collection && !on) collection->RemoveEventListener(this);
  }
}

void CHeap::OnEvent(CXmlObjectBase* sender, MsgType type, void*) {
  if (type != MsgType_CollectionChange) return;
  for (std::int32_t index = 0; index < std::ssize(kCollections); ++index) {
    KestVariant value;
    AccessProperty(index, true, value);
    auto const collection = value.GetXmlCollection();
    if (collection.Get() != sender) continue;
    Choice_CollectionChanged(kCollections[index], collection->GetCount(), m_selection);
  }
}

}  // namespace KestModel
