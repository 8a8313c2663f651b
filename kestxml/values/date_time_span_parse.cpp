// CDateTimeSpan: reading from text.

#include <algorithm>

#include "kestxml/values/date_time_span.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/digit_scanner.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

using Text = std::u16string_view;

// How far a text has come. Units follow one another in this order, but for years, which are taken
// anywhere and bring the text back to its start.
enum Stage : int {
  kStart,
  kAfterYears,
  kAfterMonths,
  kAfterDays,
  kAfterT,
  kAfterHours,
  kAfterMinutes,
  kAfterSeconds,
};

struct Unit {
  char16_t letter;
  Stage first, last;  // where it may stand
  Stage next;
  void (*store)(CDateTimeSpan& span, std::uint32_t number);
};

using Span = CDateTimeSpan;
using Number = std::uint32_t;

// clang-format off
constexpr Unit kUnits[] = {
    {u'Y', kStart,  kAfterSeconds, kAfterYears,   [](Span& s, Number n) { s.SetYears(static_cast<std::uint16_t>(n)); }},
    {u'M', kStart,  kAfterYears,   kAfterMonths,  [](Span& s, Number n) { s.SetMonths(n); }},
    {u'D', kStart,  kAfterMonths,  kAfterDays,    [](Span& s, Number n) { s.SetDays(n); }},
    {u'H', kAfterT, kAfterT,       kAfterHours,   [](Span& s, Number n) { s.SetHours(n); }},
    {u'M', kAfterT, kAfterHours,   kAfterMinutes, [](Span& s, Number n) { s.SetMinutes(n); }},
    {u'S', kAfterT, kAfterMinutes, kAfterSeconds, [](Span& s, Number n) { s.SetSeconds(n); }},
    {u'.', kAfterT, kAfterMinutes, kAfterSeconds, [](Span& s, Number n) { s.SetSeconds(n); }},
};
// clang-format on

Unit const* FindUnit(char16_t letter, Stage stage) {
  for (Unit const& unit : kUnits) {
    if (unit.letter == letter && stage >= unit.first && stage <= unit.last) return &unit;
  }
  return nullptr;
}

// Wraps at 32 bits; no digits make 0.
Number ToNumber(Text digits) {
  Number number = 0;
  for (char16_t const digit : digits) number = number * 10 + (digit - Number{u'0'});
  return number;
}

// What is left of a text.
class Rest {
 public:
  explicit Rest(Text text) : m_text(text) {}

  bool IsEmpty() const { return m_text.empty(); }

  bool Skip(char16_t unit) {
    bool const found = m_text.starts_with(unit);
    if (found) m_text.remove_prefix(1);
    return found;
  }

  Text TakeDigits() {
    Text const digits = internal::LeadingDigits(m_text);
    m_text.remove_prefix(digits.size());
    return digits;
  }

  // Null at the end.
  char16_t Take() {
    if (IsEmpty()) return u'\0';
    char16_t const unit = m_text.front();
    m_text.remove_prefix(1);
    return unit;
  }

 private:
  Text m_text;
};

// The last digits replace one another, so .123456789 has 9 nanoseconds; sums and documents made
// from such values have come to depend on it.
void StoreFraction(Span& span, Text digits) {
  span.SetMilliSeconds(internal::FractionGroup(digits, 0));
  span.SetMicroSeconds(internal::FractionGroup(digits, 3));
  if (digits.size() > 6) span.SetNanoSeconds(static_cast<std::uint16_t>(digits.back() - u'0'));
}

// What follows the point.
bool ReadFraction(Span& span, Rest& rest, Text text) {
  Text const digits = rest.TakeDigits();
  if (digits.size() > internal::kMostFractionDigits) {
    throw CKestInvalidValueException(
        FormatString(u"Invalid XSD Duration [%s] Fraction part too long", text));
  }
  StoreFraction(span, digits);
  return rest.Skip(u'S');
}

// False where a character is out of place. The span is empty before.
bool Read(Span& span, Text text) {
  Rest rest(text);
  if (rest.Skip(u'-')) span.Negate();
  if (!rest.Skip(u'P')) return false;
  bool hasT = false;
  Stage stage = kStart;
  while (!rest.IsEmpty()) {
    Number const number = ToNumber(rest.TakeDigits());
    char16_t const letter = rest.Take();
    if (letter == u'T' && !hasT) {
      hasT = true;
      stage = std::max(stage, kAfterT);
      continue;
    }
    Unit const* const unit = FindUnit(letter, stage);
    if (!unit) return false;
    unit->store(span, number);
    stage = unit->next;
    if (letter == u'.' && !ReadFraction(span, rest, text)) return false;
  }
  return stage != kStart && stage != kAfterT;
}

}  // namespace

void CDateTimeSpan::ParseXSDDuration(char16_t const* text) {
  ParseXSDDuration(text ? Text(text) : Text());
}

void CDateTimeSpan::ParseXSDDuration(Text text) {
  Clear();
  text = internal::UpToNull(text);
  if (text.empty()) throw CKestInvalidValueException(u"Invalid XSD Duration (Empty String)");
  if (Read(*this, text)) return;
  throw CKestInvalidValueException(
      FormatString(u"Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
}

}  // namespace KestXmlLib20
