// The names of one document, each held once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/document/internal/arena.h"
#include "kestxml/document/xml_name.h"

namespace KestXmlLib20::internal {

/// Finds the XmlName of a key, which is the name as a parser front end spells it; all names have
/// one owner. The hash is
/// keyed with a number that a document's author can't know, so names can't be made to collide.
class NameTable {
 public:
  /// How a key reads as a name. Called once for each distinct key.
  struct Spelling {
    std::u16string namespaceURI;
    std::u16string localName;
  };
  using SpellKey = Spelling (*)(std::u16string_view key);

  NameTable();
  NameTable(NameTable const&) = delete;
  NameTable& operator=(NameTable const&) = delete;

  /// @param key @p units 16-bit units, of whatever type; only their bytes are looked at.
  XmlName const* Intern(void const* key, std::size_t units, SpellKey spell,
                        CXmlDocument const* const* owner) {
    std::uint64_t const hash = Hash(key, units * sizeof(char16_t));
    if (Entry const* const entry = Find(key, units, hash)) return &entry->name;
    return Add(key, units, hash, spell, owner);
  }

  class Mark {
    friend class NameTable;
    Arena::Mark m_arena;
    std::size_t m_names = 0;
    std::size_t m_uris = 0;
  };
  Mark GetMark() const;
  /// Forgets the names that came since @p mark, if they are many.
  void ReleaseTo(Mark const& mark);

  /// Makes ready for the next document, which often has the same names: they stay, unless they are
  /// many or large.
  void Reset();

 private:
  // Entries of one bucket are chained with the latest first, so that those behind a mark can be
  // taken off the front.
  struct Entry {
    XmlName name;
    Entry* next;
    std::uint64_t hash;
    std::size_t units;  // of the key, which stands right behind the entry

    void const* Key() const { return this + 1; }
  };

  static std::uint64_t Hash(void const* bytes, std::size_t length);
  Entry* Find(void const* key, std::size_t units, std::uint64_t hash) const;
  XmlName const* Add(void const* key, std::size_t units, std::uint64_t hash, SpellKey spell,
                     CXmlDocument const* const* owner);
  std::u16string_view InternUri(std::u16string_view uri);
  std::u16string_view Store(std::u16string_view text);
  Entry*& Bucket(std::uint64_t hash) { return m_buckets[hash & (m_buckets.size() - 1)]; }
  void Grow();
  void Clear();

  std::vector<Entry*> m_buckets;  // a power of two
  std::vector<Entry*> m_entries;  // in order of coming
  std::vector<std::u16string_view> m_uris;
  Arena m_arena;
  std::size_t m_storedBytes = 0;
};

}  // namespace KestXmlLib20::internal
