#include "kestxml/values/kest_variant.h"

#include <cstring>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/values/big_integer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/conversions.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;

// What is done with the object that a variant points to. Neither is called with null.
struct Storage {
  void* (*share)(void* object);  // the pointer that a copy of the variant holds
  void (*release)(void* object);
};

template <typename T>
constexpr Storage kOwned = {
    [](void* object) -> void* { return new T(*static_cast<T*>(object)); },
    [](void* object) { std::unique_ptr<T> const last(static_cast<T*>(object)); },
};

template <typename T>
constexpr Storage kCounted = {
    [](void* object) -> void* {
      static_cast<T*>(object)->AddRef();
      return object;
    },
    [](void* object) { static_cast<T*>(object)->Release(); },
};

constexpr Storage const* kInside = nullptr;  // a scalar

struct ValueKind {
  ItemType type;
  char16_t const* name;  // null: GetType has none
  std::u16string (*write)(KestVariant const& from, char16_t const* format);  // null: no text form
  void (*read)(KestVariant& to, std::u16string_view text, Rule rule);        // null: not from text
  Storage const* storage;
};

template <auto Get, auto Print>
std::u16string Write(KestVariant const& from, char16_t const* /*format*/) {
  return Print((from.*Get)());
}

template <auto Get, auto Print>
std::u16string WriteBy(KestVariant const& from, char16_t const* format) {
  return Print((from.*Get)(), format ? format : u"");
}

template <auto Parse, auto Set>
void Read(KestVariant& to, std::u16string_view text, Rule rule) {
  (to.*Set)(Parse(text, rule));
}

void ReadString(KestVariant& to, std::u16string_view text, Rule rule) {
  to.SetString(CConversions::stringFromString(text, rule));
}

using C = CConversions;
using V = KestVariant;

// clang-format off
constexpr ValueKind kKinds[] = {
    // type                  name             write                                                 read                                                   storage
    {ItemType_Invalid,       nullptr,         nullptr,                                              nullptr,                                               kInside},
    {ItemType_hexBinary,     u"hexBinary",    Write<&V::GetHexBinary, &C::hexBinaryToString>,       Read<&C::hexBinaryFromString, &V::SetHexBinary>,       &kOwned<CBinaryData>},
    {ItemType_base64Binary,  u"base64Binary", Write<&V::GetBase64Binary, &C::base64BinaryToString>, Read<&C::base64BinaryFromString, &V::SetBase64Binary>, &kOwned<CBinaryData>},
    {ItemType_i1,            u"i1",           Write<&V::GetI1, &C::i1ToString>,                     Read<&C::i1FromString, &V::SetI1>,                     kInside},
    {ItemType_i2,            u"i2",           Write<&V::GetI2, &C::i2ToString>,                     Read<&C::i2FromString, &V::SetI2>,                     kInside},
    {ItemType_i4,            u"i4",           Write<&V::GetI4, &C::i4ToString>,                     Read<&C::i4FromString, &V::SetI4>,                     kInside},
    {ItemType_i8,            u"i8",           Write<&V::GetI8, &C::i8ToString>,                     Read<&C::i8FromString, &V::SetI8>,                     kInside},
    {ItemType_ui1,           u"ui1",          Write<&V::GetUI1, &C::ui1ToString>,                   Read<&C::ui1FromString, &V::SetUI1>,                   kInside},
    {ItemType_ui2,           u"ui2",          Write<&V::GetUI2, &C::ui2ToString>,                   Read<&C::ui2FromString, &V::SetUI2>,                   kInside},
    {ItemType_ui4,           u"ui4",          Write<&V::GetUI4, &C::ui4ToString>,                   Read<&C::ui4FromString, &V::SetUI4>,                   kInside},
    {ItemType_ui8,           u"ui8",          Write<&V::GetUI8, &C::ui8ToString>,                   Read<&C::ui8FromString, &V::SetUI8>,                   kInside},
    {ItemType_r4,            u"r4",           WriteBy<&V::GetR4, &C::r4ToString>,                   Read<&C::r4FromString, &V::SetR4>,                     kInside},
    {ItemType_r8,            u"r8",           WriteBy<&V::GetR8, &C::r8ToString>,                   Read<&C::r8FromString, &V::SetR8>,                     kInside},
    {ItemType_duration,      u"duration",     Write<&V::GetDuration, &C::durationToString>,         Read<&C::durationFromString, &V::SetDuration>,         &kOwned<CDateTimeSpan>},
    {ItemType_yearMonth,     u"yearMonth",    Write<&V::GetYearMonth, &C::dateToString>,            Read<&C::yearMonthFromString, &V::SetYearMonth>,       &kOwned<CDateTime>},
    {ItemType_monthDay,      u"monthDay",     Write<&V::GetMonthDay, &C::dateToString>,             Read<&C::monthDayFromString, &V::SetMonthDay>,         &kOwned<CDateTime>},
    {ItemType_year,          u"year",         Write<&V::GetYear, &C::yearToString>,                 Read<&C::yearFromString, &V::SetYear>,                 kInside},
    {ItemType_month,         u"month",        Write<&V::GetMonth, &C::monthToString>,               Read<&C::monthFromString, &V::SetMonth>,               kInside},
    {ItemType_day,           u"day",          Write<&V::GetDay, &C::dayToString>,                   Read<&C::dayFromString, &V::SetDay>,                   kInside},
    {ItemType_date,          u"date",         Write<&V::GetDate, &C::dateToString>,                 Read<&C::dateFromString, &V::SetDate>,                 &kOwned<CDateTime>},
    {ItemType_datetime,      u"datetime",     Write<&V::GetDateTime, &C::dateToString>,             Read<&C::datetimeFromString, &V::SetDateTime>,         &kOwned<CDateTime>},
    {ItemType_time,          u"time",         Write<&V::GetTime, &C::dateToString>,                 Read<&C::timeFromString, &V::SetTime>,                 &kOwned<CDateTime>},
    {ItemType_char,          u"char",         Write<&V::GetChar, &C::charToString>,                 Read<&C::charFromString, &V::SetChar>,                 kInside},
    {ItemType_string,        u"string",       Write<&V::GetString, &C::stringToString>,             ReadString,                                            kInside},
    {ItemType_boolean,       u"boolean",      Write<&V::GetBoolean, &C::booleanToString>,           Read<&C::booleanFromString, &V::SetBoolean>,           kInside},
    {ItemType_decimal,       u"decimal",      WriteBy<&V::GetDecimal, &C::decimalToString>,         Read<&C::decimalFromString, &V::SetDecimal>,           &kOwned<CDecimal>},
    {ItemType_integer,       u"integer",      Write<&V::GetInteger, &C::integerToString>,           Read<&C::integerFromString, &V::SetInteger>,           &kOwned<CBigInteger>},
    {ItemType_xmlObject,     nullptr,         nullptr,                                              nullptr,                                               &kCounted<CXmlObjectBase>},
    {ItemType_xmlCollection, nullptr,         nullptr,                                              nullptr,                                               &kCounted<CXmlCollectionBase>},
};
// clang-format on

constexpr bool InEnumOrder() {
  for (std::size_t i = 0; i < std::size(kKinds); ++i) {
    if (kKinds[i].type != static_cast<ItemType>(i)) return false;
  }
  return std::size(kKinds) == kItemTypeCount;
}
static_assert(InEnumOrder());

// Null for a number that is no kind.
ValueKind const* Find(ItemType type) {
  return type >= 0 && type < kItemTypeCount ? &kKinds[type] : nullptr;
}

Storage const* StorageOf(ItemType type) {
  ValueKind const* const kind = Find(type);
  return kind ? kind->storage : nullptr;
}

[[noreturn]] void ThrowWithoutText(ItemType type) {
  throw CKestException(FormatString(u"Invalid Type %d to convert to string", type));
}

}  // namespace

template <typename T>
void KestVariant::Store(T value) {
  static_assert(std::is_trivially_copyable_v<T> && sizeof value <= sizeof m_value);
  m_value = 0;
  std::memcpy(&m_value, &value, sizeof value);
}

template <typename T>
T KestVariant::Load() const {
  T value;
  std::memcpy(&value, &m_value, sizeof value);
  return value;
}

template <typename T>
void KestVariant::SetScalar(ItemType type, T value) {
  Clear();
  m_type = type;
  Store(value);
}

template <typename T>
void KestVariant::SetOwned(ItemType type, T const& value) {
  auto owner = std::make_unique<T>(value);
  SetScalar<void*>(type, owner.release());
}

template <typename T>
T const* KestVariant::GetOwned() const {
  return StorageOf(m_type) == &kOwned<T> ? static_cast<T const*>(Load<void*>()) : nullptr;
}

// The new reference comes first: the old one may be the last to the same object.
template <typename T>
void KestVariant::SetCounted(ItemType type, T* value) {
  if (value) value->AddRef();
  SetScalar<void*>(type, value);
}

template <typename T>
CSmartPtr<T> KestVariant::GetCounted() const {
  return StorageOf(m_type) == &kCounted<T> ? static_cast<T*>(Load<void*>()) : nullptr;
}

KestVariant::KestVariant(KestVariant const& other) : m_nil(other.m_nil), m_type(other.m_type) {
  ValueKind const* const kind = Find(m_type);
  if (!kind) throw CKestException(u"Unknown Type");
  if (m_nil) return;
  if (m_type == ItemType_string) {
    m_text = other.GetString();
    return;
  }
  m_value = other.m_value;
  if (kind->storage && m_value != 0) Store(kind->storage->share(Load<void*>()));
}

KestVariant::KestVariant(KestVariant&& other) noexcept {
  Swap(other);
}

KestVariant& KestVariant::operator=(KestVariant const& other) {
  KestVariant copy(other);
  Swap(copy);
  return *this;
}

KestVariant& KestVariant::operator=(KestVariant&& other) noexcept {
  KestVariant taken(std::move(other));
  Swap(taken);
  return *this;
}

KestVariant::~KestVariant() {
  ReleaseValue();
}

void KestVariant::Swap(KestVariant& other) noexcept {
  std::swap(m_nil, other.m_nil);
  std::swap(m_type, other.m_type);
  std::swap(m_value, other.m_value);
  m_text.swap(other.m_text);
}

void KestVariant::ReleaseValue() {
  Storage const* const storage = StorageOf(m_type);
  if (storage && m_value != 0) storage->release(Load<void*>());
  m_value = 0;
}

void KestVariant::Clear() {
  if (m_type == ItemType_Invalid) return;
  ReleaseValue();
  m_type = ItemType_Invalid;
  m_nil = false;
}

void KestVariant::SetNil() {
  ReleaseValue();
  m_text.clear();
  m_nil = true;
}

std::u16string KestVariant::GetType() const {
  ValueKind const* const kind = Find(m_type);
  if (!kind || !kind->name) throw CKestException(FormatString(u"Invalid Type %d", m_type));
  return kind->name;
}

std::u16string KestVariant::ToString(char16_t const* format) const {
  ValueKind const* const kind = Find(m_type);
  if (!kind || !kind->write) ThrowWithoutText(m_type);
  return kind->write(*this, format);
}

void KestVariant::FromString(std::u16string_view text, ItemType type, Rule rule) {
  ValueKind const* const kind = Find(type);
  if (!kind || !kind->read) ThrowWithoutText(m_type);
  kind->read(*this, text, rule);
}

void KestVariant::SetHexBinary(CBinaryData const& value) {
  SetOwned(ItemType_hexBinary, value);
}
void KestVariant::SetBase64Binary(CBinaryData const& value) {
  SetOwned(ItemType_base64Binary, value);
}
void KestVariant::SetI1(signed char value) {
  SetScalar(ItemType_i1, value);
}
void KestVariant::SetI2(std::int16_t value) {
  SetScalar(ItemType_i2, value);
}
void KestVariant::SetI4(std::int32_t value) {
  SetScalar(ItemType_i4, value);
}
void KestVariant::SetI8(std::int64_t value) {
  SetScalar(ItemType_i8, value);
}
void KestVariant::SetUI1(unsigned char value) {
  SetScalar(ItemType_ui1, value);
}
void KestVariant::SetUI2(std::uint16_t value) {
  SetScalar(ItemType_ui2, value);
}
void KestVariant::SetUI4(std::uint32_t value) {
  SetScalar(ItemType_ui4, value);
}
void KestVariant::SetUI8(std::uint64_t value) {
  SetScalar(ItemType_ui8, value);
}
void KestVariant::SetR4(float value) {
  SetScalar(ItemType_r4, value);
}
void KestVariant::SetR8(double value) {
  SetScalar(ItemType_r8, value);
}
void KestVariant::SetDuration(CDateTimeSpan const& value) {
  SetOwned(ItemType_duration, value);
}
void KestVariant::SetYearMonth(CDateTime const& value) {
  SetOwned(ItemType_yearMonth, value);
}
void KestVariant::SetMonthDay(CDateTime const& value) {
  SetOwned(ItemType_monthDay, value);
}
void KestVariant::SetDate(CDateTime const& value) {
  SetOwned(ItemType_date, value);
}
void KestVariant::SetDateTime(CDateTime const& value) {
  SetOwned(ItemType_datetime, value);
}
void KestVariant::SetTime(CDateTime const& value) {
  SetOwned(ItemType_time, value);
}
void KestVariant::SetYear(std::uint16_t value) {
  SetScalar(ItemType_year, value);
}
void KestVariant::SetMonth(unsigned char value) {
  SetScalar(ItemType_month, value);
}
void KestVariant::SetDay(unsigned char value) {
  SetScalar(ItemType_day, value);
}
void KestVariant::SetChar(char16_t value) {
  SetScalar(ItemType_char, value);
}
// A string that the variant holds itself may be the one that is set.
void KestVariant::SetString(std::u16string_view value) {
  m_text = value;
  SetScalar<void const*>(ItemType_string, nullptr);
}
void KestVariant::SetString(std::u16string&& value) {
  m_text = std::move(value);
  SetScalar<void const*>(ItemType_string, nullptr);
}
void KestVariant::SetStringReference(std::u16string const& value) {
  SetScalar<void const*>(ItemType_string, &value);
}
void KestVariant::SetBoolean(bool value) {
  SetScalar(ItemType_boolean, value);
}
void KestVariant::SetDecimal(CDecimal const& value) {
  SetOwned(ItemType_decimal, value);
}
void KestVariant::SetInteger(CBigInteger const& value) {
  SetOwned(ItemType_integer, value);
}

void KestVariant::SetXmlObject(CXmlObjectBase* value) {
  SetCounted(ItemType_xmlObject, value);
}
void KestVariant::SetXmlCollection(CXmlCollectionBase* value) {
  SetCounted(ItemType_xmlCollection, value);
}

CBinaryData KestVariant::GetHexBinary() const {
  auto const* const data = GetOwned<CBinaryData>();
  return data ? *data : CBinaryData();
}

CBinaryData KestVariant::GetBase64Binary() const {
  return GetHexBinary();
}

CDateTimeSpan KestVariant::GetDuration() const {
  auto const* const span = GetOwned<CDateTimeSpan>();
  return span ? *span : CDateTimeSpan();
}

CDateTime KestVariant::GetDateTime() const {
  auto const* const date = GetOwned<CDateTime>();
  return date ? *date : CDateTime();
}
CDateTime KestVariant::GetYearMonth() const {
  return GetDateTime();
}
CDateTime KestVariant::GetMonthDay() const {
  return GetDateTime();
}
CDateTime KestVariant::GetDate() const {
  return GetDateTime();
}
CDateTime KestVariant::GetTime() const {
  return GetDateTime();
}

signed char KestVariant::GetI1() const {
  return Load<signed char>();
}
std::int16_t KestVariant::GetI2() const {
  return Load<std::int16_t>();
}
std::int32_t KestVariant::GetI4() const {
  return Load<std::int32_t>();
}
std::int64_t KestVariant::GetI8() const {
  return Load<std::int64_t>();
}
unsigned char KestVariant::GetUI1() const {
  return Load<unsigned char>();
}
std::uint16_t KestVariant::GetUI2() const {
  return Load<std::uint16_t>();
}
std::uint32_t KestVariant::GetUI4() const {
  return Load<std::uint32_t>();
}
std::uint64_t KestVariant::GetUI8() const {
  return Load<std::uint64_t>();
}
float KestVariant::GetR4() const {
  return Load<float>();
}
double KestVariant::GetR8() const {
  return Load<double>();
}
std::uint16_t KestVariant::GetYear() const {
  return Load<std::uint16_t>();
}
unsigned char KestVariant::GetMonth() const {
  return Load<unsigned char>();
}
unsigned char KestVariant::GetDay() const {
  return Load<unsigned char>();
}
char16_t KestVariant::GetChar() const {
  return Load<char16_t>();
}
// Not as a bool: the byte may be that of another kind.
bool KestVariant::GetBoolean() const {
  return Load<unsigned char>() != 0;
}

CDecimal KestVariant::GetDecimal() const {
  auto const* const value = GetOwned<CDecimal>();
  return value ? *value : CDecimal();
}

CBigInteger KestVariant::GetInteger() const {
  auto const* const value = GetOwned<CBigInteger>();
  return value ? *value : CBigInteger();
}

std::u16string const& KestVariant::GetString() const {
  static std::u16string const empty;
  if (m_type != ItemType_string) return empty;
  auto const* const reference = static_cast<std::u16string const*>(Load<void*>());
  return reference ? *reference : m_text;
}

std::u16string KestVariant::TakeString() {
  if (m_type == ItemType_string && m_value == 0) return std::move(m_text);
  return GetString();
}

CSmartPtr<CXmlObjectBase> KestVariant::GetXmlObject() const {
  return GetCounted<CXmlObjectBase>();
}
CSmartPtr<CXmlCollectionBase> KestVariant::GetXmlCollection() const {
  return GetCounted<CXmlCollectionBase>();
}

}  // namespace KestXmlLib20
