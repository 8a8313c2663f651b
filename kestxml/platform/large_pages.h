// Memory in large pages.
#pragma once

#include <cstddef>

namespace KestXmlLib20::platform {

/// The granularity of LargePages, in bytes.
inline constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;

/// Zeroed memory of @p bytes, a multiple of kLargePage, aligned to it. The system is asked to back
/// it with large pages, so that first touching it costs a fault for each of them instead of one for
/// each 4 KiB. Give it back with FreeLargePages.
/// @throws std::bad_alloc
void* AllocateLargePages(std::size_t bytes);
void FreeLargePages(void* pages, std::size_t bytes) noexcept;

/// As malloc: null without memory, to be given back with free. What is large enough lies in large
/// pages.
void* MallocInLargePages(std::size_t bytes) noexcept;

}  // namespace KestXmlLib20::platform
