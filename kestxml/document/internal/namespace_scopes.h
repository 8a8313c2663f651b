// The namespaces in force in the open elements of a document that is being written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/document/internal/alias_numbers.h"
#include "kestxml/document/xml_writer.h"

namespace KestXmlLib20::internal {

/// Default namespaces and prefixes, each with the level of the element that it holds for: 0 for the
/// root. Elements in it see it until one of them changes it for itself, or it ends. Nothing is
/// copied from level to level, so that what is held and done follows the number of changes alone.
class NamespaceScopes {
 public:
  using NamespaceMap = CXmlWriter::NamespaceMap;

  NamespaceScopes() = default;
  NamespaceScopes(NamespaceScopes const&) = delete;
  NamespaceScopes& operator=(NamespaceScopes const&) = delete;

  /// Forgets everything and starts a root.
  void Begin(std::u16string_view defaultNamespace, NamespaceMap const& namespaces);
  /// Takes back what was changed at @p level and further inside. The prefixes of the root stay
  /// until the next begins.
  void End(std::uint32_t level) {
    while (!m_changes.empty() && m_changes.back().level >= level) TakeBackChange();
    while (!m_defaults.empty() && m_defaults.back().level >= level) m_defaults.pop_back();
  }

  /// What Begin was given. The text stays as it is and where it is until the next begins.
  std::u16string const& GetFirstDefault() const { return m_firstDefault; }
  /// What @p level sees. Valid until the next change.
  std::u16string const& GetDefault(std::uint32_t level) const {
    auto const* const changed = m_defaults.empty() ? nullptr : SeenFrom(level, m_defaults);
    return changed ? *changed : m_firstDefault;
  }
  /// What @p level sees, null when that is no prefix. Valid until the next change.
  std::u16string const* FindPrefix(std::uint32_t level, std::u16string_view uri) const;
  /// All that @p level sees.
  NamespaceMap GetNamespaces(std::uint32_t level) const;

  // Changes are made at the innermost level that has any, or further inside.
  void SetDefault(std::uint32_t level, std::u16string_view uri);
  void SetPrefix(std::uint32_t level, std::u16string_view uri, std::u16string_view prefix);

  /// The first alias that the innermost level does not see as a prefix.
  std::u16string FirstFreeAlias() const { return m_aliases.FirstFree(); }

 private:
  struct Setting {
    std::uint32_t level;
    std::u16string text;
  };
  using Settings = std::vector<Setting>;  // one for each level that has its own, the innermost last
  using PrefixMap = std::map<std::u16string, Settings, std::less<>>;
  struct Change {
    std::uint32_t level;
    PrefixMap::iterator entry;
  };

  static std::u16string const* SeenFrom(std::uint32_t level, Settings const& settings);
  static bool Set(Settings& settings, std::uint32_t level, std::u16string_view text);
  void TakeBackChange();

  std::u16string m_firstDefault;
  Settings m_defaults;  // that came later
  PrefixMap m_prefixes;
  std::vector<Change> m_changes;  // one for each setting in m_prefixes below the root, in order
  AliasNumbers m_aliases;         // of the innermost settings
  // Most look-ups ask for the URI of the one before.
  mutable PrefixMap::value_type const* m_lastFound = nullptr;
};

}  // namespace KestXmlLib20::internal
