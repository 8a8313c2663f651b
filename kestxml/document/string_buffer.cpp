#include "kestxml/document/string_buffer.h"

#include <algorithm>

#include "kestxml/values/length_limit.h"

namespace KestXmlLib20 {
namespace {

// A stream flushes with two blocks in use, so keeping two makes a flush free of allocations.
constexpr std::size_t kKeptBlocks = 2;

void TestRoom(std::uint32_t length, std::size_t more) {
  if (more > CStringBuffer::kMaxLength - length) ThrowTooManyBytes();
}

}  // namespace

CStringBuffer::CStringBuffer() = default;
CStringBuffer::~CStringBuffer() = default;

CStringBuffer::Block CStringBuffer::NewBlock(std::uint32_t length) {
  return {std::make_unique_for_overwrite<char16_t[]>(std::size_t{length} + 1), length};
}

void CStringBuffer::UseBlock(std::size_t index, std::uint32_t capacity, std::uint32_t position) {
  m_used = index + 1;
  m_pCurrent = m_blocks[index].units.get();
  m_capacity = capacity;
  m_position = position;
}

void CStringBuffer::AddBlock() {
  std::uint32_t const length = GetLength();
  TestRoom(length, 1);
  if (m_used == m_blocks.size()) m_blocks.push_back(NewBlock(kBlockSize));
  // The last block before the limit is cut short: its end is where every append looks anyway.
  UseBlock(m_used, std::min(kBlockSize, kMaxLength - length), 0);
  m_lengthBefore = length;
}

void CStringBuffer::AppendAcrossBlocks(std::u16string_view text) {
  TestRoom(GetLength(), text.size());
  while (!text.empty()) {
    auto const room = PrepareAppend();
    auto const count = std::min(room.size(), text.size());
    std::copy_n(text.data(), count, room.data());
    CommitAppend(count);
    text.remove_prefix(count);
  }
}

char16_t const* CStringBuffer::GetString() {
  if (m_used == 0) return u"";
  if (m_used > 1) MergeBlocks();
  m_pCurrent[m_position] = 0;
  return m_pCurrent;
}

std::u16string CStringBuffer::ToString() const {
  std::u16string text;
  text.reserve(GetLength());
  ForEachBlock([&](std::u16string_view block) { text += block; });
  return text;
}

// The merged block counts as full, so that the next append begins a block of the common size.
void CStringBuffer::MergeBlocks() {
  std::uint32_t const length = GetLength();
  Block merged = NewBlock(length);
  char16_t* out = merged.units.get();
  ForEachBlock([&](std::u16string_view block) { out = std::ranges::copy(block, out).out; });
  m_blocks.clear();
  m_blocks.push_back(std::move(merged));
  UseBlock(0, length, length);
  m_lengthBefore = 0;
}

void CStringBuffer::Clear() {
  m_position = 0;
  m_lengthBefore = 0;
  if (m_used == 1) return;
  std::erase_if(m_blocks, [](Block const& block) { return block.length != kBlockSize; });
  if (m_blocks.size() > kKeptBlocks) m_blocks.resize(kKeptBlocks);
  m_used = 0;
  m_capacity = 0;
  m_pCurrent = nullptr;
}

}  // namespace KestXmlLib20
