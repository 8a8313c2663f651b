#include "kestxml/document/internal/text_buffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "kestxml/values/length_limit.h"

namespace KestXmlLib20::internal {
namespace {

constexpr std::uint64_t kFirstCapacity = 64;
constexpr std::uint64_t kMostUnits = (std::uint64_t{1} << 31) - 1;  // a zero unit included

}  // namespace

void TextBuffer::Grow(std::uint32_t units) {
  std::uint64_t const needed = std::uint64_t{m_length} + units + 1;
  if (needed > kMostUnits) ThrowTooManyBytes();
  std::uint64_t const doubled = std::max(std::uint64_t{m_capacity} * 2, kFirstCapacity);
  auto const capacity = static_cast<std::uint32_t>(std::min(std::max(needed, doubled), kMostUnits));
  auto grown = std::make_unique_for_overwrite<char16_t[]>(capacity);
  if (m_length != 0) std::memcpy(grown.get(), m_units.get(), m_length * sizeof(char16_t));
  m_units = std::move(grown);
  m_capacity = capacity;
}

void TextBuffer::Release() {
  m_units.reset();
  m_capacity = 0;
}

}  // namespace KestXmlLib20::internal
