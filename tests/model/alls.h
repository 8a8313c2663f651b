// All groups: of single members, and the collections that can't be read in one.
#pragma once

#include "tests/model/sequences.h"

namespace KestModel {

/// A member of each sort.
class CForm : public CModelClass<CForm> {
 public:
  CForm() {
    SetElementName(u"Form");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  std::int32_t m_number = 0;
  KestVariant m_text;
  KestVariant m_color;
  KestVariant m_lining;
  CSmartPtr<CTag> m_tag;
  CSmartPtr<CNote> m_note;
  CSmartPtr<CShape> m_shape;
  CSmartPtr<CShape> m_inner;
  CSmartPtr<CElement> m_head;
  CSmartPtr<CElement> m_foot;
};

/// A collection in an all group, described by @p Info.
template <typename Info, typename Col>
class CStack : public CModelClass<CStack<Info, Col>> {
 public:
  CStack() {
    this->SetElementName(u"Stack");
    Init();
  }
  static Tables BuildTables() {
    CElementInfo* entry;
    if constexpr (std::is_constructible_v<Info, char16_t const*, char16_t const*, std::int32_t,
                                          XmlElementType>) {
      entry = new Info(u"Item", u"", 0, XmlElementType_Element);
    } else {
      entry = new Info(u"Item", u"", 0);
    }
    return {Class(XmlElementGroupType_All, XmlElementType_Element, u"Stack"),
            Table<CElementInfo>({entry}), Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t, bool read, KestVariant& value) override {
    Exchange(m_items, read, value);
  }
  void Init() override {
    if constexpr (std::is_same_v<Col, CElementCol>) {
      m_items = new CElementCol(u"", u"##any", u"", 0, 2);
    } else if constexpr (std::is_base_of_v<CXmlTypeCollection, Col>) {
      m_items = ValueCol<Col>(u"Item", 0, 2);
    } else {
      m_items = new Col(u"Item", u"", 0, 2);
    }
  }
  CSmartPtr<Col> GetItems() const { return m_items; }

 private:
  CSmartPtr<Col> m_items;
};

}  // namespace KestModel
