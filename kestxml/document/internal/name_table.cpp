#include "kestxml/document/internal/name_table.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <random>

namespace KestXmlLib20::internal {
namespace {

constexpr std::size_t kFirstBuckets = 128;
// A stream of like elements brings the same names again and again: they are kept until there are
// more of them than any ordinary vocabulary has.
constexpr std::size_t kNamesWorthKeeping = 4096;
constexpr std::size_t kBytesWorthKeeping = std::size_t{64} * 1024;  // for the next document

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

NameTable::NameTable() : m_buckets(kFirstBuckets) {}

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

NameTable::Entry* NameTable::Find(void const* key, std::size_t units, std::uint64_t hash) const {
  for (Entry* entry = m_buckets[hash & (m_buckets.size() - 1)]; entry; entry = entry->next) {
    if (entry->hash == hash && entry->units == units &&
        std::memcmp(entry->Key(), key, units * sizeof(char16_t)) == 0) {
      return entry;
    }
  }
  return nullptr;
}

std::u16string_view NameTable::Store(std::u16string_view text) {
  if (text.empty()) return u"";
  std::size_t const bytes = text.size() * sizeof(char16_t);
  auto* const copy = static_cast<char16_t*>(m_arena.Allocate(bytes + sizeof(char16_t)));
  m_storedBytes += bytes;
  std::memcpy(copy, text.data(), bytes);
  copy[text.size()] = u'\0';
  return {copy, text.size()};
}

// A document has few namespaces, and the search is made once for each distinct name; the latest
// are the likeliest. The search is bounded, so that it never gets slow: a URI that is not found is
// only held twice.
std::u16string_view NameTable::InternUri(std::u16string_view uri) {
  constexpr std::size_t kLatest = 64;
  auto const latest = m_uris.rbegin();
  auto const oldest = latest + static_cast<std::ptrdiff_t>(std::min(kLatest, m_uris.size()));
  auto const found = std::find(latest, oldest, uri);
  if (found != oldest) return *found;
  m_uris.push_back(Store(uri));
  return m_uris.back();
}

XmlName const* NameTable::Add(void const* key, std::size_t units, std::uint64_t hash,
                              SpellKey spell, CXmlDocument const* const* owner) {
  if (m_entries.size() >= m_buckets.size()) Grow();
  std::size_t const bytes = units * sizeof(char16_t);
  auto* const entry = new (m_arena.Allocate(sizeof(Entry) + bytes)) Entry;
  std::memcpy(static_cast<void*>(entry + 1), key, bytes);
  std::u16string copy(units, u'\0');
  std::memcpy(copy.data(), key, bytes);
  Spelling const spelling = spell(copy);
  entry->name = {InternUri(spelling.namespaceURI), Store(spelling.localName), owner};
  entry->hash = hash;
  entry->units = units;
  m_entries.push_back(entry);
  Entry*& bucket = Bucket(hash);
  entry->next = bucket;
  bucket = entry;
  return &entry->name;
}

void NameTable::Grow() {
  m_buckets.assign(m_buckets.size() * 4, nullptr);
  for (Entry* const entry : m_entries) {
    Entry*& bucket = Bucket(entry->hash);
    entry->next = bucket;
    bucket = entry;
  }
}

NameTable::Mark NameTable::GetMark() const {
  Mark mark;
  mark.m_arena = m_arena.GetMark();
  mark.m_names = m_entries.size();
  mark.m_uris = m_uris.size();
  return mark;
}

void NameTable::ReleaseTo(Mark const& mark) {
  if (m_entries.size() <= kNamesWorthKeeping) return;
  while (m_entries.size() > mark.m_names) {
    Entry* const latest = m_entries.back();
    Bucket(latest->hash) = latest->next;
    m_entries.pop_back();
  }
  m_uris.resize(mark.m_uris);
  m_arena.ReleaseTo(mark.m_arena);
}

void NameTable::Reset() {
  if (m_entries.size() > kFirstBuckets || m_storedBytes > kBytesWorthKeeping) Clear();
}

void NameTable::Clear() {
  m_buckets = std::vector<Entry*>(kFirstBuckets);
  m_entries = std::vector<Entry*>();
  m_uris = std::vector<std::u16string_view>();
  m_arena.ResetAndTrim(0);
  m_storedBytes = 0;
}

}  // namespace KestXmlLib20::internal
