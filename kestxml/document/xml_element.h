// An element of the read-only tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "kestxml/document/xml_name.h"
#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

class CXmlAttribute;
class CXmlDocument;
namespace internal {
class CXmlTree;
}

/// Made by the load and owned by the document. The views that it gives live as long as the node
/// (the text of an element that is still open, as an element callback can see one: until more is
/// read) and are followed by a zero unit; what is absent is empty, never null.
class KESTXML_API CXmlElement {
 public:
  CXmlElement(CXmlElement const&) = delete;
  CXmlElement& operator=(CXmlElement const&) = delete;

  CXmlDocument const* GetDocument() const { return m_name->GetDocument(); }
  /// Null for the root.
  CXmlElement const* GetParentElm() const { return m_parent; }
  /// Null for the last child of its parent.
  CXmlElement* GetNextSiblingElement() const { return m_nextSibling; }
  /// The first child element; null when there is none.
  CXmlElement* GetFirstElement() const { return m_firstChild; }

  std::u16string_view GetNamespaceURI() const { return m_name->namespaceURI; }
  std::u16string_view GetLocalName() const { return m_name->localName; }
  XmlName const& GetName() const { return *m_name; }

  /// All character data directly inside the element in one text, white space included, whichever
  /// side of its child elements it stood on.
  std::u16string_view GetText() const { return {m_text, m_textLength}; }

  /// In document order.
  std::span<CXmlAttribute* const> GetAttributes() const {
    return {reinterpret_cast<CXmlAttribute* const*>(this + 1), m_attributeCount};
  }
  /// The value of the first attribute with both names, compared exactly; empty when there is none.
  std::u16string_view GetAttribute(std::u16string_view localName,
                                   std::u16string_view namespaceURI) const;

  /// Where the element stands, such as "/root/p:item[2]": a position from 1 where siblings have
  /// the same name. Prefixes are those of the document's alias map: the lowest that was bound to
  /// the URI anywhere, and none for a URI that was also a default namespace.
  std::u16string GetXPath() const;

 private:
  friend class internal::CXmlTree;
  CXmlElement(CXmlElement const* parent, XmlName const* name, std::uint32_t attributeCount)
      : m_parent(parent), m_name(name), m_attributeCount(attributeCount) {}

  CXmlElement const* m_parent;
  CXmlElement* m_nextSibling = nullptr;
  CXmlElement* m_firstChild = nullptr;
  XmlName const* m_name;
  char16_t const* m_text = u"";
  std::uint32_t m_textLength = 0;
  std::uint32_t m_attributeCount;
  // The pointers to the attributes stand right behind the object.
};

}  // namespace KestXmlLib20
