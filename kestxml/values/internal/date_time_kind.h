// What the types of date and time have in common, one row for each.
#pragma once

#include <cstddef>
#include <iterator>

#include "kestxml/values/date_time.h"

namespace KestXmlLib20::internal {

/// Fields that a type may have, to be joined with |.
inline constexpr unsigned kYear = 1;
inline constexpr unsigned kMonth = 2;
inline constexpr unsigned kDay = 4;
inline constexpr unsigned kTime = 8;  ///< hour and below
inline constexpr unsigned kWholeDate = kYear | kMonth | kDay;

struct DateTimeKind {
  CDateTime::DTType type;
  unsigned fields;
  char16_t const* name;
  /// What is printed: Y, M and D stand for those fields, t for hh:mm:ss and the fraction.
  char16_t const* form;

  constexpr bool Has(unsigned wanted) const { return (fields & wanted) == wanted; }
};

// clang-format off
inline constexpr DateTimeKind kDateTimeKinds[] = {
    {CDateTime::dt_none,       0,                   u"yearZero",   u""},
    {CDateTime::dt_dateTime,   kWholeDate | kTime,  u"dateTime",   u"Y-M-DTt"},
    {CDateTime::dt_date,       kWholeDate,          u"date",       u"Y-M-D"},
    {CDateTime::dt_gYearMonth, kYear | kMonth,      u"gYearMonth", u"Y-M"},
    {CDateTime::dt_gYear,      kYear,               u"gYear",      u"Y"},
    {CDateTime::dt_time,       kTime,               u"time",       u"t"},
    {CDateTime::dt_gDay,       kDay,                u"gDay",       u"---D"},
    {CDateTime::dt_gMonth,     kMonth,              u"gMonth",     u"--M"},
    {CDateTime::dt_gMonthDay,  kMonth | kDay,       u"gMonthDay",  u"--M-D"},
};
// clang-format on

inline constexpr DateTimeKind kUnknownDateTimeKind = {{}, 0, u"", u""};

constexpr bool IsDateTimeKind(CDateTime::DTType type) {
  return type >= 0 && static_cast<std::size_t>(type) < std::size(kDateTimeKinds);
}

/// A number that is no type has no name and no fields.
constexpr DateTimeKind const& KindOf(CDateTime::DTType type) {
  return IsDateTimeKind(type) ? kDateTimeKinds[type] : kUnknownDateTimeKind;
}

constexpr bool InEnumOrder() {
  for (std::size_t i = 0; i < std::size(kDateTimeKinds); ++i) {
    if (kDateTimeKinds[i].type != static_cast<CDateTime::DTType>(i)) return false;
  }
  return true;
}
static_assert(InEnumOrder());

}  // namespace KestXmlLib20::internal
