// The namespaces in force in a part of a document that is being written.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/document/internal/same_text.h"
#include "kestxml/document/xml_writer.h"

namespace KestXmlLib20::internal {

/// A default namespace and a map from URI to prefix, shared by an element and the elements in it
/// that change neither.
class NamespaceScope {
 public:
  NamespaceScope(std::u16string_view defaultNamespace, CXmlWriter::NamespaceMap const& namespaces)
      : m_defaultNamespace(defaultNamespace), m_namespaces(namespaces) {}
  NamespaceScope(NamespaceScope const&) = delete;
  NamespaceScope& operator=(NamespaceScope const&) = delete;

  std::u16string const& GetDefaultNamespace() const { return m_defaultNamespace; }
  void SetDefaultNamespace(std::u16string_view uri) { m_defaultNamespace = uri; }

  CXmlWriter::NamespaceMap const& GetNamespaces() const { return m_namespaces; }
  /// The stored prefix, valid until the next SetPrefix.
  std::u16string const& SetPrefix(std::u16string_view uri, std::u16string_view prefix) {
    return m_namespaces.insert_or_assign(std::u16string(uri), prefix).first->second;
  }
  /// Null when @p uri has no prefix.
  std::u16string const* FindPrefix(std::u16string_view uri) {
    if (!m_pLastFound || !IsSameText(m_pLastFound->first, uri)) {
      auto const found = m_namespaces.find(uri);
      if (found == m_namespaces.end()) return nullptr;
      m_pLastFound = &*found;
    }
    return &m_pLastFound->second;
  }

 private:
  std::u16string m_defaultNamespace;
  CXmlWriter::NamespaceMap m_namespaces;
  // Most look-ups ask for the URI of the one before. Entries are never removed.
  CXmlWriter::NamespaceMap::value_type const* m_pLastFound = nullptr;
};

}  // namespace KestXmlLib20::internal
