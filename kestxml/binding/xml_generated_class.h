// The base of every class that the code generator emits.
#pragma once

#include <cstdint>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/critical_section.h"

namespace KestXmlLib20Data {
class CAttributeInfo;
class CElementInfo;
class CParentElementInfo;
}  // namespace KestXmlLib20Data

namespace KestXmlLib20 {

class CXmlAttribute;
class INillable;
struct KestVariant;

/// Reads and writes any class that describes itself in tables of metadata and lets them reach its
/// data through one operation. A class supplies the five operations below and those of its base;
/// docs/writing-classes.md shows one.
///
/// The tables are built once for the class, under m_csInit, and are read-only from then on, so that
/// all threads share them without a lock. Their arrays end with a null pointer; both arrays and
/// entries can be given back by CleanMetaData.
class KESTXML_API CXmlGeneratedClass : public CXmlObjectBase {
 protected:
  CXmlGeneratedClass() = default;
  /// Copies carry the reference count, as those of the base do.
  CXmlGeneratedClass(CXmlGeneratedClass const&) = default;
  CXmlGeneratedClass& operator=(CXmlGeneratedClass const&) = default;

  void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& context) const override;
  /// @throws CKestValidationException "Failed to convert the element ... to XML", which holds the
  /// failure.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  /// @throws CKestValidationException with the path of @p element, which holds the failure; or a
  /// CKestException, when a deeper level knew the path.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;

 public:
  /// The only door to the data: with @p read true stores the property in @p value, else takes it
  /// from there. @p propertyIndex is the number that a metadata entry was given. An enumeration
  /// goes through as an i4, an object or a collection as a counted pointer, and an unset optional
  /// property leaves @p value without a kind.
  virtual void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) = 0;
  /// None of the three is null. They stay the property of the class, and exist for as long as an
  /// object of it does.
  virtual KestXmlLib20Data::CParentElementInfo* GetClassInfo() const = 0;
  /// In schema order, with a null pointer behind the last.
  virtual KestXmlLib20Data::CElementInfo** GetClassElementInfo() const = 0;
  virtual KestXmlLib20Data::CAttributeInfo** GetClassAttributeInfo() const = 0;
  /// Returns all properties to their initial state; called first in every read. The objects and
  /// collections of mandatory properties must exist afterwards.
  virtual void Init() = 0;

 protected:
  /// AccessProperty for reading, of a constant object.
  void ReadProperty(std::int32_t propertyIndex, KestVariant& value) const {
    const_cast<CXmlGeneratedClass*>(this)->AccessProperty(propertyIndex, true, value);
  }

  /// Whether one of the class's entries has the element's name. A wildcard has its own alone.
  bool IsElementInList(CSerializationContext const& context, CXmlElement* element) const;
  /// Whether a choice may have no member: an entry is optional, or is a collection without minimum.
  bool DoesElementContainOptionalElements() const;
  void ProcessAttributesFromXml(CSerializationContext const& context, CXmlElement* element,
                                bool failIfAttributeUnknown);

  /// Destroys the tables of a class and sets the pointers, which may be null, to null. The arrays
  /// must come from malloc, the entries from new.
  static void CleanMetaData(KestXmlLib20Data::CParentElementInfo*& classInfo,
                            KestXmlLib20Data::CElementInfo**& elements,
                            KestXmlLib20Data::CAttributeInfo**& attributes);

  /// Held by generated code while it builds its tables; the library itself never takes it.
  static CKESTCriticalSection m_csInit;

 private:
  // They reach the properties of the objects that they describe.
  friend class KestXmlLib20Data::CAttributeInfo;
  friend class KestXmlLib20Data::CElementInfo;

  struct Content;  // what the reading of an object's child elements goes by

  CXmlElement* ReadElement(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice);
  CXmlElement* ProcessElementSeqFromXml(Content const& content, CXmlElement* child);
  CXmlElement* ProcessElementAllFromXml(Content const& content, CXmlElement* child);
  CXmlElement* ProcessElementChoiceFromXml(Content const& content, CXmlElement* child,
                                           bool isOptionalChoice);
  void ReadSimpleContent(KestXmlLib20Data::CParentElementInfo const& info,
                         CXmlElement const& element);
  void ReadNil(CXmlAttribute const& attribute, CXmlElement const& element);
  INillable* FindNillable() const;
  bool IsNilObject() const;

  void WriteElement(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                    CSerializationContext const& context, bool isOptionalChoice) const;
  void WriteStartTag(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                     CSerializationContext const& context, bool isOptionalChoice) const;
  void WriteContent(CXmlWriter* writer, CSerializationContext const& context,
                    bool isOptionalChoice) const;
  void WriteSimpleContent(CXmlWriter* writer) const;
  void WriteTypeAttribute(CXmlWriter* writer) const;
  void ProcessElementsToXml(CSerializationContext const& context, CXmlWriter* writer) const;
  void ProcessElementChoiceToXml(CSerializationContext const& context, CXmlWriter* writer,
                                 bool isOptionalChoice) const;
  void ProcessAttributesToXml(CSerializationContext const& context, CXmlWriter* writer) const;
};

}  // namespace KestXmlLib20
