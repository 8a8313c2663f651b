#include "kestxml/document/internal/xml_escape.h"

#include <cstdint>

#include "kestxml/document/text_pieces.h"
#include "kestxml/values/preserve_character_ref_cr.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#include <bit>
#endif

namespace KestXmlLib20::internal {
namespace {

enum class Place { Text, Attribute };

// The units that can't be copied, a bit each: all lie below 64.
template <Place place>
constexpr std::uint64_t kSpecialUnits = [] {
  std::uint64_t bits = 0;
  for (char16_t const unit : {u'\0', u'\n', u'\r', u'&', u'<', u'>'}) bits |= 1ull << unit;
  if (place == Place::Attribute) bits |= 1ull << u'"';
  return bits;
}();

template <Place place>
constexpr bool IsSpecial(char16_t unit) {
  return unit < 64 && (kSpecialUnits<place> >> unit & 1) != 0;
}

template <Place place>
std::size_t CountPlainUnitsSlowly(char16_t const* text, std::size_t length) {
  std::size_t count = 0;
  while (count < length && !IsSpecial<place>(text[count])) ++count;
  return count;
}

#if defined(__SSE2__)

// Where in @p units the first special one stands, 8 if there is none.
template <Place place>
std::size_t CountPlainUnits(__m128i units) {
  auto const equals = [units](char16_t unit) {
    return _mm_cmpeq_epi16(units, _mm_set1_epi16(static_cast<short>(unit)));
  };
  __m128i special = _mm_or_si128(equals(u'\0'), equals(u'\n'));
  special = _mm_or_si128(special, _mm_or_si128(equals(u'\r'), equals(u'&')));
  special = _mm_or_si128(special, _mm_or_si128(equals(u'<'), equals(u'>')));
  if constexpr (place == Place::Attribute) special = _mm_or_si128(special, equals(u'"'));
  auto const bits = static_cast<std::uint32_t>(_mm_movemask_epi8(special)) | 0x10000u;
  return static_cast<std::size_t>(std::countr_zero(bits)) / 2;
}

// The number of units at the start of @p text that can be copied.
template <Place place>
std::size_t CountPlainUnits(char16_t const* text, std::size_t length) {
  auto const at = [text](std::size_t index) {
    return reinterpret_cast<__m128i const*>(text + index);
  };
  if (length < 4) return CountPlainUnitsSlowly<place>(text, length);
  if (length < 8) {  // the first four and the last four, which may overlap
    std::size_t const count = CountPlainUnits<place>(
        _mm_unpacklo_epi64(_mm_loadl_epi64(at(0)), _mm_loadl_epi64(at(length - 4))));
    return count < 4 ? count : length - 8 + count;
  }
  for (std::size_t index = 0; index + 8 < length; index += 8) {
    std::size_t const count = CountPlainUnits<place>(_mm_loadu_si128(at(index)));
    if (count < 8) return index + count;
  }
  return length - 8 + CountPlainUnits<place>(_mm_loadu_si128(at(length - 8)));
}

#else

template <Place place>
std::size_t CountPlainUnits(char16_t const* text, std::size_t length) {
  return CountPlainUnitsSlowly<place>(text, length);
}

#endif

// What stands for @p unit, a special unit other than the null.
std::u16string_view Replacement(char16_t unit, std::u16string_view lineFeed) {
  switch (unit) {
    case u'\n':
      return lineFeed;
    case u'\r':
      return GetPreserveCharacterRefCR() ? u"&#xD;" : u"";
    case u'"':
      return u"&quot;";
    case u'&':
      return u"&amp;";
    case u'<':
      return u"&lt;";
    default:
      return u"&gt;";
  }
}

template <Place place>
void AppendEscaped(CStringBuffer& out, std::u16string_view text, std::u16string_view lineFeed) {
  for (;;) {
    std::size_t const count = CountPlainUnits<place>(text.data(), text.size());
    AppendPieces(out, Piece(text.substr(0, count)));
    if (count == text.size() || text[count] == u'\0') return;
    out.Append(Replacement(text[count], lineFeed));
    text.remove_prefix(count + 1);
  }
}

}  // namespace

void AppendCharacterData(CStringBuffer& out, std::u16string_view text,
                         std::u16string_view lineEnd) {
  AppendEscaped<Place::Text>(out, text, lineEnd);
}

bool IsPlainCharacterData(std::u16string_view text) {
  return CountPlainUnits<Place::Text>(text.data(), text.size()) == text.size();
}

void AppendAttributeValue(CStringBuffer& out, std::u16string_view text) {
  if (CountPlainUnits<Place::Attribute>(text.data(), text.size()) == text.size()) {
    AppendPieces(out, Piece(u'='), Piece(u'"'), Piece(text), Piece(u'"'));
  } else {
    out.Append(u"=\"");
    AppendEscaped<Place::Attribute>(out, text, u"&#xA;");
    out.Append(u'"');
  }
}

}  // namespace KestXmlLib20::internal
