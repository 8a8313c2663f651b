// The text of an element that is still open.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace KestXmlLib20::internal {

/// 16-bit text that grows at its end and is always followed by a zero unit. Its memory stays for
/// the next element when it is cleared.
class TextBuffer {
 public:
  /// Room for @p units more, which Added then counts in; to be written before anything is read.
  /// @throws CKestException when the text would have 2^31 units, 4 GiB, or more.
  char16_t* RoomFor(std::uint32_t units) {
    if (m_capacity - m_length <= units) Grow(units);
    return m_units.get() + m_length;
  }
  void Added(std::uint32_t units) {
    m_length += units;
    m_units[m_length] = u'\0';
  }
  void Clear() { m_length = 0; }
  /// As Clear, and gives memory above @p bytes back.
  void ClearAndTrim(std::size_t bytes) {
    m_length = 0;
    if (m_capacity * sizeof(char16_t) > bytes) Release();
  }

  char16_t const* GetData() const { return m_units.get(); }
  std::uint32_t GetLength() const { return m_length; }

 private:
  void Grow(std::uint32_t units);
  void Release();

  std::unique_ptr<char16_t[]> m_units;
  std::uint32_t m_length = 0;
  std::uint32_t m_capacity = 0;
};

}  // namespace KestXmlLib20::internal
