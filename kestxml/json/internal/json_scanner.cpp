#include "kestxml/json/internal/json_scanner.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>

#include <bit>
#endif

namespace KestXmlLib20::internal {

std::u16string_view CJsonScanner::TakeBlock(std::size_t count) {
  std::u16string_view const block(m_next,
                                  std::min(count, static_cast<std::size_t>(m_end - m_next)));
  m_next += block.size();
  if (!block.empty()) m_current = block.back();
  if (block.size() < count) m_isAtEnd = true;
  return block;
}

bool CJsonScanner::NextTokenFromAfar() {
  while (m_next != m_end) {
    char16_t const unit = *m_next++;
    if (unit == u'\n') {
      StartLine();
      SkipBlanks();
    } else if (unit != u' ' && unit != u'\t' && unit != u'\r' &&
               (unit != u'/' || !m_allowComments || !SkipComment())) {
      m_current = unit;
      return true;
    }
  }
  m_isAtEnd = true;
  return false;
}

// The indentation of a line, eight units at a time.
void CJsonScanner::SkipBlanks() {
#if defined(__SSE2__)
  __m128i const blanks = _mm_set1_epi16(u' ');
  while (m_end - m_next >= 8) {
    auto const units = _mm_loadu_si128(reinterpret_cast<__m128i const*>(m_next));
    auto const others = ~_mm_movemask_epi8(_mm_cmpeq_epi16(units, blanks)) & 0xFFFF;
    if (others != 0) {
      m_next += std::countr_zero(static_cast<unsigned>(others)) / 2;
      return;
    }
    m_next += 8;
  }
#endif
}

// Behind a slash; false when it begins no comment.
bool CJsonScanner::SkipComment() {
  if (m_next == m_end) return false;
  if (*m_next == u'/') {
    SkipLine();
  } else if (*m_next == u'*') {
    SkipBlock();
  } else {
    return false;
  }
  return true;
}

void CJsonScanner::SkipLine() {
  char16_t const* const lineFeed = std::find(m_next, m_end, u'\n');
  if (lineFeed == m_end) {
    m_lineStart += m_end - m_next;  // columns are those before the comment
    m_next = m_end;
  } else {
    m_next = lineFeed + 1;
    StartLine();
  }
}

void CJsonScanner::SkipBlock() {
  ++m_next;
  ++m_lineStart;  // the opening star has no column of its own
  while (NextUnit()) {
    if (m_current == u'*' && m_next != m_end && *m_next == u'/') {
      ++m_next;
      return;
    }
  }
}

}  // namespace KestXmlLib20::internal
