#include "kestxml/document/internal/namespace_scopes.h"

#include "kestxml/values/same_text.h"

namespace KestXmlLib20::internal {

void NamespaceScopes::Begin(std::u16string_view defaultNamespace, NamespaceMap const& namespaces) {
  m_firstDefault = defaultNamespace;
  m_defaults.clear();
  m_prefixes.clear();
  m_changes.clear();
  m_aliases = {};
  m_lastFound = nullptr;
  for (auto const& [uri, prefix] : namespaces) SetPrefix(0, uri, prefix);
}

std::u16string const* NamespaceScopes::SeenFrom(std::uint32_t level, Settings const& settings) {
  auto latest = settings.rbegin();
  while (latest != settings.rend() && latest->level > level) ++latest;
  return latest == settings.rend() ? nullptr : &latest->text;
}

// True when the level had none of its own.
bool NamespaceScopes::Set(Settings& settings, std::uint32_t level, std::u16string_view text) {
  bool const isNew = settings.empty() || settings.back().level != level;
  if (isNew) {
    settings.push_back({level, std::u16string(text)});
  } else {
    settings.back().text = text;
  }
  return isNew;
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

void NamespaceScopes::SetDefault(std::uint32_t level, std::u16string_view uri) {
  Set(m_defaults, level, uri);
}

void NamespaceScopes::SetPrefix(std::uint32_t level, std::u16string_view uri,
                                std::u16string_view prefix) {
  auto const entry = m_prefixes.try_emplace(std::u16string(uri)).first;
  Settings& prefixes = entry->second;
  if (!prefixes.empty()) m_aliases.Release(prefixes.back().text);
  bool const isNew = Set(prefixes, level, prefix);
  if (isNew && level != 0) m_changes.push_back({level, entry});
  m_aliases.Use(prefixes.back().text);
}

void NamespaceScopes::TakeBackChange() {
  auto const entry = m_changes.back().entry;
  m_changes.pop_back();
  Settings& prefixes = entry->second;
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
