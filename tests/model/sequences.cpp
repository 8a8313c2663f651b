#include "tests/model/sequences.h"

namespace KestModel {

namespace {

// A group whose attributes its parent does not write.
constexpr auto kPlainGroup = static_cast<XmlElementType>(2);

}  // namespace

Tables CCrate::BuildTables() {
  return {
      Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Crate"),
      Table<CElementInfo>(
          {Primitive<CElementInfoSeqPrimMnd>(u"Label", 0, {.maxLength = 8}),
           Primitive<CElementInfoSeqPrimMnd>(
               u"Weight", 1, {.type = ItemType_r8, .minExclusive = u"0", .format = u"%.2f"}),
           Primitive<CElementInfoSeqPrimOpt>(u"Count", 2,
                                             {.type = ItemType_i4,
                                              .maxInclusive = u"99",
                                              .nillable = true,
                                              .defaultValue = u"1"}),
           ColorElement<CElementInfoSeqEnumMnd>(u"Color", 3),
           ColorElement<CElementInfoSeqEnumOpt>(u"Lining", 4, true, u"green"),
           new CElementInfoSeqPrimCol(u"Code", u"", 5),
           new CElementInfoSeqEnumCol(u"Stripe", u"", 6), new CElementInfoSeqCol(u"Mark", u"", 7)}),
      Table<CAttributeInfo>({})};
}

void CCrate::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
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
  // clang-format on
}

void CCrate::Init() {
  m_label.clear();
  m_weight = 0;
  m_count.Clear();
  m_color.SetI4(Color_red);
  m_lining.Clear();
  m_codes = ValueCol<Ci4Col>(u"Code", 0, 2, {.minInclusive = u"10"});
  m_stripes = new CColorCol(u"Stripe", u"", 0, -1);
  m_marks = ValueCol<CstringCol>(u"Mark", 0, -1);
}

void CCrate::SetLabel(std::u16string label) {
  KestVariant value;
  value.SetString(std::move(label));
  GetClassElementInfo()[0]->CheckRestriction(value);
  m_label = value.GetString();
}

Tables CBox::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Box"),
          Table<CElementInfo>(
              {new CElementInfoSeqClsMnd(u"Tag", u"", 0, XmlElementType_Element,
                                         CModelFactory::Create, CModelFactory::ClassId_Tag, true),
               new CElementInfoSeqClsOpt(u"Note", u"", 1, XmlElementType_Element,
                                         CModelFactory::Create, CModelFactory::ClassId_Note),
               new CElementInfoSeqClsCol(u"Part", u"", 2, XmlElementType_Element),
               new CElementInfoSeqAbsClsMnd(u"Shape", kShapes, 3, XmlElementType_Element,
                                            CModelFactory::CreateShape),
               new CElementInfoSeqAbsClsOpt(u"Inner", kShapes, 4, XmlElementType_Element,
                                            CModelFactory::CreateShape),
               new CElementInfoSeqAbsClsCol(u"Extra", kShapes, 5, XmlElementType_Element)}),
          Table<CAttributeInfo>({})};
}

void CBox::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_tag, read, value);
    case 1: return Exchange(m_note, read, value);
    case 2: return Exchange(m_parts, read, value);
    case 3: return Exchange(m_shape, read, value);
    case 4: return Exchange(m_inner, read, value);
    case 5: return Exchange(m_extras, read, value);
  }
  // clang-format on
}

void CBox::Init() {
  m_tag = new CTag;
  m_note = nullptr;
  m_parts = new CNoteCol(u"Part", u"", 0, 2);
  m_shape = nullptr;
  m_inner = nullptr;
  m_extras = new CShapeCol(u"Extra", kShapes, 0, -1);
}

// The wildcard for attributes stands behind the attribute with a name.
Tables CEnvelope::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Envelope"),
          Table<CElementInfo>({new CElementInfoSeqUntpdMnd(u"Head", u"urn:head", 0, u"##any", u""),
                               new CElementInfoSeqUntpdOpt(u"AnyElement", u"", 1, u"##other", u""),
                               new CElementInfoSeqUntpdCol(u"Item", u"", 2),
                               new CElementInfoSeqUntpdCol(u"AnyElement", u"", 3)}),
          Table<CAttributeInfo>(
              {Attribute(u"id", 4, true, {.type = ItemType_i4}),
               new CAttributeInfoAny(u"AnyAttr", u"", 5, true, u"##other", u"", nullptr)})};
}

void CEnvelope::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_head, read, value);
    case 1: return Exchange(m_foreign, read, value);
    case 2: return Exchange(m_items, read, value);
    case 3: return Exchange(m_rest, read, value);
    case 4: return Exchange(m_id, read, value);
    case 5: return Exchange(m_attributes, read, value);
  }
  // clang-format on
}

void CEnvelope::Init() {
  m_head = new CElement(u"Head");
  m_foreign = nullptr;
  m_items = new CElementCol(u"", u"##any", u"", 0, 2);
  m_rest = new CElementCol(u"", u"##any", u"");
  m_id.Clear();
  if (!m_attributes || dynamic_cast<CAttributeCol*>(m_attributes.Get())) {
    m_attributes = new CAttributeCol(u"", u"##other", u"");
  }
}

Tables CLeg::BuildTables() {
  return {
      Class(XmlElementGroupType_Choice, XmlElementType_PseudoElement, u"",
            {.failIfAttributeUnknown = false}),
      Table<CElementInfo>({Primitive<CElementInfoChoicePrimOpt>(u"Rail", 0, {.type = ItemType_i4}),
                           ColorElement<CElementInfoChoiceEnumOpt>(u"Road", 1)}),
      Table<CAttributeInfo>({Attribute(u"gauge", 2, true)})};
}

void CLeg::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_rail, read, value);
    case 1: return Exchange(m_road, read, value);
    case 2: return Exchange(m_gauge, read, value);
  }
  // clang-format on
}

void CLeg::Init() {
  m_rail.Clear();
  m_road.Clear();
  m_gauge.Clear();
}

Tables CSpan::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, u"",
                {.failIfAttributeUnknown = false}),
          Table<CElementInfo>(
              {Primitive<CElementInfoSeqPrimMnd>(u"From", 0),
               new CElementInfoSeqClsOpt(u"Leg", u"", 1, kPlainGroup, CModelFactory::Create,
                                         CModelFactory::ClassId_Leg),
               Primitive<CElementInfoSeqPrimMnd>(u"To", 2)}),
          Table<CAttributeInfo>({Attribute(u"unit", 3, true)})};
}

void CSpan::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_from, read, value);
    case 1: return Exchange(m_leg, read, value);
    case 2: return Exchange(m_to, read, value);
    case 3: return Exchange(m_unit, read, value);
  }
  // clang-format on
}

void CSpan::Init() {
  m_from.clear();
  m_leg = nullptr;
  m_to.clear();
  m_unit.Clear();
}

// It has no attributes itself, and must not refuse those of its groups.
Tables CRoute::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Route",
                {.failIfAttributeUnknown = false}),
          Table<CElementInfo>(
              {new CElementInfoSeqClsMnd(u"Span", u"", 0, XmlElementType_PseudoElement,
                                         CModelFactory::Create, CModelFactory::ClassId_Span, true),
               new CElementInfoSeqClsCol(u"Leg", u"", 1, XmlElementType_PseudoElement)}),
          Table<CAttributeInfo>({})};
}

void CRoute::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_span, read, value);
    case 1: return Exchange(m_legs, read, value);
  }
  // clang-format on
}

void CRoute::Init() {
  m_span = new CSpan;
  m_legs = new CGroupCol<CLeg>(u"Leg", u"", 0, -1);
}

}  // namespace KestModel
