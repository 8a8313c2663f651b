#include "kestxml/values/unicode.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace KestXmlLib20 {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

constexpr bool IsHigh(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLow(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}
constexpr bool IsSurrogate(char16_t unit) {
  return (unit & 0xF800) == 0xD800;
}

char* Put(char* out, unsigned byte) {
  *out = static_cast<char>(byte);
  return out + 1;
}

char* PutUnit(char* out, char16_t unit) {
  if (unit < 0x80) return Put(out, unit);
  if (unit < 0x800) {
    out = Put(out, 0xC0u | (unit >> 6));
    return Put(out, 0x80u | (unit & 0x3Fu));
  }
  out = Put(out, 0xE0u | (unit >> 12));
  out = Put(out, 0x80u | ((unit >> 6) & 0x3Fu));
  return Put(out, 0x80u | (unit & 0x3Fu));
}

char* PutPair(char* out, char16_t high, char16_t low) {
  unsigned const code = 0x10000u + ((high & 0x3FFu) << 10) + (low & 0x3FFu);
  out = Put(out, 0xF0u | (code >> 18));
  out = Put(out, 0x80u | ((code >> 12) & 0x3Fu));
  out = Put(out, 0x80u | ((code >> 6) & 0x3Fu));
  return Put(out, 0x80u | (code & 0x3Fu));
}

// Copies ASCII units as long as they come in full groups; the caller does what is left.
void CopyAscii(char16_t const*& in, char16_t const* end, char*& out) {
#if defined(__SSE2__)
  __m128i const notAscii = _mm_set1_epi16(static_cast<short>(0xFF80));
  while (end - in >= 16) {
    __m128i const first = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in));
    __m128i const second = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in + 8));
    __m128i const high = _mm_and_si128(_mm_or_si128(first, second), notAscii);
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) != 0xFFFF) return;
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(first, second));
    in += 16;
    out += 16;
  }
#else
  (void)in, (void)end, (void)out;
#endif
}

// Widens ASCII bytes as long as they come in full groups; the caller does what is left.
void CopyAscii(char const*& in, char const* end, char16_t*& out) {
#if defined(__SSE2__)
  while (end - in >= 16) {
    __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in));
    if (_mm_movemask_epi8(bytes) != 0) return;
    __m128i const zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), _mm_unpackhi_epi8(bytes, zero));
    in += 16;
    out += 16;
  }
#else
  (void)in, (void)end, (void)out;
#endif
}

// What the first byte of a sequence says: how many bytes follow it, and the range of the second
// (Unicode 15, table 3-7). A byte that starts nothing has no followers and an empty range.
struct Lead {
  int followers;
  unsigned char low, high;
};

constexpr Lead LeadOf(unsigned char byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {1, 0x80, 0xBF};
  if (byte == 0xE0) return {2, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {2, 0x80, 0xBF};
  if (byte == 0xF0) return {3, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {3, 0x80, 0xBF};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {0, 1, 0};
}

// Decodes the sequence at @p in, which begins with a byte above 0x7F, and moves past it.
char16_t* DecodeSequence(char const*& in, char const* end, char16_t* out) {
  auto const first = static_cast<unsigned char>(*in++);
  Lead const lead = LeadOf(first);
  unsigned char low = lead.low;
  unsigned char high = lead.high;
  unsigned code = first & (0x3Fu >> lead.followers);
  for (int i = 0; i < lead.followers; ++i) {
    auto const byte = in == end ? static_cast<unsigned char>(0) : static_cast<unsigned char>(*in);
    if (byte < low || byte > high) {
      *out = kReplacement;
      return out + 1;
    }
    code = (code << 6) | (byte & 0x3Fu);
    ++in;
    low = 0x80;
    high = 0xBF;
  }
  if (lead.followers == 0) code = kReplacement;
  if (code < 0x10000) {
    *out = static_cast<char16_t>(code);
    return out + 1;
  }
  out[0] = static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
  out[1] = static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
  return out + 2;
}

}  // namespace

char* CUtf8Encoder::Encode(std::u16string_view text, char* out) {
  char16_t const* in = text.data();
  char16_t const* const end = in + text.size();
  if (m_pendingHigh && in != end) {
    bool const paired = IsLow(*in);
    out = paired ? PutPair(out, m_pendingHigh, *in++) : PutUnit(out, kReplacement);
    m_pendingHigh = 0;
  }
  while (in != end) {
    CopyAscii(in, end, out);
    // One group at least, so that text which is seldom ASCII is not looked at twice per unit.
    for (char16_t const* const stop = end - in > 16 ? in + 16 : end; in < stop; ++in) {
      if (!IsSurrogate(*in)) {
        out = PutUnit(out, *in);
      } else if (IsHigh(*in) && in + 1 == end) {
        m_pendingHigh = *in;
      } else if (IsHigh(*in) && IsLow(in[1])) {
        out = PutPair(out, in[0], in[1]);
        ++in;
      } else {
        out = PutUnit(out, kReplacement);
      }
    }
  }
  return out;
}

char* CUtf8Encoder::Finish(char* out) {
  if (m_pendingHigh) out = PutUnit(out, kReplacement);
  m_pendingHigh = 0;
  return out;
}

std::string ToUtf8(std::u16string_view text) {
  std::string bytes(CUtf8Encoder::MaxBytes(text.size()), '\0');
  CUtf8Encoder encoder;
  char* const end = encoder.Finish(encoder.Encode(text, bytes.data()));
  bytes.resize(static_cast<std::size_t>(end - bytes.data()));
  return bytes;
}

std::u16string FromUtf8(std::string_view text) {
  std::u16string units(text.size(), u'\0');  // no sequence has more units than bytes
  units.resize(static_cast<std::size_t>(FromUtf8(text, units.data()) - units.data()));
  return units;
}

char16_t* FromUtf8(std::string_view text, char16_t* out) {
  char const* in = text.data();
  char const* const end = in + text.size();
  while (in != end) {
    CopyAscii(in, end, out);
    for (char const* const stop = end - in > 16 ? in + 16 : end; in < stop;) {
      if (static_cast<unsigned char>(*in) < 0x80) {
        *out++ = static_cast<unsigned char>(*in++);
      } else {
        out = DecodeSequence(in, end, out);
      }
    }
  }
  return out;
}

std::size_t LengthBeforeLoneSurrogate(std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsSurrogate(text[i])) continue;
    if (!IsHigh(text[i]) || i + 1 == text.size() || !IsLow(text[i + 1])) return i;
    ++i;
  }
  return text.size();
}

}  // namespace KestXmlLib20
