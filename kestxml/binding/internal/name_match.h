// Comparing names of a document with those that a class has.
#pragma once

#include <string_view>

#include "kestxml/values/same_text.h"

namespace KestXmlLib20::internal {

/// Whether @p node, an element or an attribute, has the expanded name.
template <typename Node>
bool HasName(Node const& node, std::u16string_view localName, std::u16string_view namespaceUri) {
  return IsSameText(node.GetLocalName(), localName) &&
         IsSameText(node.GetNamespaceURI(), namespaceUri);
}

/// The same, but the namespace does not count where @p context ignores namespaces.
template <typename Node, typename Context>
bool HasName(Node const& node, std::u16string_view localName, std::u16string_view namespaceUri,
             Context const& context) {
  return IsSameText(node.GetLocalName(), localName) &&
         (IsSameText(node.GetNamespaceURI(), namespaceUri) || context.GetIgnoreNamespaces());
}

}  // namespace KestXmlLib20::internal
