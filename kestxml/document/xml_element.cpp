#include "kestxml/document/xml_element.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/values/format_string.h"

namespace KestXmlLib20 {
namespace {

// The prefixes of one path. Each URI is looked up once, since a look-up walks the alias map.
class Prefixes {
 public:
  std::u16string const& Of(XmlName const& name) {
    if (name.namespaceURI.empty()) return m_none;
    auto const [at, isNew] = m_prefixes.try_emplace(name.namespaceURI.data());
    if (isNew) at->second = name.GetDocument()->LookupAliasFromNamespace(name.namespaceURI);
    return at->second;
  }

 private:
  std::u16string const m_none;
  std::unordered_map<char16_t const*, std::u16string> m_prefixes;
};

// True when both names print alike in a path, which names of different URIs may.
bool SameQName(XmlName const& a, XmlName const& b, Prefixes& prefixes) {
  if (&a == &b) return true;
  return a.localName == b.localName && prefixes.Of(a) == prefixes.Of(b);
}

// The element's position among the siblings that print alike, from 1; 0 when it is the only one.
std::int32_t PositionAmongNamesakes(CXmlElement const& element, Prefixes& prefixes) {
  std::int32_t position = 0;
  bool met = false;
  auto const* sibling = element.GetParentElm()->GetFirstElement();
  for (; sibling; sibling = sibling->GetNextSiblingElement()) {
    if (!SameQName(sibling->GetName(), element.GetName(), prefixes)) continue;
    if (met) return position;
    ++position;
    met = sibling == &element;
  }
  return position > 1 ? position : 0;
}

void AppendStep(std::u16string& path, CXmlElement const& element, Prefixes& prefixes) {
  path += u'/';
  if (auto const& prefix = prefixes.Of(element.GetName()); !prefix.empty()) {
    path.append(prefix).append(u":");
  }
  path += element.GetLocalName();
  if (!element.GetParentElm()) return;
  if (auto const position = PositionAmongNamesakes(element, prefixes)) {
    path += FormatString(u"[%ld]", position);
  }
}

}  // namespace

std::u16string_view CXmlElement::GetAttribute(std::u16string_view localName,
                                              std::u16string_view namespaceURI) const {
  for (auto const* attribute : GetAttributes()) {
    if (attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == namespaceURI) {
      return attribute->GetValue();
    }
  }
  return u"";
}

std::u16string CXmlElement::GetXPath() const {
  std::vector<CXmlElement const*> ancestors;
  for (auto const* element = this; element; element = element->m_parent) {
    ancestors.push_back(element);
  }
  Prefixes prefixes;
  std::u16string path;
  std::for_each(ancestors.rbegin(), ancestors.rend(),
                [&](auto const* element) { AppendStep(path, *element, prefixes); });
  return path;
}

}  // namespace KestXmlLib20
