#include "kestxml/json/internal/json_escape.h"

#include <algorithm>

#include "kestxml/document/string_buffer.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace KestXmlLib20::internal {
namespace {

constexpr bool IsCopied(char16_t unit) {
  return unit >= u' ' || unit == u'\b' || unit == u'\t' || unit == u'\f';
}

std::size_t CountCopiedUnits(std::u16string_view text) {
  std::size_t count = 0;
#if defined(__SSE2__)
  // Groups without any control character, whichever it is.
  __m128i const lastControl = _mm_set1_epi16(u' ' - 1);
  for (; text.size() - count >= 8; count += 8) {
    auto const units = _mm_loadu_si128(reinterpret_cast<__m128i const*>(text.data() + count));
    __m128i const above = _mm_subs_epu16(units, lastControl);
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(above, _mm_setzero_si128())) != 0) break;
  }
#endif
  while (count < text.size() && IsCopied(text[count])) ++count;
  return count;
}

void AppendControl(CStringBuffer& out, char16_t unit) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  out.Append(u"\\u00");
  out.Append(kDigits[unit >> 4]);
  out.Append(kDigits[unit & 0xF]);
}

}  // namespace

void AppendJsonText(CStringBuffer& out, std::u16string_view text, std::u16string_view lineEnd) {
  for (;;) {
    std::size_t const count = CountCopiedUnits(text);
    out.Append(text.substr(0, count));
    if (count == text.size()) return;
    if (text[count] == u'\n') {
      out.Append(lineEnd);
    } else if (text[count] != u'\r') {
      AppendControl(out, text[count]);
    }
    text.remove_prefix(count + 1);
  }
}

bool IsPlainJsonText(std::u16string_view text) {
  return CountCopiedUnits(text) == text.size();
}

}  // namespace KestXmlLib20::internal
