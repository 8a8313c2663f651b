// Copying character data while looking for the units that seldom stand in it.
#pragma once

#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace KestXmlLib20::internal {

/// True for the units that do not simply belong to an element's text.
constexpr bool IsDroppedUnit(char16_t unit) {
  return unit == u'\r' || unit == u'\0';
}

/// Copies one by one; the way for the shortest texts.
inline bool CopyUnits(char16_t* to, char const* from, std::size_t units) {
  bool found = false;
  for (; units != 0; --units, ++to, from += sizeof(char16_t)) {
    std::memcpy(to, from, sizeof(char16_t));
    found |= IsDroppedUnit(*to);
  }
  return found;
}

#if defined(__SSE2__)

inline __m128i MarkDroppedUnits(__m128i units) {
  return _mm_or_si128(_mm_cmpeq_epi16(units, _mm_setzero_si128()),
                      _mm_cmpeq_epi16(units, _mm_set1_epi16(u'\r')));
}

inline bool CopyFourUnits(char16_t* to, char const* from) {
  __m128i const units = _mm_loadl_epi64(reinterpret_cast<__m128i const*>(from));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(to), units);
  return (_mm_movemask_epi8(MarkDroppedUnits(units)) & 0xFF) != 0;
}

inline __m128i CopyEightUnits(char16_t* to, char const* from) {
  __m128i const units = _mm_loadu_si128(reinterpret_cast<__m128i const*>(from));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to), units);
  return MarkDroppedUnits(units);
}

/// Copies @p units 16-bit units of whatever type and tells whether a dropped one is among them.
/// The last group overlaps the one before it.
inline bool CopyAndFindDropped(char16_t* to, void const* text, std::size_t units) {
  auto const* const from = static_cast<char const*>(text);
  if (units < 4) return CopyUnits(to, from, units);
  if (units < 8) {
    bool const first = CopyFourUnits(to, from);
    return CopyFourUnits(to + units - 4, from + (units - 4) * sizeof(char16_t)) || first;
  }
  __m128i found = CopyEightUnits(to + units - 8, from + (units - 8) * sizeof(char16_t));
  for (std::size_t i = 0; i + 8 < units; i += 8) {
    found = _mm_or_si128(found, CopyEightUnits(to + i, from + i * sizeof(char16_t)));
  }
  return _mm_movemask_epi8(found) != 0;
}

#else

inline bool CopyAndFindDropped(char16_t* to, void const* text, std::size_t units) {
  return CopyUnits(to, static_cast<char const*>(text), units);
}

#endif

}  // namespace KestXmlLib20::internal
