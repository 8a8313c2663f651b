// Sequences, one for each sort of content.
#pragma once

#include "kestxml/binding/attribute_col.h"
#include "kestxml/binding/element.h"
#include "kestxml/binding/element_col.h"
#include "tests/model/parts.h"

namespace KestModel {

// clang-format off

/// Simple types and enumerations.
class CCrate : public CModelClass<CCrate> {
 public:
  CCrate() : CModelClass(u"Crate") { Init(); }

  /// @throws CKestException when the facets do not allow @p label.
  void SetLabel(std::u16string const& label) {
    KestVariant value;
    value.SetString(label);
    GetClassElementInfo()[0]->CheckRestriction(value);
    m_label = label;
  }
  void SetWeight(double weight) { m_weight = weight; }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Crate"),
            Table<CElementInfo>({
                Primitive<CElementInfoSeqPrimMnd>(u"Label", 0, {.maxLength = 8}),
                Primitive<CElementInfoSeqPrimMnd>(u"Weight", 1, {.type = ItemType_r8, .minExclusive = u"0", .format = u"%.2f"}),
                Primitive<CElementInfoSeqPrimOpt>(u"Count", 2, {.type = ItemType_i4, .maxInclusive = u"99", .nillable = true, .defaultValue = u"1"}),
                ColorElement<CElementInfoSeqEnumMnd>(u"Color", 3),
                ColorElement<CElementInfoSeqEnumOpt>(u"Lining", 4, true, u"green"),
                new CElementInfoSeqPrimCol(u"Code", u"", 5),
                new CElementInfoSeqEnumCol(u"Stripe", u"", 6),
                new CElementInfoSeqCol(u"Mark", u"", 7)}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_label, read, value);
      case 1: return Exchange(m_weight, read, value);
      case 2: return Exchange(m_count, read, value);
      case 3: return Exchange(m_color, read, value);
      case 4: return Exchange(m_lining, read, value);
      case 5: return Exchange(m_codes, read, value);
      case 6: return Exchange(m_stripes, read, value);
      case 7: return Exchange(m_marks, read, value);
    }
  }
  void Init() override {
    Reset(m_label, m_weight, m_count, m_color, m_lining);
    m_codes = ValueCol<Ci4Col>(u"Code", 0, 2, u"10");
    m_stripes = new CColorCol(u"Stripe", 0, -1);
    m_marks = ValueCol<CstringCol>(u"Mark", 0, -1);
  }

 private:
  std::u16string m_label;
  double m_weight = 0;
  KestVariant m_count;
  std::int32_t m_color = Color_red;
  KestVariant m_lining;
  CSmartPtr<Ci4Col> m_codes;
  CSmartPtr<CColorCol> m_stripes;
  CSmartPtr<CstringCol> m_marks;
};

/// Objects.
class CBox : public CModelClass<CBox> {
 public:
  CBox() : CModelClass(u"Box") { Init(); }
  CSmartPtr<CTag>& Tag() { return m_tag; }
  CSmartPtr<CShape>& Shape() { return m_shape; }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Box"),
            Table<CElementInfo>({
                new CElementInfoSeqClsMnd(u"Tag", u"", 0, XmlElementType_Element, nullptr, -1, true),
                new CElementInfoSeqClsOpt(u"Note", u"", 1, XmlElementType_Element, CModelFactory::Create, CModelFactory::ClassId_Note),
                new CElementInfoSeqClsCol(u"Part", u"", 2, XmlElementType_Element),
                new CElementInfoSeqAbsClsMnd(u"Shape", kShapes, 3, XmlElementType_Element, CModelFactory::CreateShape),
                new CElementInfoSeqAbsClsOpt(u"Inner", kShapes, 4, XmlElementType_Element, CModelFactory::CreateShape),
                new CElementInfoSeqAbsClsCol(u"Extra", kShapes, 5, XmlElementType_Element)}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_tag, read, value);
      case 1: return Exchange(m_note, read, value);
      case 2: return Exchange(m_parts, read, value);
      case 3: return Exchange(m_shape, read, value);
      case 4: return Exchange(m_inner, read, value);
      case 5: return Exchange(m_extras, read, value);
    }
  }
  void Init() override {
    Reset(m_note, m_shape, m_inner);
    m_tag = new CTag;
    m_parts = new CNoteCol(u"Part", u"", 0, 2);
    m_extras = new CShapeCol(u"Extra", kShapes, 0, -1);
  }

 private:
  CSmartPtr<CTag> m_tag;
  CSmartPtr<CNote> m_note;
  CSmartPtr<CNoteCol> m_parts;
  CSmartPtr<CShape> m_shape, m_inner;
  CSmartPtr<CShapeCol> m_extras;
};

/// Open content. The wildcard for attributes stands behind the attribute with a name.
class CEnvelope : public CModelClass<CEnvelope> {
 public:
  CEnvelope() : CModelClass(u"Envelope") { Init(); }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Envelope"),
            Table<CElementInfo>({
                new CElementInfoSeqUntpdMnd(u"Head", u"urn:head", 0, u"##any", u""),
                new CElementInfoSeqUntpdOpt(u"AnyElement", u"", 1, u"##other", u""),
                new CElementInfoSeqUntpdCol(u"Item", u"", 2),
                new CElementInfoSeqUntpdCol(u"AnyElement", u"", 3)}),
            Table<CAttributeInfo>({
                Attribute(u"id", 4, true, {.type = ItemType_i4}),
                new CAttributeInfoAny(u"AnyAttr", u"", 5, true, u"##other", u"", nullptr)})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_head, read, value);
      case 1: return Exchange(m_foreign, read, value);
      case 2: return Exchange(m_items, read, value);
      case 3: return Exchange(m_rest, read, value);
      case 4: return Exchange(m_id, read, value);
      case 5: return Exchange(m_attributes, read, value);
    }
  }
  void Init() override {
    Reset(m_foreign, m_id);
    m_head = new CElement(u"Head");
    m_items = new CElementCol(u"", u"##any", u"", 0, 2);
    m_rest = new CElementCol(u"", u"##any", u"");
    m_attributes = new CAttributeCol(u"", u"##other", u"");
  }

 private:
  CSmartPtr<CElement> m_head, m_foreign;
  CSmartPtr<CElementCol> m_items, m_rest;
  KestVariant m_id;
  CSmartPtr<CAttributeCol> m_attributes;
};

/// Groups. It has no attributes itself, and must not refuse those of its groups.
class CRoute : public CModelClass<CRoute> {
 public:
  CRoute() : CModelClass(u"Route") { Init(); }

  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Route", {.failIfAttributeUnknown = false}),
            Table<CElementInfo>({
                new CElementInfoSeqClsMnd(u"Span", u"", 0, XmlElementType_PseudoElement, nullptr, -1, true),
                new CElementInfoSeqClsCol(u"Leg", u"", 1, XmlElementType_PseudoElement)}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_span, read, value);
      case 1: return Exchange(m_legs, read, value);
    }
  }
  void Init() override {
    m_span = new CSpan;
    m_legs = new CGroupCol<CLeg>;
  }

 private:
  CSmartPtr<CSpan> m_span;
  CSmartPtr<CGroupCol<CLeg>> m_legs;
};

// clang-format on

}  // namespace KestModel
