// How a generated class is read: its attributes, then its child elements as its group says.

#include "kestxml/binding/internal/call_levels.h"
#include "kestxml/binding/internal/flag_set.h"
#include "kestxml/binding/internal/nil_text.h"
#include "kestxml/binding/metadata/attribute_info.h"
#include "kestxml/binding/metadata/element_info.h"
#include "kestxml/binding/metadata/parent_element_info.h"
#include "kestxml/binding/nillable.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20 {

using namespace KestXmlLib20Data;
using internal::FlagSet, internal::PassOver;

namespace {

template <typename Entry>
std::size_t CountEntries(Entry* const* table) {
  std::size_t count = 0;
  while (table[count]) ++count;
  return count;
}

[[noreturn]] void ThrowUnprocessed(CXmlElement const& element, CXmlElement const& current) {
  throw CKestValidationException(
      FormatString(u"Failed read all the elements held within the element [%s]. The unexpected "
                   u"element [%s] remains unprocessed",
                   element.GetLocalName(), current.GetLocalName()),
      element.GetXPath());
}

}  // namespace

struct CXmlGeneratedClass::Content {
  CSerializationContext const& context;
  CXmlGeneratedClass& owner;
  CXmlElement* element;
  XmlElementType elementType;
  char16_t const* ownerNamespace;
  internal::ReadLevel level;

  bool HasElement() const { return elementType == XmlElementType_Element; }
  bool Read(CElementInfo& entry, CXmlElement*& current) const {
    return entry.ElementFromXml(context, &owner, element, &current, ownerNamespace, elementType);
  }
  // As far as the parent can tell, nothing was read.
  CXmlElement* GiveBack(CXmlElement* child) const {
    level.Abandon();
    return child;
  }
};

// The innermost level that has an element names the place. A failure that has a place already
// surfaces as the family's base class on every level above: callers rely on both.
CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* child,
                                             CSerializationContext const& context,
                                             bool isOptionalChoice) {
  try {
    return ReadElement(element, child, context, isOptionalChoice);
  } catch (CKestException const& failure) {
    if (!failure.GetPath().empty()) throw CKestException(failure);
    throw CKestValidationException(u"Failed to process the element.", element->GetXPath(), failure);
  }
}

CXmlElement* CXmlGeneratedClass::ReadElement(CXmlElement* element, CXmlElement* child,
                                             CSerializationContext const& context,
                                             bool isOptionalChoice) {
  Init();
  CParentElementInfo const& info = *GetClassInfo();
  XmlElementType const type = info.GetElementType();
  Content const content{context,
                        *this,
                        element,
                        type,
                        GetNamespace().data(),
                        {type != XmlElementType_Element, context, element}};
  // The name that was read is kept, be it that of a substitution or of a derived type.
  if (content.HasElement()) SetElementName(element->GetLocalName().data());
  ProcessAttributesFromXml(context, element, info.GetFromXmlFailIfAttributeUnknown());
  if (IsNilObject()) return child;
  switch (info.GetGroupType()) {
    case XmlElementGroupType_Sequence:
      child = ProcessElementSeqFromXml(content, child);
      break;
    case XmlElementGroupType_All:
      child = ProcessElementAllFromXml(content, child);
      break;
    case XmlElementGroupType_Choice:
      child = ProcessElementChoiceFromXml(content, child, isOptionalChoice);
      break;
    default:
      throw CKestException(u"Unknown Group Type");
  }
  if (info.HasSimpleContent()) ReadSimpleContent(info, *element);
  return child;
}

void CXmlGeneratedClass::ReadSimpleContent(CParentElementInfo const& info,
                                           CXmlElement const& element) {
  KestVariant value;
  if (info.GetOutputPrimitiveClassAsTextProperty()) {
    value.SetString(std::u16string(element.GetText()));
  } else {
    value.FromString(element.GetText(), info.GetItemType(), info.GetWhitespaceRule());
  }
  AccessProperty(info.GetPrimitiveValuePropertyIndex(), false, value);
}

void CXmlGeneratedClass::ReadNil(CXmlAttribute const& attribute, CXmlElement const& element) {
  auto* const nillable = FindNillable();
  if (!nillable) internal::ThrowNotNillable(element);
  auto const said = internal::ReadNilText(attribute.GetValue());
  if (!said) internal::ThrowUnexpectedNilText(attribute);
  nillable->SetNil(*said);
}

void CXmlGeneratedClass::ProcessAttributesFromXml(CSerializationContext const& context,
                                                  CXmlElement* element,
                                                  bool failIfAttributeUnknown) {
  CAttributeInfo** const table = GetClassAttributeInfo();
  std::size_t const count = CountEntries(table);
  FlagSet found(count);
  for (CXmlAttribute* const attribute : element->GetAttributes()) {
    if (attribute->IsNamespaceAttribute()) continue;
    if (attribute->IsNilAttribute()) {
      ReadNil(*attribute, *element);
      continue;
    }
    std::size_t taker = 0;
    while (taker < count && !table[taker]->AttributeFromXml(context, this, attribute)) ++taker;
    if (taker < count) {
      found.Set(taker);
    } else if (failIfAttributeUnknown && !context.GetIgnoreUnknownAttributes()) {
      throw CKestValidationException(u"Unexpected Attribute found.", attribute->GetXPath());
    }
  }
  for (std::size_t i = 0; i < count; ++i) table[i]->Validate(context, found[i]);
}

// With unknown elements ignored, the last entry alone gets another chance at what is left: it has
// always been so, and documents that are read rely on it.
CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(Content const& content,
                                                          CXmlElement* child) {
  CElementInfo** const table = GetClassElementInfo();
  std::size_t const count = CountEntries(table);
  bool const ignoreUnknown = content.context.GetIgnoreUnknownElements();
  CXmlElement* current = child;
  std::size_t index = 0;
  while (true) {
    while (index < count) {
      if (content.Read(*table[index], current)) {
        ++index;
      } else if (ignoreUnknown && current) {
        current = PassOver(*current);
      } else {
        return content.GiveBack(child);
      }
    }
    // A group leaves what it did not use to its parent.
    if (!content.HasElement() || !current) return current;
    if (!ignoreUnknown) ThrowUnprocessed(*content.element, *current);
    current = PassOver(*current);
    if (!current) return nullptr;
    index = count == 0 ? 0 : count - 1;
  }
}

// An entry that found its element drops out, so a second one is unexpected.
CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(Content const& content,
                                                          CXmlElement* child) {
  CElementInfo** const table = GetClassElementInfo();
  std::size_t const count = CountEntries(table);
  FlagSet found(count);
  CXmlElement* current = child;
  while (current) {
    CXmlElement* const previous = current;
    for (std::size_t i = 0; i < count; ++i) {
      if (!found[i] && content.Read(*table[i], current)) found.Set(i);
    }
    if (current != previous) continue;
    if (content.HasElement() && !content.context.GetIgnoreUnknownElements()) {
      ThrowUnprocessed(*content.element, *current);
    }
    current = PassOver(*current);
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (!table[i]->Validate(content.context, this, found[i], content.HasElement())) {
      return content.GiveBack(child);
    }
  }
  return current;
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(Content const& content,
                                                             CXmlElement* child,
                                                             bool isOptionalChoice) {
  bool const ignoreUnknown = content.context.GetIgnoreUnknownElements();
  bool const maySkip = ignoreUnknown && content.HasElement();
  CXmlElement* current = child;
  bool found = false;
  do {
    for (CElementInfo** entry = GetClassElementInfo(); *entry && !found; ++entry) {
      found = content.Read(**entry, current);
    }
    if (!found && maySkip && current) current = PassOver(*current);
  } while (!found && maySkip && current);

  bool const isSatisfied = found || isOptionalChoice;
  if (!content.HasElement()) {
    bool const goesBack =
        !isSatisfied && ignoreUnknown && content.elementType == XmlElementType_PseudoElement;
    return goesBack ? child : current;
  }
  if (!isSatisfied && !DoesElementContainOptionalElements() &&
      !content.context.GetIgnoreMissingChoice()) {
    throw CKestValidationException(
        FormatString(
            u"No child elements within the element [%s] were populated. The element represents a "
            u"choice, so one and only one element should be populated. The element contained no "
            u"sutable child elements",
            content.element->GetLocalName()),
        content.element->GetXPath());
  }
  if (current && !ignoreUnknown) ThrowUnprocessed(*content.element, *current);
  return current;
}

}  // namespace KestXmlLib20
