// CDateTime: reading from text.

#include "kestxml/values/date_time.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/digit_scanner.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::DigitScanner;

namespace {

using Text = std::u16string_view;

constexpr std::size_t kOffsetLength = 6;  // of "+hh:mm"
constexpr std::size_t kClockLength = 8;   // of "hh:mm:ss"

[[noreturn]] void ThrowBadDate(Text text) {
  throw CKestInvalidValueException(
      FormatString(u"Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text));
}

// How many characters at the end of @p text are a zone.
std::size_t LengthOfZone(Text text) {
  bool const hasOffset = text.find(u':') != Text::npos;
  bool const hasZ = text.back() == u'Z';
  if (hasOffset && hasZ) throw CKestInvalidValueException(u"Invalid Date (Bad Zone value)");
  if (hasOffset && text.size() < kOffsetLength) ThrowBadDate(text);
  return hasOffset ? kOffsetLength : hasZ ? 1 : 0;
}

struct DateFields {
  CDateTime::DTType type = CDateTime::dt_none;  // where the text has no shape of a date
  int year = 0, month = 0, day = 0;
};

DateFields ReadYearless(Text body) {
  DateFields fields;
  DigitScanner scanner(body);
  scanner.Mark(u'-');
  scanner.Mark(u'-');
  switch (body.size()) {
    case 4:  // --MM
    case 6:  // --MM--, as it was once written; no one has looked at its end since
      fields.type = CDateTime::dt_gMonth;
      fields.month = scanner.Digits(2);
      break;
    case 5:  // ---DD
      fields.type = CDateTime::dt_gDay;
      scanner.Mark(u'-');
      fields.day = scanner.Digits(2);
      break;
    case 7:  // --MM-DD
      fields.type = CDateTime::dt_gMonthDay;
      fields.month = scanner.Digits(2);
      scanner.Mark(u'-');
      fields.day = scanner.Digits(2);
      break;
    default:
      return {};
  }
  return scanner.IsMatch() ? fields : DateFields();
}

DateFields ReadWithYear(Text body) {
  bool const negative = body.starts_with(u'-');
  if (negative) body.remove_prefix(1);
  DateFields fields;
  switch (body.size()) {
    case 4:
      fields.type = CDateTime::dt_gYear;
      break;
    case 7:
      fields.type = CDateTime::dt_gYearMonth;
      break;
    case 10:
      fields.type = CDateTime::dt_date;
      break;
    default:
      return {};
  }
  DigitScanner scanner(body);
  int const year = scanner.Digits(4);
  fields.year = negative ? -year : year;
  if (fields.type != CDateTime::dt_gYear) {
    scanner.Mark(u'-');
    fields.month = scanner.Digits(2);
  }
  if (fields.type == CDateTime::dt_date) {
    scanner.Mark(u'-');
    fields.day = scanner.Digits(2);
  }
  return scanner.IsMatch() ? fields : DateFields();
}

}  // namespace

// The form overrules a type that the value has: a date property takes u"2001" as a year.
void CDateTime::SetXSDDate(Text text) {
  if (text.empty()) throw CKestInvalidValueException(u"Invalid Date (Empty String)");
  std::size_t const zoneLength = LengthOfZone(text);
  Text const body = text.substr(0, text.size() - zoneLength);
  DateFields const fields = body.starts_with(u"--") ? ReadYearless(body) : ReadWithYear(body);
  if (fields.type == dt_none) ThrowBadDate(text);
  m_type = fields.type;
  m_year = static_cast<std::int16_t>(fields.year);
  m_month = static_cast<std::uint8_t>(fields.month);
  m_day = static_cast<std::uint8_t>(fields.day);
  if (zoneLength != 0) SetZone(text.substr(body.size()));
}

void CDateTime::SetXSDTime(Text text) {
  if (text.empty()) throw CKestInvalidValueException(u"Invalid XSD Time (Empty String)");
  if (!SetClock(text)) {
    throw CKestInvalidValueException(
        FormatString(u"Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text));
  }
  Text rest = text.substr(kClockLength);
  if (rest.starts_with(u'.')) {
    Text const digits = internal::LeadingDigits(rest.substr(1));
    if (digits.size() > internal::kMostFractionDigits) {
      throw CKestInvalidValueException(
          FormatString(u"Invalid XSD Time [%s] Fraction part too long", text));
    }
    m_milliSecond = internal::FractionGroup(digits, 0);
    m_microSecond = internal::FractionGroup(digits, 3);
    m_nanoSecond = internal::FractionGroup(digits, 6);
    rest.remove_prefix(1 + digits.size());
  }
  if (!rest.empty()) SetZone(rest);
  m_type = dt_time;
}

// False where the text does not begin with hh:mm:ss. There is no 24:00:00.
bool CDateTime::SetClock(Text text) {
  if (text.size() < kClockLength) return false;
  DigitScanner scanner(text);
  int const hour = scanner.Digits(2);
  scanner.Mark(u':');
  int const minute = scanner.Digits(2);
  scanner.Mark(u':');
  int const second = scanner.Digits(2);
  m_hour = static_cast<std::uint8_t>(hour);
  m_minute = static_cast<std::uint8_t>(minute);
  m_second = static_cast<std::uint8_t>(second);
  return scanner.IsMatch() && hour < 24 && minute < 60 && second < 60;
}

// What begins like no zone is none, and no failure: documents have all sorts of text there. The
// offset -00:30 has no hour to carry its sign, and becomes +00:30.
void CDateTime::SetZone(Text text) {
  if (text.front() == u'Z') {
    m_isUtc = true;
    m_hasTimeZone = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
    return;
  }
  if (text.front() != u'+' && text.front() != u'-') return;
  int hour = 0;
  int minute = 0;
  bool matches = text.size() == kOffsetLength;
  if (matches) {
    DigitScanner scanner(text.substr(1));
    hour = scanner.Digits(2);
    scanner.Mark(u':');
    minute = scanner.Digits(2);
    matches = scanner.IsMatch();
  }
  if (!matches) {
    throw CKestInvalidValueException(FormatString(u"Invalid XSD Time Zone [%s].", text));
  }
  if (hour == 24) hour = 0;
  if (text.front() == u'-') hour = -hour;
  SetTimeZone(static_cast<std::int16_t>(hour), static_cast<unsigned char>(minute));
}

void CDateTime::ParseXSDDateTime(char16_t const* text) {
  if (!text) throw CKestInvalidValueException(u"Invalid DateTime (Null String)");
  ParseXSDDateTime(Text(text));
}

void CDateTime::ParseXSDDateTime(Text text) {
  text = internal::UpToNull(text);
  std::size_t const mark = text.find(u'T');
  if (mark == Text::npos) {
    throw CKestInvalidValueException(FormatString(u"Invalid XSD DateTime [%s].", text));
  }
  Clear();
  SetXSDDate(text.substr(0, mark));
  if (m_type != dt_date) {
    throw CKestInvalidValueException(
        FormatString(u"Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text));
  }
  SetXSDTime(text.substr(mark + 1));
  m_type = dt_dateTime;
  Validate();
}

void CDateTime::ParseXSDDate(char16_t const* text) {
  Clear();
  if (!text) throw CKestInvalidValueException(u"Invalid Date (Null String)");
  ParseXSDDate(Text(text));
}

void CDateTime::ParseXSDDate(Text text) {
  Clear();
  text = internal::UpToNull(text);
  if (text.find(u'T') != Text::npos) {
    throw CKestInvalidValueException(u"Invalid Date ('T' not allowed)");
  }
  SetXSDDate(text);
  Validate();
}

void CDateTime::ParseXSDTime(char16_t const* text) {
  Clear();
  if (!text) throw CKestInvalidValueException(u"Invalid Time (Null String)");
  ParseXSDTime(Text(text));
}

void CDateTime::ParseXSDTime(Text text) {
  Clear();
  SetXSDTime(internal::UpToNull(text));
  Validate();
}

}  // namespace KestXmlLib20
