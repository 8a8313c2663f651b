// UTF-8 and UTF-16: the one place that turns each into the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// UTF-8 for @p text. A surrogate without its partner becomes U+FFFD.
KESTXML_API std::string ToUtf8(std::u16string_view text);

/// UTF-16 for @p text. Each malformed sequence becomes one U+FFFD; a sequence ends where the first
/// byte stands that can't continue it (the practice of Unicode 15, section 3.9).
KESTXML_API std::u16string FromUtf8(std::string_view text);
/// The same to @p out, which has room for as many units as @p text has bytes. Gives the end of what
/// was written.
KESTXML_API char16_t* FromUtf8(std::string_view text, char16_t* out);

/// The length of the part of @p text before its first unpaired surrogate.
KESTXML_API std::size_t LengthBeforeLoneSurrogate(std::u16string_view text);

/// Turns UTF-16 that arrives in pieces into UTF-8: a surrogate pair may be cut between two pieces.
class KESTXML_API CUtf8Encoder {
 public:
  /// Bytes that one unit needs at most, with what an earlier piece left.
  static constexpr std::size_t kMaxBytesPerUnit = 3;
  /// Bytes that Encode may write for a piece of @p units.
  static constexpr std::size_t MaxBytes(std::size_t units) {
    return kMaxBytesPerUnit * (units + 1);
  }

  /// Writes the UTF-8 of @p text to @p out, which has room for MaxBytes(text.size()), and gives
  /// the end of what was written. A high surrogate at the end waits for the next piece.
  char* Encode(std::u16string_view text, char* out);
  /// Whether a high surrogate waits for the next piece.
  bool IsWaiting() const { return m_pendingHigh != 0; }
  /// Writes U+FFFD for a high surrogate that still waits; @p out has room for MaxBytes(0).
  char* Finish(char* out);

 private:
  char16_t m_pendingHigh = 0;
};

}  // namespace KestXmlLib20
