#include "kestxml/binding/class_factory_base.h"

#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_namespaces.h"

namespace KestXmlLib20 {
namespace {

std::u16string_view TypeOf(CXmlElement const& element) {
  return element.GetAttribute(u"type", kXmlSchemaInstanceNamespace);
}

}  // namespace

std::u16string CClassfactoryBase::GetElementType(CXmlElement* element) {
  std::u16string_view const type = TypeOf(*element);
  auto const colon = type.find(u':');
  return std::u16string(colon == type.npos ? type : type.substr(colon + 1));
}

std::u16string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
  std::u16string_view const type = TypeOf(*element);
  auto const colon = type.find(u':');
  if (colon != type.npos) {
    auto uri = element->GetDocument()->LookupNamespaceFromAlias(type.substr(0, colon));
    if (!uri.empty()) return uri;
  }
  return std::u16string(element->GetNamespaceURI());
}

}  // namespace KestXmlLib20
