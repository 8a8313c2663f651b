// Choices, of single members and of collections, and an all group.
#pragma once

#include <iterator>
#include <string>

#include "tests/model/sequences.h"

namespace KestModel {

// clang-format off

/// A choice with a member of each sort. It keeps which one is set.
class CPick : public CModelClass<CPick> {
 public:
  CPick() : CModelClass(u"Pick") { Init(); }
  std::u16string const& GetSelection() const { return m_selection; }

  // They throw CKestInvalidStateException when another member is set.
  void SetNumber(std::int32_t number) {
    KestVariant value;
    value.SetI4(number);
    GetClassElementInfo()[0]->CheckRestriction(value);
    AccessProperty(0, false, value);
  }
  void SetNote(CNote* note) {
    KestVariant value;
    value.SetXmlObject(note);
    AccessProperty(2, false, value);
  }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Choice, XmlElementType_Element, u"Pick"),
            Table<CElementInfo>({
                Primitive<CElementInfoChoicePrimOpt>(u"Number", 0, {.type = ItemType_i4, .maxInclusive = u"99", .nillable = true}),
                ColorElement<CElementInfoChoiceEnumOpt>(u"Color", 1),
                new CElementInfoChoiceClsOpt(u"Note", u"", 2, XmlElementType_Element, CModelFactory::Create, CModelFactory::ClassId_Note),
                new CElementInfoChoiceAbsClsOpt(u"Shape", kShapes, 3, XmlElementType_Element, CModelFactory::CreateShape),
                new CElementInfoChoiceUntpdOpt(u"Other", u"", 4, u"##any", u"")}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    constexpr char16_t const* kNames[] = {u"Number", u"Color", u"Note", u"Shape", u"Other"};
    if (!read) Select(kNames[propertyIndex], value);
    switch (propertyIndex) {
      case 0: return Exchange(m_number, read, value);
      case 1: return Exchange(m_color, read, value);
      case 2: return Exchange(m_note, read, value);
      case 3: return Exchange(m_shape, read, value);
      case 4: return Exchange(m_other, read, value);
    }
  }
  void Init() override { Reset(m_selection, m_number, m_color, m_note, m_shape, m_other); }

 private:
  /// An object that is null takes its own selection back and leaves another one alone.
  void Select(char16_t const* name, KestVariant const& value) {
    bool const isObject = value.GetTypeAsEnum() == ItemType_xmlObject;
    CXmlObjectBase* const object = isObject ? value.GetXmlObject().Get() : this;
    if (object || m_selection == name) Choice_SelectElement(name, object, m_selection);
  }

  std::u16string m_selection;
  KestVariant m_number, m_color;
  CSmartPtr<CNote> m_note;
  CSmartPtr<CShape> m_shape;
  CSmartPtr<CElement> m_other;
};

/// A choice with a collection of each sort, none of which may be empty.
class CHeap : public CModelClass<CHeap> {
 public:
  CHeap() : CModelClass(u"Heap") { Init(); }
  ~CHeap() override { Listen(false); }
  CHeap(CHeap const&) = delete;
  CHeap& operator=(CHeap const&) = delete;
  std::u16string const& GetSelection() const { return m_selection; }
  CSmartPtr<Ci4Col> GetNumbers() const { return m_numbers; }
  CSmartPtr<CNoteCol> GetNotes() const { return m_notes; }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Choice, XmlElementType_Element, u"Heap"),
            Table<CElementInfo>({
                new CElementInfoChoicePrimCol(u"Number", u"", 0),
                new CElementInfoChoiceEnumCol(u"Color", u"", 1),
                new CElementInfoChoiceClsCol(u"Note", u"", 2, XmlElementType_Element),
                new CElementInfoChoiceAbsClsCol(u"Shape", kShapes, 3, XmlElementType_Element),
                new CElementInfoChoiceCol(u"Word", u"", 4),
                new CElementInfoChoiceUntpdCol(u"Other", u"", 5)}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_numbers, read, value);
      case 1: return Exchange(m_colors, read, value);
      case 2: return Exchange(m_notes, read, value);
      case 3: return Exchange(m_shapes, read, value);
      case 4: return Exchange(m_words, read, value);
      case 5: return Exchange(m_others, read, value);
    }
  }
  void Init() override {
    Listen(false);
    Reset(m_selection);
    m_numbers = ValueCol<Ci4Col>(u"Number", 2, 3);
    m_colors = new CColorCol(u"Color", 1, -1);
    m_notes = new CNoteCol(u"Note", u"", 1, -1);
    m_shapes = new CShapeCol(u"Shape", kShapes, 1, -1);
    m_words = ValueCol<CstringCol>(u"Word", 1, -1);
    m_others = new CElementCol(u"", u"##any", u"", 1, -1);
    Listen(true);
  }

 protected:
  void OnEvent(CXmlObjectBase* sender, MsgType type, void*) override {
    constexpr char16_t const* kNames[] = {u"Number", u"Color", u"Note", u"Shape", u"Word", u"Other"};
    auto const changed = [&](int i, CXmlCollectionBase* collection) {
      if (sender == collection) Choice_CollectionChanged(kNames[i], collection->GetCount(), m_selection);
    };
    if (type == MsgType_CollectionChange) ForEachCollection(changed);
  }

 private:
  template <typename Act>
  void ForEachCollection(Act act) {
    CXmlCollectionBase* const all[] = {m_numbers.Get(), m_colors.Get(), m_notes.Get(), m_shapes.Get(), m_words.Get(), m_others.Get()};
    for (int i = 0; i < std::ssize(all); ++i) act(i, all[i]);
  }
  void Listen(bool on) {
    ForEachCollection([&](int, CXmlCollectionBase* collection) {
      if (!collection) return;
      on ? collection->AddEventListener(this) : collection->RemoveEventListener(this);
    });
  }

  std::u16string m_selection;
  CSmartPtr<Ci4Col> m_numbers;
  CSmartPtr<CColorCol> m_colors;
  CSmartPtr<CNoteCol> m_notes;
  CSmartPtr<CShapeCol> m_shapes;
  CSmartPtr<CstringCol> m_words;
  CSmartPtr<CElementCol> m_others;
};

/// An all group with a member of each sort.
class CForm : public CModelClass<CForm> {
 public:
  CForm() : CModelClass(u"Form") { Init(); }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_All, XmlElementType_Element, u"Form"),
            Table<CElementInfo>({
                Primitive<CElementInfoAllPrimMnd>(u"Number", 0, {.type = ItemType_i4}),
                Primitive<CElementInfoAllPrimOpt>(u"Text", 1),
                ColorElement<CElementInfoAllEnumMnd>(u"Color", 2),
                ColorElement<CElementInfoAllEnumOpt>(u"Lining", 3),
                new CElementInfoAllClsMnd(u"Tag", u"", 4, XmlElementType_Element, nullptr, -1, true),
                new CElementInfoAllClsOpt(u"Note", u"", 5, XmlElementType_Element, CModelFactory::Create, CModelFactory::ClassId_Note),
                new CElementInfoAllAbsClsMnd(u"Shape", kShapes, 6, XmlElementType_Element, CModelFactory::CreateShape, 0),
                new CElementInfoAllAbsClsOpt(u"Inner", kShapes, 7, XmlElementType_Element, CModelFactory::CreateShape),
                new CElementInfoAllUntpdMnd(u"Head", u"", 8, u"##any", u""),
                new CElementInfoAllUntpdOpt(u"Foot", u"", 9, u"##any", u"")}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_number, read, value);
      case 1: return Exchange(m_text, read, value);
      case 2: return Exchange(m_color, read, value);
      case 3: return Exchange(m_lining, read, value);
      case 4: return Exchange(m_tag, read, value);
      case 5: return Exchange(m_note, read, value);
      case 6: return Exchange(m_shape, read, value);
      case 7: return Exchange(m_inner, read, value);
      case 8: return Exchange(m_head, read, value);
      case 9: return Exchange(m_foot, read, value);
    }
  }
  void Init() override {
    Reset(m_number, m_text, m_color, m_lining, m_note, m_shape, m_inner, m_foot);
    m_tag = new CTag;
    m_head = new CElement(u"Head");
  }

 private:
  std::int32_t m_number = 0;
  KestVariant m_text;
  std::int32_t m_color = Color_red;
  KestVariant m_lining;
  CSmartPtr<CTag> m_tag;
  CSmartPtr<CNote> m_note;
  CSmartPtr<CShape> m_shape, m_inner;
  CSmartPtr<CElement> m_head, m_foot;
};

// clang-format on

}  // namespace KestModel
