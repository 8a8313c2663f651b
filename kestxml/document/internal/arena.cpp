#include "kestxml/document/internal/arena.h"

#include <algorithm>
#include <new>

namespace KestXmlLib20::internal {

// Stands at the front of its own memory.
struct Block {
  Block* next;
  std::size_t size;  // bytes behind the header

  char* Begin() { return reinterpret_cast<char*>(this + 1); }
  char* End() { return Begin() + size; }
};

namespace {

// Blocks grow with what they are needed for, up to a size that costs no more per byte.
constexpr std::size_t kFirstBlock = std::size_t{32} * 1024 - sizeof(Block);
constexpr std::size_t kLargestBlock = std::size_t{1024} * 1024 - sizeof(Block);

Block* NewBlock(std::size_t size, Block* next) {
  return new (::operator new(sizeof(Block) + size)) Block{next, size};
}

}  // namespace

Arena::~Arena() { FreeChain(m_first); }

void Arena::FreeChain(Block* block) {
  while (block) {
    Block* const next = block->next;
    ::operator delete(block);
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
  if (!link || link->size < bytes) {
    std::size_t const usual =
        m_current ? std::min(m_current->size * 2 + sizeof(Block), kLargestBlock) : kFirstBlock;
    link = NewBlock(std::max(usual, bytes), link);
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

// Blocks above the usual size served one large text each and are not worth keeping.
void Arena::ReleaseTo(Mark const& mark) {
  if (m_current != mark.m_block) {
    Block** link = mark.m_block ? &mark.m_block->next : &m_first;
    while (*link) {
      Block* const block = *link;
      if (block->size <= kLargestBlock) {
        link = &block->next;
      } else {
        *link = block->next;
        ::operator delete(block);
      }
    }
    Use(mark.m_block);
  }
  m_next = mark.m_next;
}

void Arena::Reset() { Use(nullptr); }

void Arena::ResetAndTrim(std::size_t bytes) {
  Block** link = &m_first;
  while (*link && (*link)->size + sizeof(Block) <= bytes) {
    bytes -= (*link)->size + sizeof(Block);
    link = &(*link)->next;
  }
  FreeChain(*link);
  *link = nullptr;
  Use(nullptr);
}

}  // namespace KestXmlLib20::internal
