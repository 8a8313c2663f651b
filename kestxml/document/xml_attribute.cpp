#include "kestxml/document/xml_attribute.h"

#include <algorithm>

#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_namespaces.h"

namespace KestXmlLib20 {
namespace {

constexpr std::u16string_view kAboutTheDocument[] = {u"xmlns", u"type", u"schemaLocation",
                                                     u"noNamespaceSchemaLocation"};

bool IsAboutTheDocument(XmlName const& name) {
  return name.namespaceURI == kXmlSchemaInstanceNamespace || name.namespaceURI == kXmlnsNamespace;
}

}  // namespace

std::u16string CXmlAttribute::GetXPath() const {
  std::u16string path = m_element->GetXPath();
  path += u'/';
  if (!m_name->namespaceURI.empty()) {
    auto const prefix = m_name->GetDocument()->LookupAliasFromNamespace(m_name->namespaceURI);
    if (!prefix.empty()) path.append(prefix).append(u":");
  }
  return path.append(u"@").append(m_name->localName);
}

bool CXmlAttribute::IsNamespaceAttribute() const {
  return IsAboutTheDocument(*m_name) &&
         std::ranges::find(kAboutTheDocument, m_name->localName) != std::end(kAboutTheDocument);
}

bool CXmlAttribute::IsNilAttribute() const {
  return IsAboutTheDocument(*m_name) && m_name->localName == u"nil";
}

}  // namespace KestXmlLib20
