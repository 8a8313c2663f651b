// A bump allocator whose blocks are kept for the next use.
#pragma once

#include <cstddef>
#include <cstdint>

namespace KestXmlLib20::internal {

/// Hands out pieces of large blocks. Nothing is given back piece by piece: everything behind a
/// mark is, or everything at once. What is put into it is not destroyed.
class Arena {
 public:
  static constexpr std::size_t kAlignment = 8;

  Arena() = default;
  Arena(Arena const&) = delete;
  Arena& operator=(Arena const&) = delete;
  ~Arena();

  /// Memory aligned to kAlignment, not initialised.
  void* Allocate(std::size_t bytes) {
    bytes = (bytes + kAlignment - 1) & ~(kAlignment - 1);
    if (static_cast<std::size_t>(m_end - m_next) < bytes) return AllocateFromNextBlock(bytes);
    char* const piece = m_next;
    m_next += bytes;
    return piece;
  }

  class Mark {
    friend class Arena;
    struct Block* m_block = nullptr;
    char* m_next = nullptr;
  };
  Mark GetMark() const;
  /// Gives back all that was allocated since @p mark was taken.
  void ReleaseTo(Mark const& mark);

  /// Gives everything back and keeps the blocks.
  void Reset();
  /// Gives everything back and keeps blocks of at most @p bytes.
  void ResetAndTrim(std::size_t bytes);

 private:
  void* AllocateFromNextBlock(std::size_t bytes);
  void Use(struct Block* block);
  static void FreeChain(struct Block* block);

  struct Block* m_first = nullptr;
  struct Block* m_current = nullptr;
  char* m_next = nullptr;
  char* m_end = nullptr;
};

}  // namespace KestXmlLib20::internal
