// The text of an element that is still open.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>

namespace KestXmlLib20::internal {

/// 16-bit text that grows at its end and is always followed by a zero unit. Its memory stays for
/// the next element when it is cleared.
class TextBuffer {
 public:
  /// Appends @p units 16-bit units, of whatever type: only their bytes are copied.
  /// @throws CKestException when the text would have 2^31 units, 4 GiB, or more.
  char16_t* Append(void const* text, std::uint32_t units) {
    if (m_capacity - m_length <= units) Grow(units);
    char16_t* const end = m_units.get() + m_length;
    std::memcpy(end, text, units * sizeof(char16_t));
    m_length += units;
    end[units] = u'\0';
    return end;
  }
  void CutTo(std::uint32_t length) {
    m_length = length;
    m_units[length] = u'\0';
  }
  void Clear() { m_length = 0; }
  /// As Clear, and gives memory above @p bytes back.
  void ClearAndTrim(std::size_t bytes);

  char16_t const* GetData() const { return m_units.get(); }
  std::uint32_t GetLength() const { return m_length; }
  std::size_t GetHeldBytes() const { return m_capacity * sizeof(char16_t); }

 private:
  void Grow(std::uint32_t units);

  std::unique_ptr<char16_t[]> m_units;
  std::uint32_t m_length = 0;
  std::uint32_t m_capacity = 0;
};

}  // namespace KestXmlLib20::internal
