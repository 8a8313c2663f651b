// How a generated class is written: what belongs to the root, the start tag, then the content.

#include "kestxml/binding/attribute_col.h"
#include "kestxml/binding/internal/call_levels.h"
#include "kestxml/binding/internal/value_text.h"
#include "kestxml/binding/metadata/attribute_info.h"
#include "kestxml/binding/metadata/element_info.h"
#include "kestxml/binding/metadata/parent_element_info.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20 {

using namespace KestXmlLib20Data;

namespace {

// What the context wants in front of the root element and declared by it.
void WriteProlog(CXmlWriter& writer, CSerializationContext const& context) {
  for (std::u16string const& instruction : context.GetProcessingInstructions()) {
    writer.WriteProcessingInstruction(instruction);
  }
  for (auto const& [uri, alias] : context.GetNamespaceAliases()) {
    writer.AddNamespace(alias, uri);
  }
  if (!context.GetDefaultNamespaceURI().empty()) {
    writer.SetDefaultNamespace(context.GetDefaultNamespaceURI());
  }
}

}  // namespace

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool registerNamespaces,
                                   char16_t const* namespaceUri,
                                   CSerializationContext const& context,
                                   bool isOptionalChoice) const {
  try {
    WriteElement(writer, registerNamespaces, namespaceUri, context, isOptionalChoice);
  } catch (CKestException const& failure) {
    throw CKestValidationException(
        FormatString(u"Failed to convert the element [%s] to XML", GetElementName()), u"", failure);
  }
}

// A class without an element of its own writes neither tags nor attributes.
void CXmlGeneratedClass::WriteElement(CXmlWriter* writer, bool registerNamespaces,
                                      char16_t const* namespaceUri,
                                      CSerializationContext const& context,
                                      bool isOptionalChoice) const {
  bool const hasElement = GetClassInfo()->GetElementType() == XmlElementType_Element;
  internal::GroupLevel const level(!hasElement, context, nullptr);
  if (hasElement) {
    WriteStartTag(writer, registerNamespaces, namespaceUri, context, isOptionalChoice);
  }
  if (IsNilObject()) {
    writer->WriteNil();
  } else {
    WriteContent(writer, context, isOptionalChoice);
    if (GetClassInfo()->HasSimpleContent()) WriteSimpleContent(writer);
  }
  if (hasElement) writer->EndElement();
}

void CXmlGeneratedClass::WriteStartTag(CXmlWriter* writer, bool registerNamespaces,
                                       char16_t const* namespaceUri,
                                       CSerializationContext const& context,
                                       bool isOptionalChoice) const {
  if (registerNamespaces) WriteProlog(*writer, context);
  writer->StartElement(GetElementName(), namespaceUri);
  // Not made when there are none, so that threads can write with one context.
  CAttributeCol const* const more =
      registerNamespaces ? context.FindAdditionalRootAttributes() : nullptr;
  if (more) {
    CXmlObjectBase::ToXml_Int(more, writer, false, namespaceUri, context, isOptionalChoice);
  }
  AttributesToXml_Int(writer, context);
  if (registerNamespaces && !context.GetInLineSchema().empty()) {
    writer->WriteRawAttributes(context.GetInLineSchema());
  }
}

void CXmlGeneratedClass::WriteContent(CXmlWriter* writer, CSerializationContext const& context,
                                      bool isOptionalChoice) const {
  switch (GetClassInfo()->GetGroupType()) {
    case XmlElementGroupType_Sequence:
    case XmlElementGroupType_All:
      return ProcessElementsToXml(context, writer);
    case XmlElementGroupType_Choice:
      return ProcessElementChoiceToXml(context, writer, isOptionalChoice);
    default:
      throw CKestException(u"Unknown XML Group Type");
  }
}

void CXmlGeneratedClass::WriteSimpleContent(CXmlWriter* writer) const {
  CParentElementInfo const& info = *GetClassInfo();
  KestVariant value;
  ReadProperty(info.GetPrimitiveValuePropertyIndex(), value);
  if (value.IsNil()) {
    writer->WriteNil();
  } else {
    writer->WriteText(internal::ValueText(value, info.GetPrimitiveFormatOverride()),
                      value.GetTypeAsEnum(), false);
  }
}

void CXmlGeneratedClass::ProcessElementsToXml(CSerializationContext const& context,
                                              CXmlWriter* writer) const {
  for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry) {
    (*entry)->ElementToXml(context, this, writer);
  }
}

// One member of a choice is written, the first that has a value.
void CXmlGeneratedClass::ProcessElementChoiceToXml(CSerializationContext const& context,
                                                   CXmlWriter* writer,
                                                   bool isOptionalChoice) const {
  for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry) {
    if ((*entry)->ElementToXml(context, this, writer)) return;
  }
  if (DoesElementContainOptionalElements() || isOptionalChoice ||
      context.GetIgnoreMissingChoice()) {
    return;
  }
  throw CKestValidationException(
      u"This element is a choice, and as such must have at one (and only one) valid item, "
      u"currently there are none set",
      u"");
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer,
                                             CSerializationContext const& context) const {
  bool const hasElement = GetClassInfo()->GetElementType() == XmlElementType_Element;
  internal::GroupLevel const level(!hasElement, context, nullptr);
  try {
    if (context.GetWriteTypeAttribute()) WriteTypeAttribute(writer);
    ProcessAttributesToXml(context, writer);
  } catch (CKestException const& failure) {
    throw CKestException(u"Failed to convert attributes to XML", failure);
  }
}

// An object that stands under another name than its class's own stands in for one of a base type.
void CXmlGeneratedClass::WriteTypeAttribute(CXmlWriter* writer) const {
  CParentElementInfo const& info = *GetClassInfo();
  if (!info.GetHasBaseClasses() || info.GetElementName() == GetElementName()) return;
  writer->WriteTypeAttribute(info.GetElementNamespace(), info.GetElementName(), ItemType_string);
}

// The second pass brings the attributes of children without elements into their parent's tag.
void CXmlGeneratedClass::ProcessAttributesToXml(CSerializationContext const& context,
                                                CXmlWriter* writer) const {
  for (CAttributeInfo** entry = GetClassAttributeInfo(); *entry; ++entry) {
    (*entry)->AttributeToXml(context, this, writer);
  }
  for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry) {
    (*entry)->PseudoChildAttributeToXml(context, this, writer);
  }
}

}  // namespace KestXmlLib20
