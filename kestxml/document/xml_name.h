// An expanded name: a namespace URI and a local name, held once in a document.
#pragma once

#include <string_view>

namespace KestXmlLib20 {

class CXmlDocument;

/// Every element and attribute of a document that has the same URI and local name refers to the
/// same XmlName, and names with the same URI share its text, so that within one document pointers
/// can be compared in place of texts. Both texts are followed by a zero unit.
struct XmlName {
  std::u16string_view namespaceURI;
  std::u16string_view localName;
  CXmlDocument const* const* owner;  ///< where the document that uses the name is noted

  CXmlDocument const* GetDocument() const { return *owner; }
};

}  // namespace KestXmlLib20
