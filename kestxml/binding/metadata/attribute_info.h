// What a generated class says about one of its attributes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/binding/metadata/element_info.h"

namespace KestXmlLib20 {
class CXmlAttribute;
}

namespace KestXmlLib20Data {

using KestXmlLib20::CXmlAttribute;
using KestXmlLib20::KestVariant;

/// The base of the entries of attribute tables. An attribute is offered to them in table order, and
/// the first that takes it has it. Entries are immutable and shared by all threads.
class KESTXML_API CAttributeInfo {
 public:
  virtual ~CAttributeInfo() = default;

  /// Writes the property of @p owner into the open start tag.
  virtual void AttributeToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                              CXmlWriter* writer) const = 0;
  /// True when this entry took the attribute.
  virtual bool AttributeFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                                CXmlAttribute* attribute) = 0;
  /// Asked of each entry once all attributes have been offered.
  /// @throws CKestValidationException when a required attribute was not found.
  virtual void Validate(CSerializationContext const& context, bool found) const = 0;

 protected:
  /// A null default value is none. Defaults are not applied on reading: a property whose attribute
  /// is absent keeps what Init gave it.
  CAttributeInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                 bool optional, char16_t const* defaultValue);
  CAttributeInfo(CAttributeInfo const&) = default;
  CAttributeInfo& operator=(CAttributeInfo const&) = default;

  std::u16string const& GetAttributeName() const { return m_attributeName; }
  std::u16string const& GetAttributeNamespace() const { return m_attributeNamespace; }
  bool IsOptional() const { return m_optional; }

  /// Whether the name fits, and the namespace unless it is ignored. Never for null.
  bool IsThisAttribute(CSerializationContext const& context, CXmlAttribute const* attribute) const;
  /// @throws CKestValidationException that names the attribute and holds the failure.
  void InvokePropertyGet(CXmlGeneratedClass* owner, KestVariant& value) const;
  void ReadProperty(CXmlGeneratedClass const* owner, KestVariant& value) const;
  /// @throws CKestValidationException with the attribute's value and path, which holds the failure.
  void InvokePropertySet(CXmlGeneratedClass* owner, KestVariant& value,
                         CXmlAttribute const& attribute) const;

  /// Whether an optional attribute is not to be written: it has no value, or @p text is its default
  /// and defaults are left out.
  bool IsUnset(KestVariant const& value) const;
  bool IsLeftOutDefault(CSerializationContext const& context, std::u16string_view text) const;
  void ThrowIfRequired(bool found) const;

  /// What a subclass checks before a property is set, within the same wrapping of failures.
  virtual void CheckValue(KestVariant const& value) const;

  static void ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool registerNamespaces,
                        char16_t const* namespaceUri, CSerializationContext const& context);
  static std::u16string_view GetTargetNamespace(CXmlObjectBase const* object);
  static bool IsNamespaceValid(std::u16string_view ns, std::u16string_view restriction,
                               std::u16string_view target);
  static void TestNamespace(std::u16string_view ns, std::u16string_view restriction,
                            std::u16string_view target);

 private:
  std::u16string m_attributeName;
  std::u16string m_attributeNamespace;
  std::int32_t m_propertyIndex;
  bool m_optional;
  std::u16string m_defaultValue;
};

/// An attribute of a simple type.
class KESTXML_API CAttributeInfoPrimitive : public CAttributeInfo {
 public:
  CAttributeInfoPrimitive(char16_t const* name, char16_t const* ns, int propertyIndex,
                          bool optional, KestXmlLib20::ItemType itemType,
                          char16_t const* formatOverride,
                          KestXmlLib20::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                          KestXmlLib20::CPrimitiveRestrictions const& restrictions,
                          char16_t const* defaultValue);

  /// Checks a value as it is checked on reading and writing; for setters of generated classes.
  /// @throws CKestException when a facet is violated.
  void CheckRestriction(KestVariant const& value) const;

  void AttributeToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
  /// The namespace counts even where the context ignores namespaces.
  bool AttributeFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlAttribute* attribute) override;
  void Validate(CSerializationContext const& context, bool found) const override;

 protected:
  void CheckValue(KestVariant const& value) const override;

 private:
  KestXmlLib20::CPrimitiveRestrictions m_restrictions;
  KestXmlLib20::ItemType m_itemType;
  std::u16string m_formatOverride;
  KestXmlLib20::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

/// An attribute of a generated enumeration.
class KESTXML_API CAttributeInfoEnum : public CAttributeInfo {
 public:
  CAttributeInfoEnum(char16_t const* name, char16_t const* ns, int propertyIndex, bool optional,
                     EnumToString enumToString, StringToEnum stringToEnum,
                     char16_t const* defaultValue);

  void AttributeToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
  bool AttributeFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlAttribute* attribute) override;
  void Validate(CSerializationContext const& context, bool found) const override;

 private:
  StringToEnum m_stringToEnum;
  EnumToString m_enumToString;
};

/// An attribute wildcard, whose property is a CAttributeCol. Its own name plays no part: it takes
/// any attribute that its namespace restriction allows, so it belongs behind the named entries.
class KESTXML_API CAttributeInfoAny : public CAttributeInfo {
 public:
  CAttributeInfoAny(char16_t const* name, char16_t const* ns, int propertyIndex, bool optional,
                    char16_t const* restriction, char16_t const* targetNamespace,
                    char16_t const* defaultValue);

  void AttributeToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
  bool AttributeFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlAttribute* attribute) override;
  void Validate(CSerializationContext const& context, bool found) const override;

 private:
  std::u16string m_namespaceRestriction;
  std::u16string m_targetNamespace;
};

}  // namespace KestXmlLib20Data
