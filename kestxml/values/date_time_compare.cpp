// CDateTime: the order relation of XML Schema.

#include <array>

#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/internal/date_time_kind.h"

namespace KestXmlLib20 {
namespace {

using Result = CDateTime::DTCompareResult;

constexpr Result kEqual = CDateTime::DTCompareResult_Equal;
constexpr Result kLess = CDateTime::DTCompareResult_LessThan;
constexpr Result kGreater = CDateTime::DTCompareResult_GreaterThan;
constexpr Result kIndeterminate = CDateTime::DTCompareResult_Indeterminate;

constexpr std::int16_t kWidestOffset = 14;  // hours, either way, of a zone that is not known

// A field that one value lacks counts as -1 there. Different signs so tell that the two can't be
// compared, but also take in a year before Christ beside one after.
template <typename Number>
Result Compare(Number left, Number right) {
  if (left * right < 0) return kIndeterminate;
  if (left == right) return kEqual;
  return left < right ? kLess : kGreater;
}

CDateTime InZone(CDateTime value, std::int16_t hour) {
  value.SetTimeZone(hour, 0);
  return value.GetNormalized();
}

}  // namespace

CDateTime CDateTime::GetNormalized() const {
  CDateTime utc = *this;
  if (!m_hasTimeZone) return utc;
  CDateTimeSpan offset;
  offset.SetHours(static_cast<std::uint32_t>(m_zoneHour < 0 ? -m_zoneHour : m_zoneHour));
  offset.SetMinutes(m_zoneMinute);
  if (m_zoneHour >= 0) offset.Negate();
  utc += offset;
  utc.SetTimeZone(0, 0);
  return utc;
}

Result CDateTime::CompareFields(CDateTime const& other) const {
  auto const fieldsOf = [](CDateTime const& value) {
    internal::DateTimeKind const& kind = internal::KindOf(value.m_type);
    auto const orNone = [&](unsigned field, int number) { return kind.Has(field) ? number : -1; };
    return std::array{orNone(internal::kYear, value.m_year),
                      orNone(internal::kMonth, value.m_month), orNone(internal::kDay, value.m_day),
                      orNone(internal::kTime, value.m_hour),
                      orNone(internal::kTime, value.m_minute)};
  };
  auto const secondsOf = [](CDateTime const& value) {
    return internal::KindOf(value.m_type).Has(internal::kTime) ? value.RealSecond() : -1.0;
  };
  auto const left = fieldsOf(*this);
  auto const right = fieldsOf(other);
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (Result const result = Compare(left[i], right[i]); result != kEqual) return result;
  }
  return Compare(secondsOf(*this), secondsOf(other));
}

Result CDateTime::CompareTo(CDateTime const& other) const {
  CDateTime const left = GetNormalized();
  CDateTime const right = other.GetNormalized();
  if (left.m_isUtc == right.m_isUtc) return left.CompareFields(right);
  if (left.m_isUtc) {
    if (left.CompareFields(InZone(right, kWidestOffset)) == kLess) return kLess;
    bool const isGreater = left.CompareFields(InZone(right, -kWidestOffset)) == kGreater;
    return isGreater ? kGreater : kIndeterminate;
  }
  if (InZone(left, kWidestOffset).CompareFields(right) == kGreater) return kGreater;
  bool const isLess = InZone(left, -kWidestOffset).CompareFields(right) == kLess;
  return isLess ? kLess : kIndeterminate;
}

bool CDateTime::operator==(CDateTime const& other) const {
  return CompareTo(other) == kEqual;
}
bool CDateTime::operator!=(CDateTime const& other) const {
  return CompareTo(other) != kEqual;
}
bool CDateTime::operator<(CDateTime const& other) const {
  return CompareTo(other) == kLess;
}
bool CDateTime::operator<=(CDateTime const& other) const {
  Result const result = CompareTo(other);
  return result == kLess || result == kEqual;
}
bool CDateTime::operator>(CDateTime const& other) const {
  return CompareTo(other) == kGreater;
}
bool CDateTime::operator>=(CDateTime const& other) const {
  Result const result = CompareTo(other);
  return result == kGreater || result == kEqual;
}

}  // namespace KestXmlLib20
