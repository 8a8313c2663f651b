// Bytes of malloc with an owner, until they go where a plain pointer is asked for.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace KestXmlLib20::internal {

struct FreeBytes {
  void operator()(unsigned char* bytes) const { std::free(bytes); }
};
using MallocBytes = std::unique_ptr<unsigned char, FreeBytes>;

/// Never null: no bytes are one byte.
inline MallocBytes AllocateBytes(std::size_t size) {
  auto* const bytes = static_cast<unsigned char*>(std::malloc(std::max<std::size_t>(size, 1)));
  if (!bytes) throw std::bad_alloc();
  return MallocBytes(bytes);
}

/// The block with another size; unless it throws, @p bytes itself is gone. Growing a big block
/// moves pages instead of copying bytes.
inline unsigned char* ResizedBytes(unsigned char* bytes, std::size_t size) {
  void* const resized = std::realloc(bytes, std::max<std::size_t>(size, 1));
  if (!resized) throw std::bad_alloc();
  return static_cast<unsigned char*>(resized);
}

inline void ResizeBytes(MallocBytes& bytes, std::size_t size) {
  unsigned char* const resized = ResizedBytes(bytes.get(), size);
  static_cast<void>(bytes.release());
  bytes.reset(resized);
}

}  // namespace KestXmlLib20::internal
