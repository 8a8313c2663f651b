#include "kestxml/json/internal/json_tokenizer.h"

#include <algorithm>
#include <iterator>

#include "kestxml/json/json_reader_handler.h"
#include "kestxml/values/format_string.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#include <bit>
#endif

namespace KestXmlLib20::internal {
namespace {

constexpr bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

// Where a string can't go on as it is: a quotation mark, a backslash, or a line feed.
char16_t const* FindStop(char16_t const* at, char16_t const* end) {
#if defined(__SSE2__)
  auto const all = [](char16_t unit) { return _mm_set1_epi16(static_cast<short>(unit)); };
  for (; end - at >= 8; at += 8) {
    __m128i const units = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
    __m128i stops = _mm_cmpeq_epi16(units, all(u'"'));
    stops = _mm_or_si128(stops, _mm_cmpeq_epi16(units, all(u'\\')));
    stops = _mm_or_si128(stops, _mm_cmpeq_epi16(units, all(u'\n')));
    if (auto const bits = static_cast<unsigned>(_mm_movemask_epi8(stops))) {
      return at + std::countr_zero(bits) / 2;
    }
  }
#endif
  return std::find_if(at, end,
                      [](char16_t unit) { return unit == u'"' || unit == u'\\' || unit == u'\n'; });
}

// What a backslash and @p unit stand for; 0 for no escape.
constexpr char16_t MeaningOf(char16_t unit) {
  switch (unit) {
    case u'"':
    case u'\\':
    case u'/':
      return unit;
    case u'b':
      return u'\b';
    case u'f':
      return u'\f';
    case u'n':
      return u'\n';
    case u'r':
      return u'\r';
    case u't':
      return u'\t';
    default:
      return 0;
  }
}

}  // namespace

// The message has the word in capitals, the text must not.
void CJsonTokenizer::ReadNull() {
  std::u16string_view const rest = TakeBlock(3);
  if (IsAtEnd()) {
    throw Failure(u"Unexpected End of File. Expected value 'NULL' at line %d, position %d.");
  }
  if (rest != u"ull") throw Failure(u"Expected 'NULL' at line %d, position %d.");
  NextToken();
}

void CJsonTokenizer::ReadTrue() {
  std::u16string_view const rest = TakeBlock(3);
  if (IsAtEnd()) {
    throw Failure(u"Unexpected End of File. Expected value 'true' at line %d, position %d.");
  }
  if (rest != u"rue") throw Failure(u"Expected 'true' at line %d, position %d.");
  NextToken();
}

void CJsonTokenizer::ReadFalse() {
  std::u16string_view const rest = TakeBlock(4);
  if (IsAtEnd()) {
    throw Failure(u"Unexpected End of File. Expected value 'false' at line %d, position %d.");
  }
  if (rest != u"alse") throw Failure(u"Expected 'false' at line %d, position %d.");
  NextToken();
}

std::u16string_view CJsonTokenizer::ReadString() {
  m_text.clear();
  for (;;) {
    char16_t const* const begin = m_next;
    m_next = FindStop(begin, m_end);
    std::u16string_view const run(begin, static_cast<std::size_t>(m_next - begin));
    if (m_next == m_end) throw EndInString();
    char16_t const stop = *m_next++;
    if (stop == u'"' && m_text.empty()) {
      NextToken();
      return run;
    }
    m_text += run;
    if (stop == u'"') {
      NextToken();
      return m_text;
    }
    if (stop == u'\n') {
      StartLine();
    } else {
      ReadEscape();
    }
  }
}

void CJsonTokenizer::ReadEscape() {
  if (!NextUnit()) throw EndInString();
  if (Current() == u'u') {
    m_text += ReadHexDigit();
  } else if (char16_t const meaning = MeaningOf(Current())) {
    m_text += meaning;
  } else {
    throw FailureOnUnit(u"Invalid Escape Character '%c' at line %d, position %d.");
  }
}

// The four units are not read as a code point, and need not be digits: see CJsonTextReader.
char16_t CJsonTokenizer::ReadHexDigit() {
  std::u16string_view const digits = TakeBlock(4);
  if (IsAtEnd()) {
    throw Failure(
        u"Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line %d, position %d.");
  }
  return u"0123456789ABCDEF"[digits[0] >> 4 & 0xF];
}

std::u16string_view CJsonTokenizer::ReadNumber() {
  char16_t const* const begin = m_next - 1;
  if (Current() == u'-' && !NextUnit()) throw EndBeforeNumber();
  RequireDigit();
  if (Current() == u'0') {
    NextUnit();  // another digit would be no part of the number
  } else {
    SkipDigits();
  }
  if (!IsAtEnd() && Current() == u'.') ReadFraction();
  if (!IsAtEnd() && (Current() == u'e' || Current() == u'E')) ReadExponent();
  char16_t const* const end = IsAtEnd() ? m_next : m_next - 1;
  if (!IsAtEnd() && (Current() == u' ' || Current() == u'\t' || Current() == u'\r')) NextToken();
  return WithoutLineFeeds({begin, static_cast<std::size_t>(end - begin)});
}

void CJsonTokenizer::ReadFraction() {
  if (!NextUnit()) throw EndBeforeDigit();
  RequireDigit();
  SkipDigits();
}

void CJsonTokenizer::ReadExponent() {
  if (!NextUnit()) {
    throw Failure(
        u"Unexpected End of File. Expected '+', '-' or a number at line %d, position %d.");
  }
  if ((Current() == u'+' || Current() == u'-') && !NextUnit()) throw EndBeforeNumber();
  if (!IsDigit(Current())) throw EndBeforeDigit();  // as callers know it, though the text goes on
  SkipDigits();
}

// To behind the digits, of which the current unit is the first.
void CJsonTokenizer::SkipDigits() {
  while (NextUnit() && IsDigit(Current())) continue;
}

// The line feeds at the end of a number are behind it.
std::u16string_view CJsonTokenizer::WithoutLineFeeds(std::u16string_view text) {
  std::size_t const first = text.find(u'\n');
  if (first == text.npos) return text;
  m_text = text.substr(0, first);
  std::ranges::copy_if(text.substr(first), std::back_inserter(m_text),
                       [](char16_t unit) { return unit != u'\n'; });
  return m_text;
}

void CJsonTokenizer::RequireDigit() const {
  if (!IsDigit(Current())) {
    throw FailureOnUnit(u"Expected a digit '0' to '9', found '%c' at line %d, position %d.");
  }
}

CKestValidationException CJsonTokenizer::EndInString() const {
  return Failure(u"Unexpected End of File. Expected string value at line %d, position %d.");
}

CKestValidationException CJsonTokenizer::EndBeforeNumber() const {
  return Failure(u"Unexpected End of File. Expected a number at line %d, position %d.");
}

CKestValidationException CJsonTokenizer::EndBeforeDigit() const {
  return Failure(u"Unexpected End of File. Expected a digit '0' to '9' at line %d, position %d.");
}

CKestValidationException CJsonTokenizer::Failure(char16_t const* format) const {
  return {FormatString(format, Line(), Column()), ErrorPath()};
}

CKestValidationException CJsonTokenizer::FailureOnUnit(char16_t const* format) const {
  return {FormatString(format, Current(), Line(), Column()), ErrorPath()};
}

std::u16string CJsonTokenizer::ErrorPath() const {
  return m_path ? m_path->GetErrorPath() : std::u16string();
}

}  // namespace KestXmlLib20::internal
