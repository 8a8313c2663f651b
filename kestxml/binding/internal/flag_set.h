// Which entries of a metadata table have been met.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KestXmlLib20::internal {

/// One flag for each entry, all clear at first. Tables of up to 64 entries need no allocation.
class FlagSet {
 public:
  explicit FlagSet(std::size_t size) : m_more(size > 64 ? size : 0) {}

  bool operator[](std::size_t index) const {
    return m_more.empty() ? ((m_flags >> index) & 1) != 0 : m_more[index];
  }
  void Set(std::size_t index) {
    if (m_more.empty()) {
      m_flags |= std::uint64_t{1} << index;
    } else {
      m_more[index] = true;
    }
  }

 private:
  std::uint64_t m_flags = 0;
  std::vector<bool> m_more;
};

}  // namespace KestXmlLib20::internal
