#include "kestxml/binding/metadata/element_info.h"

#include <utility>

#include "kestxml/binding/element_col.h"
#include "kestxml/binding/internal/name_match.h"
#include "kestxml/binding/internal/nil_text.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/internal/value_text.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/document/xml_writer_context.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20Data {

using namespace KestXmlLib20;
using KestXmlLib20::internal::ViewOf;

namespace {

// States of the JSON writer: around the items of a collection.
constexpr std::int32_t kArrayBegins = 1;
constexpr std::int32_t kArrayEnds = 3;

void SetArrayState(CXmlWriter& writer, std::int32_t state) {
  if (auto* const context = writer.GetCurrentContext()) context->m_arrayState = state;
}

}  // namespace

CElementInfo::CElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex)
    : m_elementName(ViewOf(name)), m_elementNamespace(ViewOf(ns)), m_propertyIndex(propertyIndex) {}

CElementInfo::CElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                           bool nillable, EnumToString enumToString, StringToEnum stringToEnum,
                           char16_t const* defaultValue)
    : CElementInfo(name, ns, propertyIndex) {
  m_nillable = nillable;
  m_enumToString = enumToString;
  m_stringToEnum = stringToEnum;
  m_defaultValue = ViewOf(defaultValue);
}

CElementInfo::CElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                           bool nillable, ItemType itemType, char16_t const* formatOverride,
                           CWhitespaceUtils::WhitespaceRule whitespaceRule,
                           CPrimitiveRestrictions const& restrictions, char16_t const* defaultValue)
    : CElementInfo(name, ns, propertyIndex) {
  m_nillable = nillable;
  m_itemType = itemType;
  m_formatOverride = ViewOf(formatOverride);
  m_whitespaceRule = whitespaceRule;
  m_restrictions = restrictions;
  m_defaultValue = ViewOf(defaultValue);
  m_isPrimitive = true;
}

bool CElementInfo::Validate(CSerializationContext const&, CXmlGeneratedClass const*, bool,
                            bool) const {
  throw CKestException(u"Not implemented, should never be called");
}

void CElementInfo::PseudoChildAttributeToXml(CSerializationContext const&,
                                             CXmlGeneratedClass const*, CXmlWriter*) const {}

void CElementInfo::CheckRestriction(KestVariant const& value) const {
  if (!m_isPrimitive) {
    throw CKestException(u"Cannot CheckRestriction for type: " + value.GetType());
  }
  CheckPrimitiveRestriction(m_elementName.c_str(), value, m_itemType, m_restrictions);
}

void CElementInfo::InvokePropertyGet(CXmlGeneratedClass* owner, KestVariant& value) const {
  ReadProperty(owner, value);
}

void CElementInfo::ReadProperty(CXmlGeneratedClass const* owner, KestVariant& value) const {
  try {
    owner->ReadProperty(m_propertyIndex, value);
  } catch (CKestException const& inner) {
    throw CKestValidationException(
        FormatString(u"Failed to get the property value for [%s].", m_elementName), u"", inner);
  }
}

// A value that was read is checked here as well as in the setters that generated code may have, so
// that no class takes what its schema forbids.
void CElementInfo::InvokePropertySet(CXmlGeneratedClass* owner, KestVariant& value,
                                     CXmlElement const& element) const {
  try {
    if (m_isPrimitive) CheckRestriction(value);
    owner->AccessProperty(m_propertyIndex, false, value);
  } catch (CKestException const& inner) {
    throw CKestValidationException(u"Failed to set the property value.", element.GetXPath(), inner);
  }
}

bool CElementInfo::IsThisElement(CSerializationContext const& context,
                                 CXmlElement const* element) const {
  return element && internal::HasName(*element, m_elementName, m_elementNamespace, context);
}

void CElementInfo::ThrowRequiredElementMissing(ElementRead const& read) const {
  throw CKestValidationException(
      FormatString(u"Failed to find the required child element [%s].", m_elementName),
      read.parent->GetXPath());
}

void CElementInfo::ThrowMandatoryPropertyMissing() const {
  throw CKestInvalidParamException(
      FormatString(u"The Property [%s] is mandatory, it may not be NULL", m_elementName));
}

void CElementInfo::ThrowMandatoryElementMissing() const {
  throw CKestValidationException(
      FormatString(u"Failed to find the mandatory element [%s].", m_elementName), u"");
}

bool CElementInfo::FindRequiredElement(ElementRead const& read) const {
  while (!IsThisElement(read.context, read.current)) {
    if (read.context.GetIgnoreMissingMandatoryElements()) return false;
    if (!read.context.GetIgnoreUnknownElements() || !read.current) {
      ThrowRequiredElementMissing(read);
    }
    read.current = read.current->GetNextSiblingElement();
  }
  return true;
}

std::u16string CElementInfo::GetAnyDefaultNamespace(char16_t const* restriction,
                                                    char16_t const* defaultNamespace,
                                                    char16_t const* targetNamespace) {
  std::u16string_view rule = ViewOf(restriction);
  // Of a list the first token decides.
  if (rule.size() > 2 && rule.starts_with(u"##")) rule = rule.substr(0, rule.find(u' '));
  std::u16string_view const otherwise = ViewOf(defaultNamespace);
  if (rule == u"##any") return std::u16string(otherwise);
  // Any namespace but the target's will do where there is no other to avoid.
  if (rule == u"##other") return otherwise.empty() ? u"DefaultNamespace" : u"";
  if (rule == u"##targetNamespace") return std::u16string(ViewOf(targetNamespace));
  return {};
}

bool CElementInfo::ElementToXmlCol(CSerializationContext const& context,
                                   CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  KestVariant value;
  ReadProperty(owner, value);
  auto const collection = value.GetXmlCollection();
  return collection && WriteCollection(context, *collection, writer);
}

bool CElementInfo::WriteCollection(CSerializationContext const& context,
                                   CXmlCollectionBase const& collection, CXmlWriter* writer) const {
  if (collection.GetCount() == 0) return false;
  SetArrayState(*writer, kArrayBegins);
  CXmlObjectBase::ToXml_Int(&collection, writer, false, m_elementNamespace.c_str(), context, false);
  SetArrayState(*writer, kArrayEnds);
  return true;
}

bool CElementInfo::ElementToXmlCls(CSerializationContext const& context,
                                   CXmlGeneratedClass const* owner, CXmlWriter* writer,
                                   bool isOptionalChoice) const {
  KestVariant value;
  ReadProperty(owner, value);
  auto const object = value.GetXmlObject();
  if (!object) return false;
  CXmlObjectBase::ToXml_Int(object.Get(), writer, false, m_elementNamespace.c_str(), context,
                            isOptionalChoice);
  return true;
}

bool CElementInfo::WriteNil(CXmlWriter* writer) const {
  writer->StartElement(m_elementName, m_elementNamespace);
  writer->WriteNil();
  writer->EndElement();
  return true;
}

// A value that equals its default is not checked: the schema itself vouches for it.
bool CElementInfo::WriteValue(CXmlWriter* writer, KestVariant const& value,
                              std::u16string_view text, ItemType itemType, bool isChecked) const {
  bool const isDefault = !m_defaultValue.empty() && text == m_defaultValue;
  if (!isDefault && isChecked) CheckRestriction(value);
  writer->WriteTextElement(m_elementName, m_elementNamespace, text, itemType, isDefault);
  return true;
}

bool CElementInfo::ElementToXmlPrim(CSerializationContext const&, CXmlGeneratedClass const* owner,
                                    CXmlWriter* writer) const {
  KestVariant value;
  ReadProperty(owner, value);
  if (value.IsNil()) return WriteNil(writer);
  if (!value.IsValid()) return false;
  internal::ValueText const text(value, m_formatOverride);
  return WriteValue(writer, value, text, value.GetTypeAsEnum(), true);
}

bool CElementInfo::ElementToXmlEnum(CSerializationContext const&, CXmlGeneratedClass const* owner,
                                    CXmlWriter* writer, EnumToString enumToString) const {
  KestVariant value;
  ReadProperty(owner, value);
  if (value.IsNil()) return WriteNil(writer);
  if (!value.IsValid()) return false;
  return WriteValue(writer, value, ViewOf(enumToString(value.GetI4())), ItemType_string, false);
}

// What the element's attributes say of nil; they may say nothing else.
bool CElementInfo::ReadNil(CSerializationContext const& context, CXmlElement const& element) const {
  bool isNil = false;
  for (auto const* attribute : element.GetAttributes()) {
    if (attribute->IsNamespaceAttribute()) continue;
    if (!attribute->IsNilAttribute()) {
      if (context.GetIgnoreUnknownAttributes()) continue;
      throw CKestValidationException(u"Unexpected Attribute found.", attribute->GetXPath());
    }
    auto const said = internal::ReadNilText(attribute->GetValue());
    if (said == false) {
      isNil = false;
      continue;
    }
    if (!m_nillable) internal::ThrowNotNillable(element);
    if (!said) internal::ThrowUnexpectedNilText(*attribute);
    isNil = true;
  }
  return isNil;
}

std::u16string_view CElementInfo::TextOf(CXmlElement const& element) const {
  std::u16string_view const text = element.GetText();
  return text.empty() ? std::u16string_view(m_defaultValue) : text;
}

// A nil is not handed to the class: the property keeps what Init gave it.
template <typename Store>
void CElementInfo::ReadValue(CSerializationContext const& context, CXmlGeneratedClass* owner,
                             CXmlElement** current, Store store) const {
  CXmlElement const& element = **current;
  if (element.GetAttributes().empty() || !ReadNil(context, element)) {
    KestVariant value;
    store(TextOf(element), value);
    InvokePropertySet(owner, value, element);
  }
  *current = element.GetNextSiblingElement();
}

void CElementInfo::ElementFromXmlPrim(CSerializationContext const& context,
                                      CXmlGeneratedClass* owner, CXmlElement** current) const {
  ReadValue(context, owner, current, [this](std::u16string_view text, KestVariant& value) {
    value.FromString(text, m_itemType, m_whitespaceRule);
  });
}

void CElementInfo::ElementFromXmlEnum(CSerializationContext const& context,
                                      CXmlGeneratedClass* owner, CXmlElement** current) const {
  ReadValue(context, owner, current, [this](std::u16string_view text, KestVariant& value) {
    value.SetI4(m_stringToEnum(text.data()));
  });
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* element,
                                       CXmlElement* child, CSerializationContext const& context,
                                       bool isOptionalChoice) {
  return CXmlObjectBase::FromXml_Int(object, element, child, context, isOptionalChoice);
}

CXmlElement* CElementInfo::FromXmlLockElementName_Int(CElementCol* elements,
                                                      std::u16string_view name,
                                                      ElementRead const& read) {
  std::u16string_view const ns = read.current ? read.current->GetNamespaceURI() : u"";
  return elements->FromXmlLockElementName_Int(name, ns, read.parent, read.current, read.context,
                                              false);
}

void CElementInfo::AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                       CSerializationContext const& context) const {
  CXmlObjectBase::AttributesToXml_Int(object, writer, context);
}

}  // namespace KestXmlLib20Data
