// What a generated class says about one of its child elements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/binding/metadata/xml_element_type.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/item_type.h"
#include "kestxml/values/primitive_restrictions.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {
class CElementCol;
class CSerializationContext;
class CXmlCollectionBase;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlWriter;
struct KestVariant;
}  // namespace KestXmlLib20

namespace KestXmlLib20Data {

using KestXmlLib20::CSerializationContext;
using KestXmlLib20::CXmlElement;
using KestXmlLib20::CXmlGeneratedClass;
using KestXmlLib20::CXmlObjectBase;
using KestXmlLib20::CXmlWriter;

/// Generated functions of an enumeration, never null: between its numbers and its texts. The text
/// of a number is constant; null stands for an empty one. A text that is none of the enumeration's
/// makes the second throw a CKestException.
using EnumToString = char16_t const* (*)(int value);
using StringToEnum = int (*)(char16_t const* text);

/// The arguments of ElementFromXml, on their way to the behaviours that share them.
struct ElementRead {
  CSerializationContext const& context;
  CXmlGeneratedClass* owner;
  CXmlElement* parent;
  CXmlElement*& current;
  char16_t const* ownerNamespace;
  XmlElementType ownerElementType;

  /// An owner without an element reads from the children of its own parent and leaves to it what
  /// it does not know.
  bool IsOwnerGroup() const { return ownerElementType != XmlElementType_Element; }
};

/// The base of the entries of element tables, one for each child element of a class. Generated code
/// chooses the class of an entry by group, value kind and occurrence (element_info_family.h).
/// Entries are immutable and shared by all threads. They copy the texts and facets that they are
/// made of.
class KESTXML_API CElementInfo {
 public:
  virtual ~CElementInfo() = default;

  /// Writes the property of @p owner; true when something was written.
  virtual bool ElementToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                            CXmlWriter* writer) const = 0;
  /// Looks at @p *current, a child of @p parent or null. When the entry takes the element,
  /// @p *current moves on.
  /// @returns true when the entry is satisfied, as an optional one is that took nothing.
  virtual bool ElementFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                              CXmlElement* parent, CXmlElement** current,
                              char16_t const* ownerNamespace, XmlElementType ownerElementType) = 0;
  /// Asked of each entry at the end of an all group: whether the group counts as found.
  /// @param found whether the entry took an element.
  /// @throws CKestException here, since only entries of all groups are ever asked.
  virtual bool Validate(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                        bool found, bool ownerIsElement) const;
  /// Writes the attributes of a child that has no element of its own into the open start tag.
  virtual void PseudoChildAttributeToXml(CSerializationContext const& context,
                                         CXmlGeneratedClass const* owner, CXmlWriter* writer) const;

  /// Checks a value as it is checked on reading and writing; for setters of generated classes.
  /// @throws CKestException when the entry holds no primitive or a facet is violated.
  void CheckRestriction(KestXmlLib20::KestVariant const& value) const;

 protected:
  /// For classes, wildcards and collections.
  CElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex);
  /// For enumerations. A null default value is none.
  CElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex, bool nillable,
               EnumToString enumToString, StringToEnum stringToEnum, char16_t const* defaultValue);
  /// For primitives. A null format or default value is none.
  CElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex, bool nillable,
               KestXmlLib20::ItemType itemType, char16_t const* formatOverride,
               KestXmlLib20::CWhitespaceUtils::WhitespaceRule whitespaceRule,
               KestXmlLib20::CPrimitiveRestrictions const& restrictions,
               char16_t const* defaultValue);
  CElementInfo(CElementInfo const&) = default;
  CElementInfo& operator=(CElementInfo const&) = default;

  std::u16string const& GetElementName() const { return m_elementName; }
  std::u16string const& GetElementNamespace() const { return m_elementNamespace; }
  std::int32_t GetPropertyIndex() const { return m_propertyIndex; }

  /// Reads the property.
  /// @throws CKestValidationException that names the element and holds the failure.
  void InvokePropertyGet(CXmlGeneratedClass* owner, KestXmlLib20::KestVariant& value) const;
  void ReadProperty(CXmlGeneratedClass const* owner, KestXmlLib20::KestVariant& value) const;
  /// Checks a primitive against its facets, then sets the property.
  /// @throws CKestValidationException with the path of @p element, which holds the failure.
  void InvokePropertySet(CXmlGeneratedClass* owner, KestXmlLib20::KestVariant& value,
                         CXmlElement const& element) const;

  /// Whether the name fits, and the namespace unless it is ignored. Never for null.
  bool IsThisElement(CSerializationContext const& context, CXmlElement const* element) const;
  /// Steps to the element of a mandatory entry, over unknown elements where they are ignored.
  /// @returns false when it is missing and may be.
  /// @throws CKestValidationException when it is missing and may not be.
  bool FindRequiredElement(ElementRead const& read) const;
  [[noreturn]] void ThrowRequiredElementMissing(ElementRead const& read) const;
  [[noreturn]] void ThrowMandatoryPropertyMissing() const;
  [[noreturn]] void ThrowMandatoryElementMissing() const;

  /// The namespace of a wildcard's new element when nothing better is known.
  static std::u16string GetAnyDefaultNamespace(char16_t const* restriction,
                                               char16_t const* defaultNamespace,
                                               char16_t const* targetNamespace);

  // Each writes the property, and is false when there is none to write: no object, no value, no
  // items. Those that read take *current, which has the entry's name, store its value, and step to
  // its next sibling; of a nil element nothing is stored.
  bool ElementToXmlCol(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                       CXmlWriter* writer) const;
  bool WriteCollection(CSerializationContext const& context,
                       KestXmlLib20::CXmlCollectionBase const& collection,
                       CXmlWriter* writer) const;
  bool ElementToXmlCls(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                       CXmlWriter* writer, bool isOptionalChoice) const;
  bool ElementToXmlPrim(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer) const;
  bool ElementToXmlEnum(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer, EnumToString enumToString) const;
  void ElementFromXmlPrim(CSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlElement** current) const;
  void ElementFromXmlEnum(CSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlElement** current) const;
  EnumToString GetEnumToString() const { return m_enumToString; }

  // The protected operations of objects, for the family.
  static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* child,
                                  CSerializationContext const& context, bool isOptionalChoice);
  void AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                           CSerializationContext const& context) const;
  static CXmlElement* FromXmlLockElementName_Int(KestXmlLib20::CElementCol* elements,
                                                 std::u16string_view name, ElementRead const& read);

 private:
  friend class KestXmlLib20::CXmlGeneratedClass;

  bool WriteValue(CXmlWriter* writer, KestXmlLib20::KestVariant const& value,
                  std::u16string_view text, KestXmlLib20::ItemType itemType, bool isChecked) const;
  bool WriteNil(CXmlWriter* writer) const;
  bool ReadNil(CSerializationContext const& context, CXmlElement const& element) const;
  std::u16string_view TextOf(CXmlElement const& element) const;
  template <typename Store>
  void ReadValue(CSerializationContext const& context, CXmlGeneratedClass* owner,
                 CXmlElement** current, Store store) const;

  std::u16string m_elementName;
  std::u16string m_elementNamespace;
  std::int32_t m_propertyIndex;
  KestXmlLib20::CPrimitiveRestrictions m_restrictions;
  KestXmlLib20::ItemType m_itemType = KestXmlLib20::ItemType_Invalid;
  std::u16string m_formatOverride;
  KestXmlLib20::CWhitespaceUtils::WhitespaceRule m_whitespaceRule =
      KestXmlLib20::CWhitespaceUtils::WhitespaceRule_None;
  std::u16string m_defaultValue;
  bool m_nillable = false;
  EnumToString m_enumToString = nullptr;
  StringToEnum m_stringToEnum = nullptr;
  bool m_isPrimitive = false;
};

}  // namespace KestXmlLib20Data
