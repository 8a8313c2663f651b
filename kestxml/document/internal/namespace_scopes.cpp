#include "kestxml/document/internal/namespace_scopes.h"

#include "kestxml/values/same_text.h"

namespace KestXmlLib20::internal {

void NamespaceScopes::Begin(std::u16string_view defaultNamespace, NamespaceMap const& namespaces) {
  End(1);
  m_prefixes.clear();
  m_aliases = {};
  m_lastFound = nullptr;
  m_defaults.resize(1);
  m_defaults.back().text = defaultNamespace;
  for (auto const& [uri, prefix] : namespaces) SetPrefix(0, uri, prefix);
}

std::u16string const* NamespaceScopes::SeenFrom(std::uint32_t level, Prefixes const& prefixes) {
  auto latest = prefixes.rbegin();
  while (latest != prefixes.rend() && latest->level > level) ++latest;
  return latest == prefixes.rend() ? nullptr : &latest->text;
}

std::u16string const* NamespaceScopes::FindPrefix(std::uint32_t level,
                                                  std::u16string_view uri) const {
  if (!m_lastFound || !IsSameText(m_lastFound->first, uri)) {
    auto const found = m_prefixes.find(uri);
    if (found == m_prefixes.end()) return nullptr;
    m_lastFound = &*found;
  }
  return SeenFrom(level, m_lastFound->second);
}

NamespaceScopes::NamespaceMap NamespaceScopes::GetNamespaces(std::uint32_t level) const {
  NamespaceMap seen;
  for (auto const& [uri, prefixes] : m_prefixes) {
    if (auto const* const prefix = SeenFrom(level, prefixes))
      seen.emplace_hint(seen.end(), uri, *prefix);
  }
  return seen;
}

// One that was set before at the same level stays, too: names are views of it.
void NamespaceScopes::SetDefault(std::uint32_t level, std::u16string_view uri) {
  if (m_defaults.back().level == level && m_defaults.back().text == uri) return;
  m_defaults.push_back({level, std::u16string(uri)});
}

void NamespaceScopes::SetPrefix(std::uint32_t level, std::u16string_view uri,
                                std::u16string_view prefix) {
  auto const entry = m_prefixes.try_emplace(std::u16string(uri)).first;
  Prefixes& prefixes = entry->second;
  if (!prefixes.empty()) m_aliases.Release(prefixes.back().text);
  if (!prefixes.empty() && prefixes.back().level == level) {
    prefixes.back().text = prefix;
  } else {
    prefixes.push_back({level, std::u16string(prefix)});
    if (level != 0) m_changes.push_back({level, entry});
  }
  m_aliases.Use(prefixes.back().text);
}

void NamespaceScopes::TakeBackChange() {
  auto const entry = m_changes.back().entry;
  m_changes.pop_back();
  Prefixes& prefixes = entry->second;
  m_aliases.Release(prefixes.back().text);
  prefixes.pop_back();
  if (!prefixes.empty()) {
    m_aliases.Use(prefixes.back().text);
    return;
  }
  if (m_lastFound == &*entry) m_lastFound = nullptr;
  m_prefixes.erase(entry);
}

}  // namespace KestXmlLib20::internal
