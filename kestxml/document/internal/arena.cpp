#include "kestxml/document/internal/arena.h"

#include <new>
#include <utility>

#include "kestxml/platform/large_pages.h"

namespace KestXmlLib20::internal {

// Stands at the front of its own memory.
struct Block {
  Block* next;
  std::size_t size;  // with this header

  char* Begin() { return reinterpret_cast<char*>(this + 1); }
  char* End() { return reinterpret_cast<char*>(this) + size; }
  std::size_t Room() const { return size - sizeof(Block); }
};

namespace {

// Blocks grow with what they are needed for. What outgrows the usual ones is in large pages.
constexpr std::size_t kFirstBlock = std::size_t{32} * 1024;
constexpr std::size_t kLargestUsualBlock = std::size_t{512} * 1024;
constexpr std::size_t kLargeBlock = 2 * platform::kLargePage;

std::size_t RoundUpToLargePages(std::size_t bytes) {
  return (bytes + platform::kLargePage - 1) / platform::kLargePage * platform::kLargePage;
}

// The memory of the block that follows one of @p previous bytes and holds @p bytes at least.
std::size_t NextSize(std::size_t previous, std::size_t bytes) {
  std::size_t const usual = previous == 0 ? kFirstBlock : previous * 2;
  std::size_t const wanted = usual > kLargestUsualBlock ? kLargeBlock : usual;
  std::size_t const needed = bytes + sizeof(Block);
  if (needed <= wanted) return wanted;
  return needed <= kLargestUsualBlock ? needed : RoundUpToLargePages(needed);
}

Block* NewBlock(std::size_t size, Block* next) {
  void* const memory =
      size > kLargestUsualBlock ? platform::AllocateLargePages(size) : ::operator new(size);
  return new (memory) Block{next, size};
}

void FreeBlock(Block* block) {
  if (block->size > kLargestUsualBlock) {
    platform::FreeLargePages(block, block->size);
  } else {
    ::operator delete(block);
  }
}

}  // namespace

Arena::~Arena() {
  FreeChain(m_first);
}

void Arena::FreeChain(Block* block) {
  while (block) {
    Block* const next = block->next;
    FreeBlock(block);
    block = next;
  }
}

void Arena::Use(Block* block) {
  m_current = block;
  m_next = block ? block->Begin() : nullptr;
  m_end = block ? block->End() : nullptr;
}

void* Arena::AllocateFromNextBlock(std::size_t bytes) {
  Block*& link = m_current ? m_current->next : m_first;
  // A block that served one huge text and can't serve the next would only pile up.
  while (link && link->Room() < bytes && link->size > kLargeBlock) {
    FreeBlock(std::exchange(link, link->next));
  }
  if (!link || link->Room() < bytes) {
    link = NewBlock(NextSize(m_current ? m_current->size : 0, bytes), link);
  }
  Use(link);
  return Allocate(bytes);
}

Arena::Mark Arena::GetMark() const {
  Mark mark;
  mark.m_block = m_current;
  mark.m_next = m_next;
  return mark;
}

// Blocks above the size that is asked for at a time served one huge text each and are not kept.
void Arena::ReleaseTo(Mark const& mark) {
  if (m_current != mark.m_block) {
    Block** link = mark.m_block ? &mark.m_block->next : &m_first;
    while (*link) {
      Block* const block = *link;
      if (block->size <= kLargeBlock) {
        link = &block->next;
      } else {
        *link = block->next;
        FreeBlock(block);
      }
    }
    Use(mark.m_block);
  }
  m_next = mark.m_next;
}

void Arena::Reset() {
  Use(nullptr);
}

void Arena::ResetAndTrim(std::size_t bytes) {
  Block** link = &m_first;
  while (*link && (*link)->size <= bytes) {
    bytes -= (*link)->size;
    link = &(*link)->next;
  }
  FreeChain(*link);
  *link = nullptr;
  Use(nullptr);
}

}  // namespace KestXmlLib20::internal
