#include "kestxml/binding/attribute.h"

#include "kestxml/binding/internal/text_view.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::ViewOf;

CAttribute::CAttribute(char16_t const* name, char16_t const* value, char16_t const* ns)
    : m_name(ViewOf(name)), m_value(ViewOf(value)), m_namespace(ViewOf(ns)) {}

CAttribute::~CAttribute() = default;

void CAttribute::SetName(char16_t const* name) {
  m_name = ViewOf(name);
  FireOnChangeName();
}

void CAttribute::SetValue(char16_t const* value) {
  m_value = ViewOf(value);
  FireOnChangeText();
}

void CAttribute::SetNamespace(char16_t const* ns) {
  m_namespace = ViewOf(ns);
  FireOnChangeNamespace();
}

CSmartPtr<CAttribute> CAttribute::Clone() const {
  return new CAttribute(m_name.c_str(), m_value.c_str(), m_namespace.c_str());
}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool /*registerNamespaces*/,
                           char16_t const* /*namespaceUri*/,
                           CSerializationContext const& /*context*/,
                           bool /*isOptionalChoice*/) const {
  writer->WriteAttribute(m_name, m_namespace, m_value, ItemType_string);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement* /*element*/, CXmlElement* /*child*/,
                                     CSerializationContext const& /*context*/,
                                     bool /*isOptionalChoice*/) {
  throw CKestException(u"This should be done by the collection");
}

}  // namespace KestXmlLib20
