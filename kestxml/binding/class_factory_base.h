// What a generated class factory looks at.
#pragma once

#include <string>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

class CXmlElement;

/// The base of generated factories, which choose the class for an element from its xsi:type, or
/// from its name where it has none.
class KESTXML_API CClassfactoryBase {
 public:
  virtual ~CClassfactoryBase() = default;

 protected:
  CClassfactoryBase() = default;
  CClassfactoryBase(CClassfactoryBase const&) = default;
  CClassfactoryBase& operator=(CClassfactoryBase const&) = default;

  /// The local part of xsi:type, all behind its first colon; empty without the attribute.
  static std::u16string GetElementType(CXmlElement* element);
  /// The namespace of xsi:type. Without the attribute, without a prefix in it and with a prefix
  /// that the document does not declare, it is that of the element itself.
  static std::u16string GetElementTypeNamespaceUri(CXmlElement* element);
};

}  // namespace KestXmlLib20
