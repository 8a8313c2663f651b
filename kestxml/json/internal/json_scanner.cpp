#include "kestxml/json/internal/json_scanner.h"

#include <algorithm>

namespace KestXmlLib20::internal {

std::u16string_view CJsonScanner::TakeBlock(std::size_t count) {
  std::u16string_view const block(m_next,
                                  std::min(count, static_cast<std::size_t>(m_end - m_next)));
  m_next += block.size();
  if (!block.empty()) m_current = block.back();
  if (block.size() < count) m_isAtEnd = true;
  return block;
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
