// The base64 form of bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Base64 with the alphabet of RFC 4648, section 4.
class KESTXML_API CBase64 {
 public:
  /// Four characters for three bytes, padded with '=', without line breaks. Null gives no text.
  static std::u16string Encode(unsigned char const* data, std::uint32_t length);

  /// Room that Decode needs for a text of @p units.
  static constexpr std::size_t MaxBytes(std::size_t units) { return units / 4 * 3 + 3; }
  /// Writes the bytes of @p text to @p out and gives their count; 0 when the text holds a character
  /// that is neither of the alphabet nor one of '=', blank, tab, line feed and carriage return,
  /// which are skipped wherever they stand. Only the low seven bits of a unit count.
  static std::size_t Decode(std::u16string_view text, unsigned char* out);
};

}  // namespace KestXmlLib20
