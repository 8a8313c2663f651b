// An attribute of the read-only tree.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/document/xml_name.h"
#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

class CXmlElement;
namespace internal {
class CXmlTree;
}

/// Made by the load and owned by the document. The views that it gives live as long as the
/// document's tree and are followed by a zero unit; what is absent is empty, never null.
class KESTXML_API CXmlAttribute {
 public:
  CXmlAttribute(CXmlAttribute const&) = delete;
  CXmlAttribute& operator=(CXmlAttribute const&) = delete;

  /// The namespace of a prefixed name; empty for a name without prefix.
  std::u16string_view GetNamespaceURI() const { return m_name->namespaceURI; }
  std::u16string_view GetLocalName() const { return m_name->localName; }
  /// The value after attribute-value normalization (XML 1.0, 3.3.3).
  std::u16string_view GetValue() const {
    return {reinterpret_cast<char16_t const*>(this + 1), m_valueLength};
  }
  XmlName const& GetName() const { return *m_name; }
  CXmlElement const* GetElement() const { return m_element; }

  /// Where the attribute stands, such as "/root/item[2]/@id". A prefix stands before the "@":
  /// "/root/item[2]/p:@id".
  std::u16string GetXPath() const;

  /// True for what the XML Schema instance and xmlns namespaces say about the document itself:
  /// "type", "schemaLocation", "noNamespaceSchemaLocation", "xmlns". "nil" is not among them.
  bool IsNamespaceAttribute() const;
  /// True for "nil" of the same namespaces, whatever its value.
  bool IsNilAttribute() const;

 private:
  friend class internal::CXmlTree;
  CXmlAttribute(CXmlElement const* element, XmlName const* name, std::uint32_t valueLength)
      : m_element(element), m_name(name), m_valueLength(valueLength) {}

  CXmlElement const* m_element;
  XmlName const* m_name;
  std::uint32_t m_valueLength;
  // The value's units and a zero unit stand right behind the object.
};

}  // namespace KestXmlLib20
