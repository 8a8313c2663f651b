// Classes that the larger ones of the model are made of: simple content, an abstract type with one
// that is derived from it, groups, and the factories.
#pragma once

#include <string>

#include "kestxml/binding/class_factory_base.h"
#include "kestxml/binding/nillable.h"
#include "tests/model/collections.h"

namespace KestModel {

// clang-format off

class CModelFactory : public CClassfactoryBase {
 public:
  enum ClassId { ClassId_Note, ClassId_Leg };
  static CSmartPtr<CXmlObjectBase> Create(int classId, char16_t const* elementName);
  /// The class for an element's xsi:type; null for another type, and without one.
  static CSmartPtr<CXmlObjectBase> CreateShape(CXmlElement* element);
};

/// An i4 with attributes of each sort but a wildcard; may be nil.
class CTag : public CModelClass<CTag>, public INillable {
 public:
  CTag() : CModelClass(u"Tag") { Init(); }
  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Tag", {.content = ItemType_i4}),
            Table<CElementInfo>({}),
            Table<CAttributeInfo>({
                Attribute(u"id", 1, false, {.type = ItemType_i4, .minInclusive = u"1"}),
                new CAttributeInfoEnum(u"tint", u"", 2, true, ColorToString, StringToColor, u"red"),
                Attribute(u"size", 3, true, {.type = ItemType_r8, .defaultValue = u"1.5", .format = u"%.1f"})})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_value, read, value);
      case 1: return Exchange(m_id, read, value);
      case 2: return Exchange(m_tint, read, value);
      case 3: return Exchange(m_size, read, value);
    }
  }
  void Init() override { Reset(m_nil, m_value, m_id, m_tint, m_size); }
  bool IsNil() override { return m_nil; }
  void SetNil(bool nil) override { m_nil = nil; }

  KestVariant& Value() { return m_value; }
  void SetId(std::int32_t id) { m_id.SetI4(id); }

 private:
  bool m_nil = false;
  KestVariant m_value, m_id, m_tint, m_size;
};

/// Any text and an attribute; more attributes are passed over.
class CNote : public CModelClass<CNote> {
 public:
  explicit CNote(char16_t const* elementName = u"Note") : CModelClass(elementName) { Init(); }
  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Note",
                  {.failIfAttributeUnknown = false, .content = ItemType_string, .isText = true}),
            Table<CElementInfo>({}),
            Table<CAttributeInfo>({Attribute(u"lang", 1, true, {.pattern = u"[a-z]+"})})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_text, read, value);
      case 1: return Exchange(m_lang, read, value);
    }
  }
  void Init() override { Reset(m_text, m_lang); }

 private:
  std::u16string m_text;
  KestVariant m_lang;
};

inline constexpr char16_t kShapes[] = u"urn:shapes";

/// An abstract type.
class CShape : public CXmlGeneratedClass {
 public:
  void AccessProperty(std::int32_t, bool read, KestVariant& value) override { Exchange(m_name, read, value); }
  void Init() override { Reset(m_name); }

 private:
  KestVariant m_name;
};

class CSquare : public CModelClass<CSquare, CShape> {
 public:
  CSquare() : CModelClass(u"Square") { Init(); }
  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"Square", {.ns = kShapes, .hasBaseClasses = true}),
            Table<CElementInfo>({
                Primitive<CElementInfoSeqPrimOpt>(u"Name", 0, {.ns = kShapes}),
                Primitive<CElementInfoSeqPrimMnd>(u"Side", 1, {.ns = kShapes, .type = ItemType_i4})}),
            Table<CAttributeInfo>({})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 1: return Exchange(m_side, read, value);
      default: return CShape::AccessProperty(propertyIndex, read, value);
    }
  }
  void Init() override {
    CShape::Init();
    Reset(m_side);
  }

 private:
  std::int32_t m_side = 0;
};

/// A group: a choice without an element of its own.
class CLeg : public CModelClass<CLeg> {
 public:
  CLeg() : CModelClass(u"") { Init(); }
  static Tables BuildTables() {
    return {Class(XmlElementGroupType_Choice, XmlElementType_PseudoElement, u"", {.failIfAttributeUnknown = false}),
            Table<CElementInfo>({
                Primitive<CElementInfoChoicePrimOpt>(u"Rail", 0, {.type = ItemType_i4}),
                ColorElement<CElementInfoChoiceEnumOpt>(u"Road", 1)}),
            Table<CAttributeInfo>({Attribute(u"gauge", 2, true)})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_rail, read, value);
      case 1: return Exchange(m_road, read, value);
      case 2: return Exchange(m_gauge, read, value);
    }
  }
  void Init() override { Reset(m_rail, m_road, m_gauge); }

 private:
  KestVariant m_rail, m_road, m_gauge;
};

/// A group with a group in it.
class CSpan : public CModelClass<CSpan> {
 public:
  CSpan() : CModelClass(u"") { Init(); }
  static Tables BuildTables() {
    constexpr auto kPlainGroup = static_cast<XmlElementType>(2);  // its attributes are not written
    return {Class(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, u"", {.failIfAttributeUnknown = false}),
            Table<CElementInfo>({
                Primitive<CElementInfoSeqPrimMnd>(u"From", 0),
                new CElementInfoSeqClsOpt(u"Leg", u"", 1, kPlainGroup, CModelFactory::Create, CModelFactory::ClassId_Leg),
                Primitive<CElementInfoSeqPrimMnd>(u"To", 2)}),
            Table<CAttributeInfo>({Attribute(u"unit", 3, true)})};
  }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override {
    switch (propertyIndex) {
      case 0: return Exchange(m_from, read, value);
      case 1: return Exchange(m_leg, read, value);
      case 2: return Exchange(m_to, read, value);
      case 3: return Exchange(m_unit, read, value);
    }
  }
  void Init() override { Reset(m_from, m_leg, m_to, m_unit); }

 private:
  std::u16string m_from;
  CSmartPtr<CLeg> m_leg;
  std::u16string m_to;
  KestVariant m_unit;
};

inline CSmartPtr<CXmlObjectBase> CModelFactory::Create(int classId, char16_t const* elementName) {
  switch (classId) {
    case ClassId_Note: return new CNote(elementName);
    case ClassId_Leg: return new CLeg;
  }
  return nullptr;
}

// clang-format on

inline CSmartPtr<CXmlObjectBase> CModelFactory::CreateShape(CXmlElement* element) {
  if (GetElementTypeNamespaceUri(element) != kShapes) return nullptr;
  return GetElementType(element) == u"Square" ? new CSquare : nullptr;
}

using CNoteCol = CObjectCol<CNote>;
using CShapeCol = CObjectCol<CShape, CModelFactory::CreateShape>;

}  // namespace KestModel
