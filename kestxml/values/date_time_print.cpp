// CDateTime: writing to text.

#include <cstdlib>
#include <string_view>

#include "kestxml/values/date_time.h"
#include "kestxml/values/internal/date_time_kind.h"
#include "kestxml/values/internal/digit_text.h"

namespace KestXmlLib20 {

using internal::DigitText;

void CDateTime::PutField(DigitText& out, char16_t letter) const {
  switch (letter) {
    case u'Y':
      if (m_year < 0) out.Mark(u'-');
      out.Put(static_cast<unsigned>(std::abs(m_year)), 4);
      break;
    case u'M':
      out.PutPair(m_month);
      break;
    case u'D':
      out.PutPair(m_day);
      break;
    case u't':
      out.PutPair(m_hour);
      out.Mark(u':');
      out.PutPair(m_minute);
      out.Mark(u':');
      out.PutPair(m_second);
      out.PutFraction(m_milliSecond, m_microSecond, m_nanoSecond);
      break;
    default:
      out.Mark(letter);
  }
}

void CDateTime::PutZone(DigitText& out) const {
  if (!m_isUtc) return;
  if (!m_hasTimeZone) {
    out.Mark(u'Z');
    return;
  }
  out.Mark(m_zoneHour < 0 ? u'-' : u'+');
  out.PutPair(static_cast<unsigned>(std::abs(m_zoneHour)));
  out.Mark(u':');
  out.PutPair(m_zoneMinute);
}

bool CDateTime::IsSet() const {
  if (m_type == dt_none || m_type == dt_time) return m_type == dt_time;
  return (m_year | m_month | m_day | m_hour | m_minute | m_second | m_milliSecond | m_microSecond |
          m_nanoSecond) != 0;
}

std::u16string CDateTime::ToString(char16_t const* format) const {
  if (!IsSet()) return u"Error: Date Not Set";
  if (!format || format == std::u16string_view(u"G")) return {};
  if (format != std::u16string_view(u"s")) return std::u16string(u"Unknown Format: ") + format;
  DigitText out;
  for (char16_t const* letter = internal::KindOf(m_type).form; *letter; ++letter) {
    PutField(out, *letter);
  }
  PutZone(out);
  return out.ToString();
}

}  // namespace KestXmlLib20
