// The characters of a JSON text, one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace KestXmlLib20::internal {

/// Steps through a text and keeps line and column. Line feeds count lines and are never current.
class CJsonScanner {
 public:
  CJsonScanner(std::u16string_view text, bool allowComments)
      : m_next(text.data()),
        m_end(text.data() + text.size()),
        m_lineStart(text.data()),
        m_allowComments(allowComments) {}

  /// The unit read last; undefined before the first.
  char16_t Current() const { return m_current; }
  /// Whether a step found no more units.
  bool IsAtEnd() const { return m_isAtEnd; }
  std::int32_t Line() const { return static_cast<std::int32_t>(m_line); }
  /// Units read in this line, those in comments to the end of the line excepted.
  std::int32_t Column() const { return static_cast<std::int32_t>(m_next - m_lineStart); }

  /// To the next unit that is no line feed; false at the end.
  bool NextUnit() {
    while (m_next != m_end) {
      char16_t const unit = *m_next++;
      if (unit != u'\n') {
        m_current = unit;
        return true;
      }
      StartLine();
    }
    m_isAtEnd = true;
    return false;
  }

  /// To the next unit that is neither white space nor in a comment; false at the end.
  bool NextToken() {
    if (m_next == m_end || *m_next <= u' ' || *m_next == u'/') return NextTokenFromAfar();
    m_current = *m_next++;
    return true;
  }

  /// The next @p count units as they are, line feeds included and not counted as lines. Fewer at
  /// the end.
  std::u16string_view TakeBlock(std::size_t count);

 protected:
  void StartLine() {
    ++m_line;
    m_lineStart = m_next;
  }

  char16_t const* m_next;
  char16_t const* m_end;

 private:
  bool NextTokenFromAfar();
  void SkipBlanks();
  bool SkipComment();
  void SkipLine();
  void SkipBlock();

  char16_t const* m_lineStart;  // where column 1 of this line would be
  std::uint32_t m_line = 1;     // a text may hold more lines than a signed number counts
  char16_t m_current = 0;
  bool m_isAtEnd = false;
  bool m_allowComments;
};

}  // namespace KestXmlLib20::internal
