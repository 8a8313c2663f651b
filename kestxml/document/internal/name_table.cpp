#include "kestxml/document/internal/name_table.h"

#include <cstring>
#include <new>
#include <random>

namespace KestXmlLib20::internal {
namespace {

// A stream of like elements brings the same names again and again: they are kept until there are
// more of them than any ordinary vocabulary has.
constexpr std::size_t kNamesWorthKeeping = 4096;
// What is kept for the next document: as many names as it may well use, and as many bytes.
constexpr std::size_t kNamesForNext = 1024;
constexpr std::size_t kBytesForNext = std::size_t{128} * 1024;

struct HashKey {
  std::uint64_t first;
  std::uint64_t second;
};

HashKey MakeHashKey() {
  std::random_device random;
  auto const next = [&] { return (std::uint64_t{random()} << 32) | random() | 1; };
  return {next(), next()};
}

HashKey const& ProcessHashKey() {
  static HashKey const key = MakeHashKey();
  return key;
}

// Both halves of the 128-bit product, folded: every bit of the input reaches every bit of it.
std::uint64_t Fold(std::uint64_t a, std::uint64_t b) {
  __extension__ using Wide = unsigned __int128;
  Wide const product = static_cast<Wide>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

template <typename T>
std::uint64_t Load(unsigned char const* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

// All of up to 6 bytes, an even number of them, in one number.
std::uint64_t LoadShort(unsigned char const* bytes, std::size_t length) {
  if (length == 0) return 0;
  std::uint64_t const first = Load<std::uint16_t>(bytes);
  std::uint64_t const middle = Load<std::uint16_t>(bytes + length / 4 * 2);
  return (first << 32) | (middle << 16) | Load<std::uint16_t>(bytes + length - 2);
}

}  // namespace

std::uint64_t NameTable::Hash(void const* bytes, std::size_t length) {
  HashKey const& key = ProcessHashKey();
  auto const* const begin = static_cast<unsigned char const*>(bytes);
  std::uint64_t hash = key.first ^ length;
  if (length < 8) return Fold(LoadShort(begin, length) ^ hash, key.second);
  auto const* const end = begin + length;
  for (auto const* at = begin; end - at > 16; at += 16) {
    hash = Fold(Load<std::uint64_t>(at) ^ hash, Load<std::uint64_t>(at + 8) ^ key.second);
  }
  auto const* const tail = length < 16 ? begin : end - 16;  // may overlap what was taken in before
  return Fold(Load<std::uint64_t>(tail) ^ hash, Load<std::uint64_t>(end - 8) ^ key.second);
}

void* NameTable::Allocate(std::size_t bytes) {
  m_storedBytes += bytes;
  return m_arena.Allocate(bytes);
}

std::u16string_view NameTable::Store(void const* text, std::size_t units) {
  if (units == 0) return u"";
  std::size_t const bytes = units * sizeof(char16_t);
  auto* const copy = static_cast<char16_t*>(Allocate(bytes + sizeof(char16_t)));
  std::memcpy(copy, text, bytes);
  copy[units] = u'\0';
  return {copy, units};
}

XmlUri const* NameTable::InternUri(void const* uri, std::size_t units) {
  std::size_t const bytes = units * sizeof(char16_t);
  std::uint64_t const hash = Hash(uri, bytes);
  auto const isSame = [&](XmlUri const& held) {
    return held.text.size() == units && std::memcmp(held.text.data(), uri, bytes) == 0;
  };
  if (XmlUri const* const held = m_uris.Find(hash, isSame)) return held;
  auto* const added = new (Allocate(sizeof(XmlUri))) XmlUri{Store(uri, units), hash, nullptr};
  m_uris.Add(added);
  return added;
}

XmlName const* NameTable::Intern(XmlUri const* uri, void const* localName, std::size_t units,
                                 Spell spell, CXmlDocument const* const* owner) {
  std::size_t const bytes = units * sizeof(char16_t);
  std::uint64_t const hash = Hash(localName, bytes) ^ uri->hash;
  auto const isSame = [&](Entry const& held) {
    return held.uri == uri && held.localName.size() == units &&
           std::memcmp(held.localName.data(), localName, bytes) == 0;
  };
  if (Entry const* const held = m_names.Find(hash, isSame)) return &held->name;
  return Add(uri, localName, units, hash, spell, owner);
}

XmlName const* NameTable::Add(XmlUri const* uri, void const* localName, std::size_t units,
                              std::uint64_t hash, Spell spell, CXmlDocument const* const* owner) {
  std::u16string_view const local = Store(localName, units);
  XmlName name{uri->text, local, owner};
  if (spell) {
    Spelling const spelling = spell(uri->text, local);
    name.namespaceURI = InternUri(spelling.namespaceURI.data(), spelling.namespaceURI.size())->text;
    name.localName = Store(spelling.localName.data(), spelling.localName.size());
  }
  auto* const entry = new (Allocate(sizeof(Entry))) Entry{name, uri, local, hash, nullptr};
  m_names.Add(entry);
  return &entry->name;
}

NameTable::Mark NameTable::GetMark() const {
  Mark mark;
  mark.m_arena = m_arena.GetMark();
  mark.m_names = m_names.GetSize();
  mark.m_uris = m_uris.GetSize();
  return mark;
}

void NameTable::ReleaseTo(Mark const& mark) {
  if (m_names.GetSize() <= kNamesWorthKeeping) return;
  m_names.ReleaseTo(mark.m_names);
  m_uris.ReleaseTo(mark.m_uris);
  m_arena.ReleaseTo(mark.m_arena);
}

bool NameTable::IsWorthKeeping() const {
  return m_names.GetSize() <= kNamesForNext && m_storedBytes <= kBytesForNext;
}

}  // namespace KestXmlLib20::internal
