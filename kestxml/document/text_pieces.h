// Small pieces of text, appended together.
#pragma once

#include <cstring>
#include <string_view>

#include "kestxml/document/string_buffer.h"

namespace KestXmlLib20::internal {

/// A piece of one unit, or none.
class OneUnit {
 public:
  OneUnit(char16_t unit, bool isThere) : m_unit(unit), m_isThere(isThere) {}

  std::size_t size() const { return m_isThere ? 1 : 0; }
  char16_t* Put(char16_t* out) const {
    if (m_isThere) *out++ = m_unit;
    return out;
  }
  void AppendTo(CStringBuffer& out) const {
    if (m_isThere) out.Append(m_unit);
  }

 private:
  char16_t m_unit;
  bool m_isThere;
};

/// A piece of any length.
class Units {
 public:
  explicit Units(std::u16string_view text) : m_text(text) {}

  std::size_t size() const { return m_text.size(); }
  // Most pieces are too short to be worth the call of memcpy.
  char16_t* Put(char16_t* out) const {
    char16_t const* const units = m_text.data();
    std::size_t const length = m_text.size();
    if (length > 16) {
      std::memcpy(out, units, length * sizeof(char16_t));
    } else if (length >= 8) {  // the first eight and the last eight, which may overlap
      std::memcpy(out, units, 16);
      std::memcpy(out + length - 8, units + length - 8, 16);
    } else if (length >= 4) {
      std::memcpy(out, units, 8);
      std::memcpy(out + length - 4, units + length - 4, 8);
    } else {
      for (std::size_t i = 0; i < length; ++i) out[i] = units[i];
    }
    return out + length;
  }
  void AppendTo(CStringBuffer& out) const { out.Append(m_text); }

 private:
  std::u16string_view m_text;
};

inline OneUnit Piece(char16_t unit, bool isThere = true) {
  return {unit, isThere};
}
inline Units Piece(std::u16string_view text, bool isThere = true) {
  return Units(isThere ? text : std::u16string_view());
}

/// Appends pieces, made by Piece, with one test for room.
template <typename... Pieces>
void AppendPieces(CStringBuffer& out, Pieces... pieces) {
  auto const room = out.PrepareAppend();
  if (std::size_t const length = (pieces.size() + ...); length <= room.size()) {
    char16_t* end = room.data();
    ((end = pieces.Put(end)), ...);
    out.CommitAppend(length);
  } else {
    (pieces.AppendTo(out), ...);
  }
}

}  // namespace KestXmlLib20::internal
