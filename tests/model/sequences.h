// Sequences, one for each sort of content, and groups in them.
#pragma once

#include "kestxml/binding/attribute_col.h"
#include "kestxml/binding/element.h"
#include "kestxml/binding/element_col.h"
#include "kestxml/collections/value_cols.h"
#include "tests/model/parts.h"

namespace KestModel {

/// A collection of values with the facets of @p simple.
template <typename Col>
CSmartPtr<Col> ValueCol(char16_t const* name, std::int32_t minOccurs, std::int32_t maxOccurs,
                        Simple const& simple = {}) {
  return new Col(name, u"", minOccurs, maxOccurs, simple.pattern, simple.minLength,
                 simple.maxLength, simple.minInclusive, simple.maxInclusive, simple.minExclusive,
                 nullptr, -1, -1, -1, simple.rule, simple.format);
}

/// Simple types and enumerations.
class CCrate : public CModelClass<CCrate> {
 public:
  CCrate() {
    SetElementName(u"Crate");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

  /// @throws CKestException when the facets do not allow @p label.
  void SetLabel(std::u16string label);
  void SetWeight(double weight) { m_weight = weight; }
  /// Also what is no color.
  void SetColor(std::int32_t color) { m_color.SetI4(color); }
  void ClearColor() { m_color.Clear(); }
  KestVariant& Count() { return m_count; }
  KestVariant& Lining() { return m_lining; }
  CSmartPtr<Ci4Col> GetCodes() const { return m_codes; }

 private:
  std::u16string m_label;
  double m_weight = 0;
  KestVariant m_count;
  KestVariant m_color;
  KestVariant m_lining;
  CSmartPtr<Ci4Col> m_codes;
  CSmartPtr<CColorCol> m_stripes;
  CSmartPtr<CstringCol> m_marks;
};

/// Objects.
class CBox : public CModelClass<CBox> {
 public:
  CBox() {
    SetElementName(u"Box");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

  CSmartPtr<CTag>& Tag() { return m_tag; }
  CSmartPtr<CNote> GetNote() const { return m_note; }
  CSmartPtr<CNoteCol> GetParts() const { return m_parts; }
  CSmartPtr<CShape>& Shape() { return m_shape; }

 private:
  CSmartPtr<CTag> m_tag;
  CSmartPtr<CNote> m_note;
  CSmartPtr<CNoteCol> m_parts;
  CSmartPtr<CShape> m_shape;
  CSmartPtr<CShape> m_inner;
  CSmartPtr<CShapeCol> m_extras;
};

/// Open content behind a named element.
class CEnvelope : public CModelClass<CEnvelope> {
 public:
  CEnvelope() {
    SetElementName(u"Envelope");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

  CSmartPtr<CElement> GetHead() const { return m_head; }
  CSmartPtr<CElement> GetForeign() const { return m_foreign; }
  /// Null, or any object in place of the attributes, as generated code never sets it.
  void SetAttributes(CXmlCollectionBase* attributes) { m_attributes = attributes; }

 private:
  CSmartPtr<CElement> m_head;
  CSmartPtr<CElement> m_foreign;
  CSmartPtr<CElementCol> m_items;
  CSmartPtr<CElementCol> m_rest;
  KestVariant m_id;
  CSmartPtr<CXmlCollectionBase> m_attributes;
};

/// A group: a choice without an element of its own.
class CLeg : public CModelClass<CLeg> {
 public:
  CLeg() { Init(); }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  KestVariant m_rail;
  KestVariant m_road;
  KestVariant m_gauge;
};

/// A group with a group in it.
class CSpan : public CModelClass<CSpan> {
 public:
  CSpan() { Init(); }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  std::u16string m_from;
  CSmartPtr<CLeg> m_leg;
  std::u16string m_to;
  KestVariant m_unit;
};

/// Groups in an element.
class CRoute : public CModelClass<CRoute> {
 public:
  CRoute() {
    SetElementName(u"Route");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  CSmartPtr<CSpan> m_span;
  CSmartPtr<CGroupCol<CLeg>> m_legs;
};

}  // namespace KestModel
