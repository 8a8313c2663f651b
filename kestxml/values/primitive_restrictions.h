// The facets of a simple type, and the check of a value against them.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "kestxml/platform/api.h"
#include "kestxml/values/item_type.h"

namespace KestXmlLib20 {

struct KestVariant;

namespace internal {

/// The bounds of some facets as values of a kind.
class KESTXML_API BoundValues {
 public:
  BoundValues() = default;
  BoundValues(BoundValues const&) = delete;
  BoundValues& operator=(BoundValues const&) = delete;
  virtual ~BoundValues() = default;
};

/// Keeps what was derived from the text of bounds with the object that holds the text, for all
/// threads. A copy, which may get other text, starts without.
class KESTXML_API DerivedBounds {
 public:
  DerivedBounds() = default;
  DerivedBounds(DerivedBounds const& /*other*/) {}
  DerivedBounds& operator=(DerivedBounds const& other);
  ~DerivedBounds();

  /// Null as long as nothing is kept.
  BoundValues const* Get() const { return m_values.load(std::memory_order_acquire); }
  /// Only the first values are kept.
  void Keep(std::unique_ptr<BoundValues const> values) const;

 private:
  mutable std::atomic<BoundValues const*> m_values{nullptr};
};

}  // namespace internal

/// The facets of a primitive element or attribute, as its schema has them (XML Schema Part 2, 4.3).
/// Generated tables hold them, and many threads read them. Facets that do not apply to a kind of
/// value are not looked at.
class KESTXML_API CPrimitiveRestrictions {
 public:
  /// Nothing is restricted.
  CPrimitiveRestrictions() = default;

  /// A text that is empty or null and a number below 0 set no facet; 0 does.
  /// @param pattern a regular expression of XML Schema, see CheckPrimitiveRestriction.
  /// @param minInclusive as the next three, the text of a value. White space around it is of no
  ///   account. Text that is no value makes every check fail that comes to it.
  /// @param totalDigits of an integer, the characters of its text, a minus sign among them. Of a
  ///   decimal, the digits of its whole part, unless that is 0, and those of its fraction.
  /// @param fractionDigits without the zeros behind the point: 0.05 has one.
  CPrimitiveRestrictions(char16_t const* pattern, std::int32_t minLength, std::int32_t maxLength,
                         char16_t const* minInclusive, char16_t const* maxInclusive,
                         char16_t const* minExclusive, char16_t const* maxExclusive,
                         std::int32_t length, std::int32_t totalDigits,
                         std::int32_t fractionDigits);
  CPrimitiveRestrictions(CPrimitiveRestrictions const&) = default;
  CPrimitiveRestrictions& operator=(CPrimitiveRestrictions const&) = default;
  virtual ~CPrimitiveRestrictions() = default;

  std::u16string const& GetPattern() const { return m_pattern; }
  std::int32_t GetMinLength() const { return m_minLength; }
  std::int32_t GetMaxLength() const { return m_maxLength; }
  std::u16string const& GetMinInclusive() const { return m_minInclusive; }
  std::u16string const& GetMaxInclusive() const { return m_maxInclusive; }
  std::u16string const& GetMinExclusive() const { return m_minExclusive; }
  std::u16string const& GetMaxExclusive() const { return m_maxExclusive; }
  std::int32_t GetLength() const { return m_length; }
  std::int32_t GetTotalDigits() const { return m_totalDigits; }
  std::int32_t GetFractionDigits() const { return m_fractionDigits; }

  /// Whether no facet is set, so that any value passes.
  bool IsEmpty() const { return m_isEmpty; }

  /// For the check of bounds alone.
  internal::DerivedBounds const& GetDerivedBounds() const { return m_derivedBounds; }

 private:
  std::u16string m_pattern;
  std::int32_t m_minLength = -1;
  std::int32_t m_maxLength = -1;
  std::u16string m_minInclusive;
  std::u16string m_maxInclusive;
  std::u16string m_minExclusive;
  std::u16string m_maxExclusive;
  std::int32_t m_length = -1;
  std::int32_t m_totalDigits = -1;
  std::int32_t m_fractionDigits = -1;
  bool m_isEmpty = true;
  internal::DerivedBounds m_derivedBounds;
};

/// Checks a value against the facets of its type. It reads the value as @p type says, whatever kind
/// @p value has: the two are to agree.
///
/// Numbers are held to bounds and (integers and decimals) digits, strings to lengths in UTF-16
/// units and to the pattern, binary data to lengths in bytes, booleans to nothing. Dates, times and
/// spans are held to bounds, and pass one that they can't be compared with.
///
/// A pattern is matched as a whole. It runs on PCRE2 after a textual translation that knows `\i`,
/// `\c`, `\I`, `\C` and the blocks BasicLatin, Latin-1Supplement, LatinExtended-A and
/// LatinExtended-B; `\d`, `\w` and `\s` are ASCII. Other block names and class subtraction are
/// errors, or mean what PCRE2 makes of them. A match that takes too many steps or too much memory
/// is none.
///
/// @param name of the element or attribute, for messages.
/// @throws CKestException for a value that the facets do not allow, and with the reason in front
///   for facets that can't be checked.
/// @throws CKestInvalidValueException for a @p type without facets: a single character, an object,
///   a collection. A variant whose kind has no name has that reported instead.
KESTXML_API void CheckPrimitiveRestriction(char16_t const* name, KestVariant const& value,
                                           ItemType type,
                                           CPrimitiveRestrictions const& restrictions);

}  // namespace KestXmlLib20
