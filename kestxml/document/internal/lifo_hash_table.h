// A hash table that forgets its latest entries first.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace KestXmlLib20::internal {

/// Chains entries that live elsewhere. An Entry has `std::uint64_t hash` and `Entry* next`. Those
/// of one bucket are chained with the latest first, so that the entries behind a mark can be taken
/// off the front.
template <typename Entry>
class LifoHashTable {
 public:
  std::size_t GetSize() const { return m_entries.size(); }

  /// The entry with @p hash for which @p isSame holds; null when there is none.
  template <typename IsSame>
  Entry* Find(std::uint64_t hash, IsSame isSame) const {
    for (Entry* entry = m_buckets[hash & m_mask]; entry; entry = entry->next) {
      if (entry->hash == hash && isSame(*entry)) return entry;
    }
    return nullptr;
  }

  void Add(Entry* entry) {
    if (m_entries.size() > m_mask) Grow();
    m_entries.push_back(entry);
    Link(entry);
  }

  /// Forgets all entries but the first @p size.
  void ReleaseTo(std::size_t size) {
    for (; m_entries.size() > size; m_entries.pop_back()) {
      Entry* const latest = m_entries.back();
      m_buckets[latest->hash & m_mask] = latest->next;
    }
  }

 private:
  static constexpr std::size_t kFirstBuckets = 128;  // a power of two

  void Link(Entry* entry) {
    Entry*& bucket = m_buckets[entry->hash & m_mask];
    entry->next = bucket;
    bucket = entry;
  }

  void Grow() {
    m_buckets.assign(m_buckets.size() * 4, nullptr);
    m_mask = m_buckets.size() - 1;
    for (Entry* const entry : m_entries) Link(entry);
  }

  std::vector<Entry*> m_buckets = std::vector<Entry*>(kFirstBuckets);
  std::size_t m_mask = kFirstBuckets - 1;
  std::vector<Entry*> m_entries;  // in order of coming
};

}  // namespace KestXmlLib20::internal
