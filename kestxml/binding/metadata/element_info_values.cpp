#include "kestxml/binding/metadata/element_info_values.h"

#include "kestxml/binding/element.h"
#include "kestxml/binding/internal/call_levels.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20Data {

using namespace KestXmlLib20;

// ---------------------------------------------------------------------------- Prim

bool CPrimitiveElementInfo::Write(Group, CSerializationContext const& context,
                                  CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  return ElementToXmlPrim(context, owner, writer);
}

// A mandatory one in a group passes over unknown elements where they are ignored; an enumeration
// does not.
bool CPrimitiveElementInfo::Read(Group group, Occurrence occurrence, ElementRead const& read) {
  bool matches = IsThisElement(read.context, read.current);
  if (!matches && group == Group::Seq && occurrence == Occurrence::Mnd) {
    if (!read.IsOwnerGroup()) {
      if (!FindRequiredElement(read)) return true;
      matches = true;
    }
    while (!matches && read.context.GetIgnoreUnknownElements() && read.current) {
      read.current = internal::PassOver(*read.current);
      matches = IsThisElement(read.context, read.current);
    }
  }
  if (!matches) return group == Group::Seq && occurrence == Occurrence::Opt;
  ElementFromXmlPrim(read.context, read.owner, &read.current);
  return true;
}

// ---------------------------------------------------------------------------- Enum

bool CEnumElementInfo::Write(Group, CSerializationContext const& context,
                             CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  return ElementToXmlEnum(context, owner, writer, GetEnumToString());
}

bool CEnumElementInfo::Read(Group group, Occurrence occurrence, ElementRead const& read) {
  bool matches = IsThisElement(read.context, read.current);
  bool const isRequired =
      group == Group::Seq && occurrence == Occurrence::Mnd && !read.IsOwnerGroup();
  if (!matches && isRequired) {
    if (!FindRequiredElement(read)) return true;
    matches = true;
  }
  if (!matches) return group == Group::Seq && occurrence == Occurrence::Opt;
  ElementFromXmlEnum(read.context, read.owner, &read.current);
  return true;
}

// ---------------------------------------------------------------------------- Cls and AbsCls

void CObjectElementInfo::PseudoChildAttributeToXml(CSerializationContext const& context,
                                                   CXmlGeneratedClass const* owner,
                                                   CXmlWriter* writer) const {
  if (m_elementType != XmlElementType_PseudoElement) return;
  KestVariant value;
  ReadProperty(owner, value);
  if (auto const object = value.GetXmlObject()) AttributesToXml_Int(object.Get(), writer, context);
}

// Generated code makes the objects of mandatory properties in Init; one that is missing is an error
// of that code.
CSmartPtr<CXmlObjectBase> CObjectElementInfo::GetObject(CXmlGeneratedClass* owner) const {
  KestVariant value;
  InvokePropertyGet(owner, value);
  auto object = value.GetXmlObject();
  if (!object) ThrowMandatoryPropertyMissing();
  return object;
}

void CObjectElementInfo::SetObject(ElementRead const& read, CXmlObjectBase* object,
                                   CXmlElement const& element) const {
  KestVariant value;
  value.SetXmlObject(object);
  InvokePropertySet(read.owner, value, element);
}

void CObjectElementInfo::ReadFromElement(ElementRead const& read, CXmlObjectBase* object,
                                         bool isOptionalChoice) {
  FromXml_Int(object, read.current, read.current->GetFirstElement(), read.context,
              isOptionalChoice);
  read.current = read.current->GetNextSiblingElement();
}

CXmlElement* CObjectElementInfo::ReadFromParent(ElementRead const& read, CXmlObjectBase* object) {
  return FromXml_Int(object, read.parent, read.current, read.context, false);
}

// ---------------------------------------------------------------------------- Cls

// The child is told when it is the optional member of a choice.
bool CClassElementInfo::Write(Group group, CSerializationContext const& context,
                              CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  return ElementToXmlCls(context, owner, writer, group == Group::Choice);
}

bool CClassElementInfo::IsMissingTolerated() const {
  return GetElementType() != XmlElementType_PseudoElement && !m_hasMandatoryContent;
}

bool CClassElementInfo::Read(Group group, Occurrence occurrence, ElementRead const& read) {
  if (group == Group::Choice) return ReadInChoice(read);
  if (occurrence == Occurrence::Opt) return ReadOptional(group, read);
  if (group == Group::All) return ReadMandatoryInAll(read);
  return HasElement() ? ReadMandatoryInSequence(read) : ReadMandatoryGroup(read);
}

bool CClassElementInfo::ReadMandatoryInSequence(ElementRead const& read) {
  if (read.IsOwnerGroup()) {
    if (!IsThisElement(read.context, read.current)) return false;
  } else if (!FindRequiredElement(read)) {
    return true;
  }
  ReadFromElement(read, GetObject(read.owner).Get());
  return true;
}

bool CClassElementInfo::ReadMandatoryGroup(ElementRead const& read) {
  if (m_hasMandatoryContent && !read.current) {
    if (read.IsOwnerGroup()) return false;
    ThrowRequiredElementMissing(read);
  }
  CXmlElement* const next = ReadFromParent(read, GetObject(read.owner).Get());
  if (next == read.current) {
    if (m_hasMandatoryContent) {
      if (read.IsOwnerGroup()) return false;
      ThrowRequiredElementMissing(read);
    }
    // False makes the owner step over an unknown element and ask again.
    if (read.current && read.context.GetIgnoreUnknownElements() && !read.IsOwnerGroup()) {
      return false;
    }
  }
  read.current = next;
  return true;
}

bool CClassElementInfo::ReadMandatoryInAll(ElementRead const& read) {
  if (HasElement()) {
    if (!IsThisElement(read.context, read.current)) return false;
    ReadFromElement(read, GetObject(read.owner).Get());
    return true;
  }
  CXmlElement* const next = ReadFromParent(read, GetObject(read.owner).Get());
  bool const isRead = next != read.current;
  read.current = next;
  return isRead;
}

// The object is read first and stored after. In a sequence the entry is satisfied by nothing, in an
// all group only by an element.
bool CClassElementInfo::ReadOptional(Group group, ElementRead const& read) {
  bool const nothing = group == Group::Seq;
  bool const isThere =
      HasElement() ? IsThisElement(read.context, read.current) : read.current != nullptr;
  if (!isThere) return nothing;
  auto const object = Create();
  if (!object) return nothing;
  CXmlElement const& element = *read.current;
  if (HasElement()) {
    ReadFromElement(read, object.Get());
  } else {
    CXmlElement* const next = ReadFromParent(read, object.Get());
    if (next == read.current) return nothing;
    read.current = next;
  }
  SetObject(read, object.Get(), element);
  return true;
}

// The object is stored before it is read, so that the owner's selection is made at once; a group
// that took nothing takes the selection back.
bool CClassElementInfo::ReadInChoice(ElementRead const& read) {
  bool const isThere =
      HasElement() ? IsThisElement(read.context, read.current) : read.current != nullptr;
  if (!isThere) return false;
  auto const object = Create();
  if (!object) return false;
  CXmlElement const& element = *read.current;
  SetObject(read, object.Get(), element);
  if (HasElement()) {
    ReadFromElement(read, object.Get(), true);
    return true;
  }
  CXmlElement* const next = ReadFromParent(read, object.Get());
  if (next == read.current) {
    SetObject(read, nullptr, element);
    return false;
  }
  read.current = next;
  return true;
}

// ---------------------------------------------------------------------------- AbsCls

bool CAbstractClassElementInfo::Write(Group, CSerializationContext const& context,
                                      CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  return ElementToXmlCls(context, owner, writer, false);
}

// In sequences and choices the element's name decides before the factory is asked.
bool CAbstractClassElementInfo::Read(Group group, Occurrence occurrence, ElementRead const& read) {
  if (group == Group::All) return ReadInAll(read);
  auto const object = IsThisElement(read.context, read.current) ? m_factory(read.current)
                                                                : CSmartPtr<CXmlObjectBase>();
  if (object) {
    CXmlElement const& element = *read.current;
    if (group == Group::Choice) SetObject(read, object.Get(), element);
    ReadFromElement(read, object.Get());
    if (group == Group::Seq) SetObject(read, object.Get(), element);
    return true;
  }
  if (group == Group::Choice) return false;
  if (occurrence == Occurrence::Opt) return true;
  if (read.IsOwnerGroup()) return false;
  // What the context tolerates does not count here, unlike for an entry of one known class.
  throw CKestValidationException(
      FormatString(u"Failed to find a suitable substitution element for [%s].", GetElementName()),
      read.parent->GetXPath());
}

// Without an element of its own the object reads from the current element on, whatever its name.
bool CAbstractClassElementInfo::ReadInAll(ElementRead const& read) {
  bool const isThere =
      HasElement() ? IsThisElement(read.context, read.current) : read.current != nullptr;
  auto const object = isThere ? m_factory(read.current) : CSmartPtr<CXmlObjectBase>();
  if (!object) return false;
  CXmlElement const& element = *read.current;
  if (HasElement()) {
    ReadFromElement(read, object.Get());
  } else {
    CXmlElement* const next = ReadFromParent(read, object.Get());
    if (next == read.current) return false;
    read.current = next;
  }
  SetObject(read, object.Get(), element);
  return true;
}

// ---------------------------------------------------------------------------- Untpd

CWildcardElementInfo::CWildcardElementInfo(char16_t const* name, char16_t const* ns,
                                           std::int32_t propertyIndex,
                                           char16_t const* namespaceRestriction,
                                           char16_t const* targetNamespace)
    : CElementInfo(name, ns, propertyIndex),
      m_namespaceRestriction(internal::ViewOf(namespaceRestriction)),
      m_targetNamespace(internal::ViewOf(targetNamespace)) {}

bool CWildcardElementInfo::Write(Group, CSerializationContext const& context,
                                 CXmlGeneratedClass const* owner, CXmlWriter* writer) const {
  return ElementToXmlCls(context, owner, writer, false);
}

bool CWildcardElementInfo::Read(Group group, Occurrence occurrence, ElementRead const& read) {
  return occurrence == Occurrence::Mnd ? ReadMandatory(group, read) : ReadOptional(group, read);
}

bool CWildcardElementInfo::TakesName(CXmlElement const& element) const {
  return GetElementName() == u"AnyElement" || GetElementName() == element.GetLocalName();
}

// True when the object took the current element, which is then passed.
bool CWildcardElementInfo::ReadInto(ElementRead const& read, CXmlObjectBase* object) const {
  if (!TakesName(*read.current)) return false;
  CXmlElement* const next = FromXml_Int(object, read.parent, read.current, read.context, false);
  bool const isRead = next != read.current;
  read.current = next;
  return isRead;
}

bool CWildcardElementInfo::ReadMandatory(Group group, ElementRead const& read) {
  if (!read.current) {
    if (group == Group::All) return false;
    ThrowRequiredElementMissing(read);
  }
  KestVariant value;
  InvokePropertyGet(read.owner, value);
  auto const object = value.GetXmlObject();
  if (!object) ThrowMandatoryPropertyMissing();
  if (ReadInto(read, object.Get())) return true;
  if (group == Group::All || read.IsOwnerGroup()) return false;
  throw CKestValidationException(
      FormatString(u"Failed to find the required element from namespace [%s].",
                   GetElementNamespace()),
      read.parent->GetXPath());
}

bool CWildcardElementInfo::ReadOptional(Group group, ElementRead const& read) {
  bool const nothing = group == Group::Seq;
  if (!read.current) return nothing;
  CXmlElement const& element = *read.current;
  std::u16string const ns = GetAnyDefaultNamespace(m_namespaceRestriction.c_str(),
                                                   read.ownerNamespace, m_targetNamespace.c_str());
  CSmartPtr<CXmlObjectBase> object(new CElement(GetElementName().c_str(), ns.c_str(),
                                                m_namespaceRestriction.c_str(),
                                                m_targetNamespace.c_str()));
  bool const isRead = ReadInto(read, object.Get());
  // In a choice nothing takes back the selection that the property may have made.
  if (!isRead && group != Group::Choice) return nothing;
  KestVariant value;
  value.SetXmlObject(isRead ? object.Get() : nullptr);
  InvokePropertySet(read.owner, value, element);
  return isRead;
}

}  // namespace KestXmlLib20Data
