// Preferred namespace prefixes.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// The prefixes, here called aliases, that a written document uses and declares on its root, in
/// place of generated ones. Each URI has one alias; nothing keeps two URIs from having the same. A
/// null text is an empty one.
class KESTXML_API CNamespaceAliasMap {
 public:
  /// From URI to alias, ordered by the 16-bit units of the URI.
  using AliasMap = std::map<std::u16string, std::u16string, std::less<>>;

  CNamespaceAliasMap();
  CNamespaceAliasMap(CNamespaceAliasMap const&);
  CNamespaceAliasMap& operator=(CNamespaceAliasMap const&);
  virtual ~CNamespaceAliasMap();

  /// Replaces an earlier alias of @p uri.
  void Add(char16_t const* alias, char16_t const* uri);
  void RemoveNamespace(char16_t const* uri);

  /// The first URI, in the order of the map, that has @p alias.
  /// @throws CKestException when there is none.
  std::u16string const& GetNamespaceFromAlias(char16_t const* alias) const;
  /// For a URI that has no alias this adds it with an empty one, and gives that: GetNamespaceCount
  /// then grows. So no two threads may call it at a time, constant as it is.
  std::u16string const& GetAliasFromNamespace(char16_t const* uri) const;
  bool DoesNamespaceExist(char16_t const* uri) const;
  bool DoesAliasExist(char16_t const* alias) const;

  std::int32_t GetNamespaceCount() const;
  /// The URI at @p index in the order of the map: the first for a negative index, and empty beyond
  /// the last. To visit all, walk the map instead.
  std::u16string const& GetNamespaceAt(std::int32_t index) const;

  AliasMap::const_iterator begin() const { return m_aliases.begin(); }
  AliasMap::const_iterator end() const { return m_aliases.end(); }

 private:
  AliasMap::const_iterator FindAlias(char16_t const* alias) const;

  mutable AliasMap m_aliases;
};

}  // namespace KestXmlLib20
