#include "kestxml/values/primitive_restrictions.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <optional>
#include <typeinfo>
#include <utility>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/conversions.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/xsd_pattern.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20 {
namespace {

using internal::BoundValues;
using internal::DerivedBounds;

using C = CConversions;
using V = KestVariant;
using Name = char16_t const*;
using Restrictions = CPrimitiveRestrictions;

char16_t const* OrEmpty(char16_t const* text) {
  return text ? text : u"";
}

// A kind of value: how it is read from a variant, printed, and parsed where it has bounds.
template <auto Read, auto Print, auto Parse = nullptr>
struct Kind {
  static decltype(auto) Get(KestVariant const& variant) { return (variant.*Read)(); }
  static constexpr auto ToText = Print;
  static constexpr auto FromText = Parse;
};

// A bound that is set or not, of the kind that @p Parse gives.
template <auto Parse>
class Bound {
 public:
  using Value = decltype(Parse({}, {}));

  // The text stays where it is.
  explicit Bound(std::u16string const& text) : m_text(text) {
    if (m_text.empty()) return;
    try {
      m_value = ParseText();
    } catch (CKestException const&) {
      // Only a check that comes to this bound is to fail: Get throws again.
    }
  }

  // Null when the bound is not set.
  Value const* Get() const {
    if (!m_value && !m_text.empty()) ParseText();
    return m_value ? &*m_value : nullptr;
  }

 private:
  Value ParseText() const { return Parse(m_text, CWhitespaceUtils::WhitespaceRule_Collapse); }

  std::u16string const& m_text;
  std::optional<Value> m_value;
};

// Passing an exclusive bound. A NaN is neither below nor above a bound and does not pass, but what
// can't be compared with it, as a date with a zone and one without, does.

template <typename Value>
concept PartlyOrdered = std::same_as<Value, CDateTime> || std::same_as<Value, CDateTimeSpan>;

template <typename Value>
bool IsAbove(Value const& value, Value const& bound) {
  return value > bound;
}
template <PartlyOrdered Value>
bool IsAbove(Value const& value, Value const& bound) {
  return value != bound && !(value < bound);
}

template <typename Value>
bool IsBelow(Value const& value, Value const& bound) {
  return value < bound;
}
template <PartlyOrdered Value>
bool IsBelow(Value const& value, Value const& bound) {
  return value != bound && !(value > bound);
}

template <auto Parse>
class Bounds final : public BoundValues {
 public:
  explicit Bounds(Restrictions const& restrictions)
      : m_minInclusive(restrictions.GetMinInclusive()),
        m_maxInclusive(restrictions.GetMaxInclusive()),
        m_minExclusive(restrictions.GetMinExclusive()),
        m_maxExclusive(restrictions.GetMaxExclusive()) {}

  // A bound behind one that refuses the value is not looked at, so its text may be faulty.
  template <typename Value>
  bool Allow(Value const& value) const {
    if (auto const* bound = m_minInclusive.Get(); bound && value < *bound) return false;
    if (auto const* bound = m_maxInclusive.Get(); bound && value > *bound) return false;
    if (auto const* bound = m_minExclusive.Get(); bound && !IsAbove(value, *bound)) return false;
    if (auto const* bound = m_maxExclusive.Get(); bound && !IsBelow(value, *bound)) return false;
    return true;
  }

 private:
  Bound<Parse> m_minInclusive, m_maxInclusive, m_minExclusive, m_maxExclusive;
};

bool HasBounds(Restrictions const& restrictions) {
  return !restrictions.GetMinInclusive().empty() || !restrictions.GetMaxInclusive().empty() ||
         !restrictions.GetMinExclusive().empty() || !restrictions.GetMaxExclusive().empty();
}

template <auto Parse, typename Value>
bool IsWithinBounds(Value const& value, Restrictions const& restrictions) {
  if (!HasBounds(restrictions)) return true;
  DerivedBounds const& derived = restrictions.GetDerivedBounds();
  BoundValues const* const kept = derived.Get();
  if (kept && typeid(*kept) == typeid(Bounds<Parse>)) {
    return static_cast<Bounds<Parse> const&>(*kept).Allow(value);
  }
  auto bounds = std::make_unique<Bounds<Parse> const>(restrictions);
  bool const passes = bounds->Allow(value);
  derived.Keep(std::move(bounds));
  return passes;
}

// A facet below 0 is not set.
bool HasLength(std::size_t length, Restrictions const& restrictions) {
  std::int32_t const least = restrictions.GetMinLength();
  std::int32_t const most = restrictions.GetMaxLength();
  std::int32_t const exact = restrictions.GetLength();
  return (least < 0 || length >= static_cast<std::size_t>(least)) &&
         (most < 0 || length <= static_cast<std::size_t>(most)) &&
         (exact < 0 || length == static_cast<std::size_t>(exact));
}

// The facets that a kind of value has.

struct BoundFacets {
  template <typename OfKind, typename Value>
  static bool Allow(Value const& value, Restrictions const& restrictions) {
    return IsWithinBounds<OfKind::FromText>(value, restrictions);
  }
};

// Digits are counted as characters of the text: a minus sign is one of them.
struct IntegerFacets {
  template <typename OfKind, typename Value>
  static bool Allow(Value const& value, Restrictions const& restrictions) {
    std::int32_t const most = restrictions.GetTotalDigits();
    return IsWithinBounds<OfKind::FromText>(value, restrictions) &&
           (most < 0 || OfKind::ToText(value).size() <= static_cast<std::size_t>(most));
  }
};

// Of an integer; none for zero.
std::size_t CountDigits(CBigInteger const& value) {
  return value == CBigInteger() ? 0 : value.GetAbs().ToString().size();
}

// The digits of a fraction are counted as a number's, so the zeros behind the point are none.
struct DecimalFacets {
  template <typename OfKind>
  static bool Allow(CDecimal const& value, Restrictions const& restrictions) {
    if (!IsWithinBounds<OfKind::FromText>(value, restrictions)) return false;
    std::int32_t const most = restrictions.GetTotalDigits();
    std::int32_t const mostFraction = restrictions.GetFractionDigits();
    if (most < 0 && mostFraction < 0) return true;
    std::size_t const fraction = CountDigits(value.GetFractionPart());
    std::size_t const total = CountDigits(value.GetIntegerPart()) + fraction;
    return (most < 0 || total <= static_cast<std::size_t>(most)) &&
           (mostFraction < 0 || fraction <= static_cast<std::size_t>(mostFraction));
  }
};

struct BinaryFacets {
  template <typename OfKind>
  static bool Allow(CBinaryData const& value, Restrictions const& restrictions) {
    return HasLength(value.GetLength(), restrictions);
  }
};

struct StringFacets {
  template <typename OfKind>
  static bool Allow(std::u16string const& value, Restrictions const& restrictions) {
    std::u16string const& pattern = restrictions.GetPattern();
    return HasLength(value.size(), restrictions) &&
           (pattern.empty() || internal::MatchXsdPattern(pattern, value));
  }
};

// How a value that is not allowed is reported.

struct AsText {
  template <typename OfKind, typename Value>
  [[noreturn]] static void Throw(Name name, Value const& value) {
    throw CKestException(FormatString(u"Invalid Value for %s [%s].", name, OfKind::ToText(value)));
  }
};

// The conversion is that of a signed number: a large unsigned one shows as negative.
struct AsInteger {
  template <typename OfKind, typename Value>
  [[noreturn]] static void Throw(Name name, Value value) {
    throw CKestException(FormatString(u"Invalid Value for %s [%d]", name, value));
  }
};

struct AsReal {
  template <typename OfKind>
  [[noreturn]] static void Throw(Name name, double value) {
    throw CKestException(FormatString(u"Invalid Value for %s [%f]", name, value));
  }
};

// Facets that can't be checked get the reason in front; a value that they refuse has no other
// reason than itself.
template <typename OfKind, typename Facets, typename Report>
void Check(Name name, KestVariant const& variant, Restrictions const& restrictions) {
  if (restrictions.IsEmpty()) return;
  auto const& value = OfKind::Get(variant);
  bool allowed = false;
  try {
    allowed = Facets::template Allow<OfKind>(value, restrictions);
  } catch (CKestException const& failure) {
    throw CKestException(FormatString(u"%s\nInvalid Value for %s [%s].", failure.GetMessageW(),
                                      name, OfKind::ToText(value)));
  }
  if (!allowed) Report::template Throw<OfKind>(name, value);
}

void CheckNothing(Name /*name*/, KestVariant const& /*variant*/, Restrictions const& /*none*/) {}

std::u16string R4ToText(float value) {
  return C::r4ToString(value);
}
std::u16string R8ToText(double value) {
  return C::r8ToString(value);
}

std::u16string DecimalToText(CDecimal const& value) {
  return C::decimalToString(value);
}

struct KindCheck {
  ItemType type;
  void (*check)(Name name, KestVariant const& variant, Restrictions const& restrictions);
};

// clang-format off
constexpr KindCheck kChecks[] = {
    // type                             read as              printed as                parsed as                  facets         reported
    {ItemType_hexBinary,    Check<Kind<&V::GetHexBinary,    &C::hexBinaryToString>,                             BinaryFacets,  AsText>},
    {ItemType_base64Binary, Check<Kind<&V::GetBase64Binary, &C::base64BinaryToString>,                          BinaryFacets,  AsText>},
    {ItemType_i1,           Check<Kind<&V::GetI1,           &C::i1ToString,           &C::i1FromString>,        IntegerFacets, AsInteger>},
    {ItemType_i2,           Check<Kind<&V::GetI2,           &C::i2ToString,           &C::i2FromString>,        IntegerFacets, AsInteger>},
    {ItemType_i4,           Check<Kind<&V::GetI4,           &C::i4ToString,           &C::i4FromString>,        IntegerFacets, AsInteger>},
    {ItemType_i8,           Check<Kind<&V::GetI8,           &C::i8ToString,           &C::i8FromString>,        IntegerFacets, AsText>},
    {ItemType_ui1,          Check<Kind<&V::GetUI1,          &C::ui1ToString,          &C::ui1FromString>,       IntegerFacets, AsInteger>},
    {ItemType_ui2,          Check<Kind<&V::GetUI2,          &C::ui2ToString,          &C::ui2FromString>,       IntegerFacets, AsInteger>},
    {ItemType_ui4,          Check<Kind<&V::GetUI4,          &C::ui4ToString,          &C::ui4FromString>,       IntegerFacets, AsInteger>},
    {ItemType_ui8,          Check<Kind<&V::GetUI8,          &C::ui8ToString,          &C::ui8FromString>,       IntegerFacets, AsText>},
    {ItemType_r4,           Check<Kind<&V::GetR4,           R4ToText,                 &C::r4FromString>,        BoundFacets,   AsReal>},
    {ItemType_r8,           Check<Kind<&V::GetR8,           R8ToText,                 &C::r8FromString>,        BoundFacets,   AsReal>},
    {ItemType_duration,     Check<Kind<&V::GetDuration,     &C::durationToString,     &C::durationFromString>,  BoundFacets,   AsText>},
    {ItemType_yearMonth,    Check<Kind<&V::GetYearMonth,    &C::dateToString,         &C::yearMonthFromString>, BoundFacets,   AsText>},
    {ItemType_monthDay,     Check<Kind<&V::GetMonthDay,     &C::dateToString,         &C::monthDayFromString>,  BoundFacets,   AsText>},
    {ItemType_year,         Check<Kind<&V::GetYear,         &C::yearToString,         &C::yearFromString>,      BoundFacets,   AsInteger>},
    {ItemType_month,        Check<Kind<&V::GetMonth,        &C::monthToString,        &C::monthFromString>,     BoundFacets,   AsInteger>},
    {ItemType_day,          Check<Kind<&V::GetDay,          &C::dayToString,          &C::dayFromString>,       BoundFacets,   AsInteger>},
    {ItemType_date,         Check<Kind<&V::GetDate,         &C::dateToString,         &C::dateFromString>,      BoundFacets,   AsText>},
    {ItemType_datetime,     Check<Kind<&V::GetDateTime,     &C::dateToString,         &C::datetimeFromString>,  BoundFacets,   AsText>},
    {ItemType_time,         Check<Kind<&V::GetTime,         &C::dateToString,         &C::timeFromString>,      BoundFacets,   AsText>},
    {ItemType_string,       Check<Kind<&V::GetString,       &C::stringToString>,                                StringFacets,  AsText>},
    {ItemType_boolean,      CheckNothing},
    {ItemType_decimal,      Check<Kind<&V::GetDecimal,      DecimalToText,            &C::decimalFromString>,   DecimalFacets, AsText>},
    {ItemType_integer,      Check<Kind<&V::GetInteger,      &C::integerToString,      &C::integerFromString>,   IntegerFacets, AsText>},
};
// clang-format on

using CheckIndex = std::array<decltype(KindCheck::check), kItemTypeCount>;

constexpr CheckIndex MakeIndex() {
  CheckIndex index = {};
  for (KindCheck const& kind : kChecks) index[static_cast<std::size_t>(kind.type)] = kind.check;
  return index;
}

// Null where a kind has no facets.
constexpr CheckIndex kIndex = MakeIndex();

}  // namespace

namespace internal {

DerivedBounds& DerivedBounds::operator=(DerivedBounds const& other) {
  if (this != &other) {
    std::unique_ptr<BoundValues const> const old(m_values.exchange(nullptr));
  }
  return *this;
}

DerivedBounds::~DerivedBounds() {
  std::unique_ptr<BoundValues const> const last(m_values.load(std::memory_order_acquire));
}

void DerivedBounds::Keep(std::unique_ptr<BoundValues const> values) const {
  BoundValues const* none = nullptr;
  if (m_values.compare_exchange_strong(none, values.get(), std::memory_order_acq_rel)) {
    static_cast<void>(values.release());
  }
}

}  // namespace internal

CPrimitiveRestrictions::CPrimitiveRestrictions(char16_t const* pattern, std::int32_t minLength,
                                               std::int32_t maxLength, char16_t const* minInclusive,
                                               char16_t const* maxInclusive,
                                               char16_t const* minExclusive,
                                               char16_t const* maxExclusive, std::int32_t length,
                                               std::int32_t totalDigits,
                                               std::int32_t fractionDigits)
    : m_pattern(OrEmpty(pattern)),
      m_minLength(minLength),
      m_maxLength(maxLength),
      m_minInclusive(OrEmpty(minInclusive)),
      m_maxInclusive(OrEmpty(maxInclusive)),
      m_minExclusive(OrEmpty(minExclusive)),
      m_maxExclusive(OrEmpty(maxExclusive)),
      m_length(length),
      m_totalDigits(totalDigits),
      m_fractionDigits(fractionDigits),
      m_isEmpty(m_pattern.empty() && !HasBounds(*this) &&
                std::max({minLength, maxLength, length, totalDigits, fractionDigits}) < 0) {}

void CheckPrimitiveRestriction(char16_t const* name, KestVariant const& value, ItemType type,
                               CPrimitiveRestrictions const& restrictions) {
  bool const isKind = type >= 0 && type < kItemTypeCount;
  auto const check = isKind ? kIndex[static_cast<std::size_t>(type)] : nullptr;
  if (!check) throw CKestInvalidValueException(u"Unknown type [" + value.GetType() + u"].");
  check(name, value, restrictions);
}

}  // namespace KestXmlLib20
