#include "tests/model/parts.h"

#include "tests/model/sequences.h"

namespace KestModel {

Tables CTag::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Tag",
                {.valueIndex = 0, .valueType = ItemType_i4}),
          Table<CElementInfo>({}),
          Table<CAttributeInfo>(
              {Attribute(u"id", 1, false, {.type = ItemType_i4, .minInclusive = u"1"}),
               new CAttributeInfoEnum(u"tint", u"", 2, true, ColorToString, StringToColor, u"red"),
               Attribute(u"size", 3, true,
                         {.type = ItemType_r8, .defaultValue = u"1.5", .format = u"%.1f"})})};
}

void CTag::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_value, read, value);
    case 1: return Exchange(m_id, read, value);
    case 2: return Exchange(m_tint, read, value);
    case 3: return Exchange(m_size, read, value);
  }
  // clang-format on
}

void CTag::Init() {
  m_nil = false;
  m_value.SetI4(0);
  m_id.Clear();
  m_tint.Clear();
  m_size.Clear();
}

Tables CNote::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Note",
                {.failIfAttributeUnknown = false,
                 .valueIndex = 0,
                 .valueType = ItemType_string,
                 .isText = true}),
          Table<CElementInfo>({}),
          Table<CAttributeInfo>({Attribute(u"lang", 1, true, {.pattern = u"[a-z]+"})})};
}

void CNote::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_text, read, value);
    case 1: return Exchange(m_lang, read, value);
  }
  // clang-format on
}

void CNote::Init() {
  m_text.clear();
  m_lang.Clear();
}

void CShape::AccessProperty(std::int32_t, bool read, KestVariant& value) {
  Exchange(m_name, read, value);
}

Tables CCircle::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Circle",
                {.ns = kShapes, .hasBaseClasses = true}),
          Table<CElementInfo>(
              {Primitive<CElementInfoSeqPrimOpt>(u"Name", 0, {.ns = kShapes}),
               Primitive<CElementInfoSeqPrimMnd>(
                   u"Radius", 1, {.ns = kShapes, .type = ItemType_r8, .minExclusive = u"0"})}),
          Table<CAttributeInfo>({})};
}

void CCircle::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  if (propertyIndex == 1) return Exchange(m_radius, read, value);
  CShape::AccessProperty(propertyIndex, read, value);
}

void CCircle::Init() {
  CShape::Init();
  m_radius = 0;
}

Tables CSquare::BuildTables() {
  return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Square",
                {.ns = kShapes, .hasBaseClasses = true}),
          Table<CElementInfo>({Primitive<CElementInfoSeqPrimOpt>(u"Name", 0, {.ns = kShapes}),
                               Primitive<CElementInfoSeqPrimMnd>(
                                   u"Side", 1, {.ns = kShapes, .type = ItemType_i4})}),
          Table<CAttributeInfo>({})};
}

void CSquare::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  if (propertyIndex == 1) return Exchange(m_side, read, value);
  CShape::AccessProperty(propertyIndex, read, value);
}

void CSquare::Init() {
  CShape::Init();
  m_side = 0;
}

CSmartPtr<CXmlObjectBase> CModelFactory::Create(int classId, char16_t const* elementName) {
  switch (classId) {
    case ClassId_Tag:
      return new CTag(elementName);
    case ClassId_Note:
      return new CNote(elementName);
    case ClassId_Span:
      return new CSpan;
    case ClassId_Leg:
      return new CLeg;
  }
  return nullptr;
}

CSmartPtr<CXmlObjectBase> CModelFactory::CreateShape(CXmlElement* element) {
  if (GetElementTypeNamespaceUri(element) != kShapes) return nullptr;
  std::u16string const type = GetElementType(element);
  if (type == u"Circle") return new CCircle;
  if (type == u"Square") return new CSquare;
  return nullptr;
}

}  // namespace KestModel
