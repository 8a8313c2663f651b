#include "kestxml/document/namespace_alias_map.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

std::u16string_view ViewOf(char16_t const* text) {
  return text ? text : u"";
}

}  // namespace

CNamespaceAliasMap::CNamespaceAliasMap() = default;
CNamespaceAliasMap::CNamespaceAliasMap(CNamespaceAliasMap const&) = default;
CNamespaceAliasMap& CNamespaceAliasMap::operator=(CNamespaceAliasMap const&) = default;
CNamespaceAliasMap::~CNamespaceAliasMap() = default;

void CNamespaceAliasMap::Add(char16_t const* alias, char16_t const* uri) {
  m_aliases.insert_or_assign(std::u16string(ViewOf(uri)), ViewOf(alias));
}

void CNamespaceAliasMap::RemoveNamespace(char16_t const* uri) {
  auto const entry = m_aliases.find(ViewOf(uri));
  if (entry != m_aliases.end()) m_aliases.erase(entry);
}

std::u16string const& CNamespaceAliasMap::GetNamespaceFromAlias(char16_t const* alias) const {
  auto const entry = FindAlias(alias);
  if (entry == m_aliases.end()) {
    throw CKestException(FormatString(u"Namespace alias [%s] not found", ViewOf(alias)));
  }
  return entry->first;
}

// The entry that a miss leaves behind is part of the interface: programs see it in the count.
std::u16string const& CNamespaceAliasMap::GetAliasFromNamespace(char16_t const* uri) const {
  return m_aliases[std::u16string(ViewOf(uri))];
}

bool CNamespaceAliasMap::DoesNamespaceExist(char16_t const* uri) const {
  return m_aliases.contains(ViewOf(uri));
}

bool CNamespaceAliasMap::DoesAliasExist(char16_t const* alias) const {
  return FindAlias(alias) != m_aliases.end();
}

std::int32_t CNamespaceAliasMap::GetNamespaceCount() const {
  return static_cast<std::int32_t>(m_aliases.size());
}

std::u16string const& CNamespaceAliasMap::GetNamespaceAt(std::int32_t index) const {
  static std::u16string const none;
  std::int32_t const position = std::max(index, 0);
  if (position >= GetNamespaceCount()) return none;
  return std::next(m_aliases.begin(), position)->first;
}

CNamespaceAliasMap::AliasMap::const_iterator CNamespaceAliasMap::FindAlias(
    char16_t const* alias) const {
  return std::find_if(m_aliases.begin(), m_aliases.end(),
                      [&](auto const& entry) { return entry.second == ViewOf(alias); });
}

}  // namespace KestXmlLib20
