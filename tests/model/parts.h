// Classes that the larger ones of the model are made of: simple content, types that are derived
// from one another, and the factories.
#pragma once

#include <string>

#include "kestxml/binding/class_factory_base.h"
#include "kestxml/binding/nillable.h"
#include "tests/model/collections.h"
#include "tests/model/color.h"

namespace KestModel {

/// An i4 with attributes of each sort but a wildcard; may be nil.
class CTag : public CModelClass<CTag>, public INillable {
 public:
  explicit CTag(char16_t const* elementName = u"Tag") {
    SetElementName(elementName);
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

  bool IsNil() override { return m_nil; }
  void SetNil(bool nil) override { m_nil = nil; }
  KestVariant const& GetId() const { return m_id; }
  void SetId(std::int32_t id) { m_id.SetI4(id); }
  void SetTint(std::int32_t tint) { m_tint.SetI4(tint); }
  /// A value of any kind, as code may set that the generator did not foresee.
  void SetValue(KestVariant const& value) { m_value = value; }

 private:
  bool m_nil = false;
  KestVariant m_value;
  KestVariant m_id;
  KestVariant m_tint;
  KestVariant m_size;
};

/// Any text and an attribute; more attributes are passed over.
class CNote : public CModelClass<CNote> {
 public:
  explicit CNote(char16_t const* elementName = u"Note") {
    SetElementName(elementName);
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  std::u16string m_text;
  KestVariant m_lang;
};

inline constexpr char16_t kShapes[] = u"urn:shapes";

/// An abstract type, and two that are derived from it.
class CShape : public CXmlGeneratedClass {
 public:
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override { m_name.Clear(); }

 private:
  KestVariant m_name;
};

class CCircle : public CModelClass<CCircle, CShape> {
 public:
  CCircle() {
    SetElementName(u"Circle");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  double m_radius = 0;
};

class CSquare : public CModelClass<CSquare, CShape> {
 public:
  CSquare() {
    SetElementName(u"Square");
    Init();
  }
  static Tables BuildTables();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  void Init() override;

 private:
  std::int32_t m_side = 0;
};

class CModelFactory : public CClassfactoryBase {
 public:
  enum ClassId { ClassId_Tag, ClassId_Note, ClassId_Span, ClassId_Leg };
  static CSmartPtr<CXmlObjectBase> Create(int classId, char16_t const* elementName);
  /// The class for an element's xsi:type; null for another type, and without one.
  static CSmartPtr<CXmlObjectBase> CreateShape(CXmlElement* element);
};

using CNoteCol = CObjectCol<CNote>;
using CTagCol = CObjectCol<CTag>;
using CShapeCol = CObjectCol<CShape, CModelFactory::CreateShape>;

}  // namespace KestModel
