#include "kestxml/binding/metadata/attribute_info.h"

#include "kestxml/binding/attribute.h"
#include "kestxml/binding/attribute_col.h"
#include "kestxml/binding/internal/name_match.h"
#include "kestxml/binding/internal/namespace_restriction.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/internal/value_text.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20Data {

using namespace KestXmlLib20;
using KestXmlLib20::internal::ViewOf;

CAttributeInfo::CAttributeInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                               bool optional, char16_t const* defaultValue)
    : m_attributeName(ViewOf(name)),
      m_attributeNamespace(ViewOf(ns)),
      m_propertyIndex(propertyIndex),
      m_optional(optional),
      m_defaultValue(ViewOf(defaultValue)) {}

bool CAttributeInfo::IsThisAttribute(CSerializationContext const& context,
                                     CXmlAttribute const* attribute) const {
  return attribute && internal::HasName(*attribute, m_attributeName, m_attributeNamespace, context);
}

void CAttributeInfo::InvokePropertyGet(CXmlGeneratedClass* owner, KestVariant& value) const {
  ReadProperty(owner, value);
}

void CAttributeInfo::ReadProperty(CXmlGeneratedClass const* owner, KestVariant& value) const {
  try {
    owner->ReadProperty(m_propertyIndex, value);
  } catch (CKestException const& inner) {
    throw CKestValidationException(
        FormatString(u"Failed to get the property value for [%s].", m_attributeName), u"", inner);
  }
}

void CAttributeInfo::InvokePropertySet(CXmlGeneratedClass* owner, KestVariant& value,
                                       CXmlAttribute const& attribute) const {
  try {
    CheckValue(value);
    owner->AccessProperty(m_propertyIndex, false, value);
  } catch (CKestException const& inner) {
    throw CKestValidationException(
        FormatString(u"Failed to set the property value [%s].", attribute.GetValue()),
        attribute.GetXPath(), inner);
  }
}

void CAttributeInfo::CheckValue(KestVariant const&) const {}

// A required attribute goes on whatever it holds: what has no text form then fails.
bool CAttributeInfo::IsUnset(KestVariant const& value) const {
  return m_optional && !value.IsValid();
}

bool CAttributeInfo::IsLeftOutDefault(CSerializationContext const& context,
                                      std::u16string_view text) const {
  return m_optional && !m_defaultValue.empty() && context.GetNoOptionalAttributeDefaultOutput() &&
         text == m_defaultValue;
}

// What the context tolerates does not count here.
void CAttributeInfo::ThrowIfRequired(bool found) const {
  if (m_optional || found) return;
  throw CKestValidationException(
      FormatString(u"Failed to find the required Attribute [%s].", m_attributeName), u"");
}

void CAttributeInfo::ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                               bool registerNamespaces, char16_t const* namespaceUri,
                               CSerializationContext const& context) {
  CXmlObjectBase::ToXml_Int(object, writer, registerNamespaces, namespaceUri, context, false);
}

std::u16string_view CAttributeInfo::GetTargetNamespace(CXmlObjectBase const* object) {
  return object->GetTargetNamespace();
}

bool CAttributeInfo::IsNamespaceValid(std::u16string_view ns, std::u16string_view restriction,
                                      std::u16string_view target) {
  return internal::IsNamespaceValid(ns, restriction, target);
}

void CAttributeInfo::TestNamespace(std::u16string_view ns, std::u16string_view restriction,
                                   std::u16string_view target) {
  internal::TestNamespace(ns, restriction, target);
}

CAttributeInfoPrimitive::CAttributeInfoPrimitive(char16_t const* name, char16_t const* ns,
                                                 int propertyIndex, bool optional,
                                                 ItemType itemType, char16_t const* formatOverride,
                                                 CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                                 CPrimitiveRestrictions const& restrictions,
                                                 char16_t const* defaultValue)
    : CAttributeInfo(name, ns, propertyIndex, optional, defaultValue),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_formatOverride(ViewOf(formatOverride)),
      m_whitespaceRule(whitespaceRule) {}

void CAttributeInfoPrimitive::CheckRestriction(KestVariant const& value) const {
  CheckPrimitiveRestriction(GetAttributeName().c_str(), value, m_itemType, m_restrictions);
}

void CAttributeInfoPrimitive::CheckValue(KestVariant const& value) const {
  CheckRestriction(value);
}

void CAttributeInfoPrimitive::AttributeToXml(CSerializationContext const& context,
                                             CXmlGeneratedClass const* owner,
                                             CXmlWriter* writer) const {
  KestVariant value;
  ReadProperty(owner, value);
  if (IsUnset(value)) return;
  internal::ValueText const text(value, m_formatOverride);
  if (IsLeftOutDefault(context, text)) return;
  CheckRestriction(value);
  writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), text, value.GetTypeAsEnum());
}

bool CAttributeInfoPrimitive::AttributeFromXml(CSerializationContext const&,
                                               CXmlGeneratedClass* owner,
                                               CXmlAttribute* attribute) {
  if (!internal::HasName(*attribute, GetAttributeName(), GetAttributeNamespace())) return false;
  KestVariant value;
  value.FromString(attribute->GetValue(), m_itemType, m_whitespaceRule);
  InvokePropertySet(owner, value, *attribute);
  return true;
}

void CAttributeInfoPrimitive::Validate(CSerializationContext const&, bool found) const {
  ThrowIfRequired(found);
}

CAttributeInfoEnum::CAttributeInfoEnum(char16_t const* name, char16_t const* ns, int propertyIndex,
                                       bool optional, EnumToString enumToString,
                                       StringToEnum stringToEnum, char16_t const* defaultValue)
    : CAttributeInfo(name, ns, propertyIndex, optional, defaultValue),
      m_stringToEnum(stringToEnum),
      m_enumToString(enumToString) {}

void CAttributeInfoEnum::AttributeToXml(CSerializationContext const& context,
                                        CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  KestVariant value;
  ReadProperty(owner, value);
  if (IsUnset(value)) return;
  std::u16string_view const text = ViewOf(m_enumToString(value.GetI4()));
  if (IsLeftOutDefault(context, text)) return;
  writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), text, ItemType_string);
}

bool CAttributeInfoEnum::AttributeFromXml(CSerializationContext const& context,
                                          CXmlGeneratedClass* owner, CXmlAttribute* attribute) {
  if (!IsThisAttribute(context, attribute)) return false;
  KestVariant value;
  value.SetI4(m_stringToEnum(attribute->GetValue().data()));
  InvokePropertySet(owner, value, *attribute);
  return true;
}

void CAttributeInfoEnum::Validate(CSerializationContext const&, bool found) const {
  ThrowIfRequired(found);
}

CAttributeInfoAny::CAttributeInfoAny(char16_t const* name, char16_t const* ns, int propertyIndex,
                                     bool optional, char16_t const* restriction,
                                     char16_t const* targetNamespace, char16_t const* defaultValue)
    : CAttributeInfo(name, ns, propertyIndex, optional, defaultValue),
      m_namespaceRestriction(ViewOf(restriction)),
      m_targetNamespace(ViewOf(targetNamespace)) {}

// A property without a collection has nothing to write.
void CAttributeInfoAny::AttributeToXml(CSerializationContext const& context,
                                       CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  KestVariant value;
  ReadProperty(owner, value);
  auto const collection = value.GetXmlCollection();
  if (!collection) return;
  std::u16string const target(GetTargetNamespace(owner));
  ToXml_Int(collection.Get(), writer, false, target.c_str(), context);
}

bool CAttributeInfoAny::AttributeFromXml(CSerializationContext const&, CXmlGeneratedClass* owner,
                                         CXmlAttribute* attribute) {
  if (!IsNamespaceValid(attribute->GetNamespaceURI(), m_namespaceRestriction, m_targetNamespace)) {
    return false;
  }
  KestVariant value;
  InvokePropertyGet(owner, value);
  auto const collection = value.GetXmlCollection();
  auto* const attributes = dynamic_cast<CAttributeCol*>(collection.Get());
  if (!attributes) {
    throw CKestException(
        u"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
  }
  attributes->Add(attribute->GetLocalName().data(), attribute->GetValue().data(),
                  attribute->GetNamespaceURI().data());
  return true;
}

void CAttributeInfoAny::Validate(CSerializationContext const&, bool) const {}

}  // namespace KestXmlLib20Data
