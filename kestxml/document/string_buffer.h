// The buffer that text output grows in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// Text that grows at its end and never moves meanwhile: it lies in blocks of kBlockSize units, all
/// full but the last. Lengths count 16-bit units.
class KESTXML_API CStringBuffer : public CInstanceMonitor {
 public:
  static constexpr std::uint32_t kBlockSize = 4095;
  /// The most units held: 4 GiB of bytes less one unit. What would go beyond is refused with
  /// "The document exceeds the limit of 4294967295 bytes.".
  static constexpr std::uint32_t kMaxLength = 0x7FFFFFFF;

  CStringBuffer();
  CStringBuffer(CStringBuffer const&) = delete;
  CStringBuffer& operator=(CStringBuffer const&) = delete;
  ~CStringBuffer() override;

  void Append(char16_t unit) {
    if (m_position == m_capacity) AddBlock();
    m_pCurrent[m_position++] = unit;
  }
  void Append(char16_t const* text) { Append(std::u16string_view(text)); }
  void Append(std::u16string_view text) {
    if (text.size() > m_capacity - m_position) return AppendAcrossBlocks(text);
    std::char_traits<char16_t>::copy(m_pCurrent + m_position, text.data(), text.size());
    m_position += static_cast<std::uint32_t>(text.size());
  }

  /// The free units of the current block, one at least. As many as CommitAppend then counts join
  /// the text; any other change in between takes the room back.
  std::span<char16_t> PrepareAppend() {
    if (m_position == m_capacity) AddBlock();
    return {m_pCurrent + m_position, m_capacity - m_position};
  }
  void CommitAppend(std::size_t count) { m_position += static_cast<std::uint32_t>(count); }

  std::uint32_t GetLength() const { return m_lengthBefore + m_position; }

  /// The text in one piece, terminated; valid until the next change. Merges the blocks, unless one
  /// holds it all.
  char16_t const* GetString();
  /// A copy of the text, made without merging.
  std::u16string ToString() const;
  /// Calls @p visit with a std::u16string_view of each block in turn.
  template <typename Visit>
  void ForEachBlock(Visit&& visit) const {
    for (std::size_t i = 0; i < m_used; ++i) {
      visit(std::u16string_view(m_blocks[i].units.get(),
                                i + 1 < m_used ? m_blocks[i].length : m_position));
    }
  }

  /// Makes the text empty. A single block stays in use, whatever its size; of several, two of the
  /// common size are kept for later.
  void Clear();

 private:
  struct Block {
    std::unique_ptr<char16_t[]> units;  // one more than length, for the terminator
    std::uint32_t length;
  };
  static Block NewBlock(std::uint32_t length);
  void AddBlock();
  void AppendAcrossBlocks(std::u16string_view text);
  void MergeBlocks();
  void UseBlock(std::size_t index, std::uint32_t capacity, std::uint32_t position);

  std::vector<Block> m_blocks;
  std::size_t m_used = 0;  // of m_blocks, from the front; the others wait to be used again
  std::uint32_t m_position = 0;
  std::uint32_t m_capacity = 0;
  char16_t* m_pCurrent = nullptr;
  std::uint32_t m_lengthBefore = 0;  // units in the blocks before the current one
};

}  // namespace KestXmlLib20
