// Choices: of single members, and of collections.
#pragma once

#include <string>

#include "tests/model/sequences.h"

namespace KestModel {

/// A member of each sort. It keeps which one is set.
class CPick : public CModelClass<CPick> {
 public:
  CPick() {
    SetElementName(u"Pick");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

  std::u16string const& GetSelection() const { return m_selection; }
  /// @throws CKestInvalidStateException when another member is set.
  void SetNumber(std::int32_t number);
  void SetNote(CNote* note);

 private:
  /// An object that is null takes its own selection back and leaves another one alone.
  void Select(char16_t const* name, KestVariant const& value);

  std::u16string m_selection;
  KestVariant m_number;
  KestVariant m_color;
  CSmartPtr<CNote> m_note;
  CSmartPtr<CShape> m_shape;
  CSmartPtr<CElement> m_other;
};

/// A collection of each sort, none of which may be empty.
class CHeap : public CModelClass<CHeap> {
 public:
  CHeap() {
    SetElementName(u"Heap");
    Init();
  }
  ~CHeap() override { Listen(false); }
  CHeap(CHeap const&) = delete;
  CHeap& operator=(CHeap const&) = delete;
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

  std::u16string const& GetSelection() const { return m_selection; }
  CSmartPtr<Ci4Col> GetNumbers() const { return m_numbers; }
  CSmartPtr<CNoteCol> GetNotes() const { return m_notes; }

 protected:
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override;

 private:
  void Listen(bool on);

  std::u16string m_selection;
  CSmartPtr<Ci4Col> m_numbers;
  CSmartPtr<CColorCol> m_colors;
  CSmartPtr<CNoteCol> m_notes;
  CSmartPtr<CShapeCol> m_shapes;
  CSmartPtr<CstringCol> m_words;
  CSmartPtr<CElementCol> m_others;
};

}  // namespace KestModel
