// How properties of each type go through a KestVariant: what the cases of AccessProperty have in
// common. A generator may as well write it out in each case.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>

#include "kestxml/kestxml.h"

namespace KestOrders {

// Store puts a value into the variant, with the setter of its kind; Fetch takes one out. A text
// is not copied on either way: it must stay where it is until the variant is done with.

inline void Store(KestXmlLib20::KestVariant& variant, std::u16string const& value) {
  variant.SetStringReference(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, std::int16_t value) {
  variant.SetI2(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, std::uint32_t value) {
  variant.SetUI4(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, KestXmlLib20::CDecimal const& value) {
  variant.SetDecimal(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, KestXmlLib20::CBigInteger const& value) {
  variant.SetInteger(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, bool value) {
  variant.SetBoolean(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, KestXmlLib20::CBinaryData const& value) {
  variant.SetBase64Binary(value);
}
inline void Store(KestXmlLib20::KestVariant& variant, KestXmlLib20::CDateTimeSpan const& value) {
  variant.SetDuration(value);
}
/// Dates of all types are of one class. One without a type is no value.
inline void Store(KestXmlLib20::KestVariant& variant, KestXmlLib20::CDateTime const& value) {
  using KestXmlLib20::CDateTime;
  if (value.GetType() == CDateTime::dt_date) variant.SetDate(value);
  if (value.GetType() == CDateTime::dt_gYearMonth) variant.SetYearMonth(value);
}
/// Enumerations travel as numbers; their tables have the functions that make text of them.
template <typename Enum>
requires std::is_enum_v<Enum>
void Store(KestXmlLib20::KestVariant& variant, Enum value) {
  variant.SetI4(static_cast<std::int32_t>(value));
}

inline void Fetch(KestXmlLib20::KestVariant& variant, std::u16string& value) {
  value = variant.TakeString();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, std::int16_t& value) {
  value = variant.GetI2();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, std::uint32_t& value) {
  value = variant.GetUI4();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, KestXmlLib20::CDecimal& value) {
  value = variant.GetDecimal();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, KestXmlLib20::CBigInteger& value) {
  value = variant.GetInteger();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, KestXmlLib20::CDateTimeSpan& value) {
  value = variant.GetDuration();
}
/// What is stored has its type, so one getter does for all.
inline void Fetch(KestXmlLib20::KestVariant& variant, KestXmlLib20::CDateTime& value) {
  value = variant.GetDate();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, bool& value) {
  value = variant.GetBoolean();
}
inline void Fetch(KestXmlLib20::KestVariant& variant, KestXmlLib20::CBinaryData& value) {
  value = variant.GetBase64Binary();
}
template <typename Enum>
requires std::is_enum_v<Enum>
void Fetch(KestXmlLib20::KestVariant& variant, Enum& value) {
  value = static_cast<Enum>(variant.GetI4());
}

/// A property that always has a value.
template <typename T>
void Access(T& member, bool read, KestXmlLib20::KestVariant& variant) {
  if (read) {
    Store(variant, member);
  } else {
    Fetch(variant, member);
  }
}

/// An optional property. Without a value the variant is left as it comes, without a kind, and the
/// library writes nothing.
template <typename T>
void Access(std::optional<T>& member, bool read, KestXmlLib20::KestVariant& variant) {
  if (!read) {
    Fetch(variant, member.emplace());
  } else if (member) {
    Store(variant, *member);
  }
}

/// An object. Null is a value, too: the library writes nothing for it.
template <typename T>
void Access(KestXmlLib20::CSmartPtr<T>& member, bool read, KestXmlLib20::KestVariant& variant) {
  if (read) {
    variant.SetXmlObject(member.Get());
  } else {
    member = static_cast<T*>(variant.GetXmlObject().Get());
  }
}

/// A collection. The library never sets one: it reads into the one that is there.
template <typename T>
void AccessCollection(KestXmlLib20::CSmartPtr<T> const& member,
                      KestXmlLib20::KestVariant& variant) {
  variant.SetXmlCollection(member.Get());
}

}  // namespace KestOrders
