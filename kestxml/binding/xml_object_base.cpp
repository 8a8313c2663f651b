#include "kestxml/binding/xml_object_base.h"

#include "kestxml/binding/internal/name_match.h"
#include "kestxml/binding/internal/namespace_restriction.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/internal/version_guard.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::ViewOf;

CXmlObjectBase::CXmlObjectBase() {
  internal::CheckVersionOfFirstObject();
}

CXmlObjectBase::CXmlObjectBase(CXmlObjectBase const& other)
    : IEventSink(other), m_elementName(other.m_elementName), m_refCount(other.m_refCount.load()) {}

CXmlObjectBase& CXmlObjectBase::operator=(CXmlObjectBase const& other) {
  m_elementName = other.m_elementName;
  m_refCount = other.m_refCount.load();
  return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

// What other threads did to the object before they let go of it comes before its destruction.
std::int32_t CXmlObjectBase::Release() {
  std::int32_t const before = m_refCount.fetch_sub(1, std::memory_order_acq_rel);
  if (before == 1) delete this;
  return before - 1;
}

void CXmlObjectBase::OnEvent(CXmlObjectBase* /*sender*/, MsgType /*type*/, void* /*data*/) {}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter* /*writer*/,
                                         CSerializationContext const& /*context*/) const {}

void CXmlObjectBase::AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                         CSerializationContext const& context) {
  object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                               bool registerNamespaces, char16_t const* namespaceUri,
                               CSerializationContext const& context, bool isOptionalChoice) {
  object->ToXml_Int(writer, registerNamespaces, namespaceUri, context, isOptionalChoice);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* element,
                                         CXmlElement* child, CSerializationContext const& context,
                                         bool isOptionalChoice) {
  return object->FromXml_Int(element, child, context, isOptionalChoice);
}

void CXmlObjectBase::SetElementName(CXmlObjectBase* object, char16_t const* name) {
  std::u16string_view const text = ViewOf(name);
  if (!IsSameText(object->m_elementName, text)) object->m_elementName = text;
}

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, char16_t const* name) {
  if (value) return;
  throw CKestInvalidParamException(
      FormatString(u"The Property [%s] is mandatory, it may node be NULL", ViewOf(name)));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, char16_t const* name) {
  if (!value) return;
  std::u16string const& actual = value->GetBase()->m_elementName;
  if (actual == ViewOf(name)) return;
  throw CKestInvalidParamException(
      FormatString(u"This property requires an element with the name %s the element being set has "
                   u"the element name %s",
                   ViewOf(name), actual));
}

bool CXmlObjectBase::IsNamespaceValid(char16_t const* ns, char16_t const* restriction,
                                      char16_t const* target) {
  return internal::IsNamespaceValid(ViewOf(ns), ViewOf(restriction), ViewOf(target));
}

void CXmlObjectBase::TestNamespace(char16_t const* ns, char16_t const* restriction,
                                   char16_t const* target) {
  internal::TestNamespace(ViewOf(ns), ViewOf(restriction), ViewOf(target));
}

bool CXmlObjectBase::DoesElementNameMatch(CSerializationContext const& context,
                                          CXmlElement const* element, char16_t const* name,
                                          char16_t const* ns) {
  return internal::HasName(*element, ViewOf(name), ViewOf(ns), context);
}

}  // namespace KestXmlLib20
