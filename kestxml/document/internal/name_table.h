// The names of one document, each held once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/document/internal/arena.h"
#include "kestxml/document/internal/lifo_hash_table.h"
#include "kestxml/document/xml_name.h"

namespace KestXmlLib20::internal {

/// A namespace URI, held once in its table and followed by a zero unit.
struct XmlUri {
  std::u16string_view text;
  std::uint64_t hash;
  XmlUri* next;
};

/// Finds the XmlName of a URI and a local name as a parser front end has them. Texts come as 16-bit
/// units of whatever type; only their bytes are looked at. The hash is keyed with a number that a
/// document's author can't know, so names can't be made to collide.
class NameTable {
 public:
  /// How a URI and a local name read as a name, where they are not the name as they stand. Asked
  /// once for each distinct pair.
  struct Spelling {
    std::u16string namespaceURI;
    std::u16string localName;
  };
  using Spell = Spelling (*)(std::u16string_view uri, std::u16string_view localName);

  NameTable() = default;
  NameTable(NameTable const&) = delete;
  NameTable& operator=(NameTable const&) = delete;

  XmlUri const* InternUri(void const* uri, std::size_t units);
  /// @param spell null for names as they stand.
  /// @param owner what all names of the table note.
  XmlName const* Intern(XmlUri const* uri, void const* localName, std::size_t units, Spell spell,
                        CXmlDocument const* const* owner);

  class Mark {
    friend class NameTable;
    Arena::Mark m_arena;
    std::size_t m_names = 0;
    std::size_t m_uris = 0;
  };
  Mark GetMark() const;
  /// Forgets the names and URIs that came since @p mark, if names are many.
  void ReleaseTo(Mark const& mark);

  /// Whether the table is small enough to be kept for the next document, which often has the same
  /// names.
  bool IsWorthKeeping() const;

 private:
  struct Entry {
    XmlName name;
    XmlUri const* uri;
    std::u16string_view localName;  // as the front end has it
    std::uint64_t hash;
    Entry* next;
  };

  static std::uint64_t Hash(void const* bytes, std::size_t length);
  XmlName const* Add(XmlUri const* uri, void const* localName, std::size_t units,
                     std::uint64_t hash, Spell spell, CXmlDocument const* const* owner);
  std::u16string_view Store(void const* text, std::size_t units);
  void* Allocate(std::size_t bytes);

  LifoHashTable<XmlUri> m_uris;
  LifoHashTable<Entry> m_names;
  Arena m_arena;
  std::size_t m_storedBytes = 0;
};

}  // namespace KestXmlLib20::internal
