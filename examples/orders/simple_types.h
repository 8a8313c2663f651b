// The simple types of the order schema: what kind of value each is, and its facets.
#pragma once

#include <cstdint>
#include <string>

#include "kestxml/kestxml.h"

namespace KestOrders {

using Money = KestXmlLib20::CDecimal;
using Date = KestXmlLib20::CDateTime;
using Month = KestXmlLib20::CDateTime;
using Duration = KestXmlLib20::CDateTimeSpan;

/// The facets of a type, with the names that XML Schema gives them; what is not set restricts
/// nothing.
struct Facets {
  char16_t const* pattern = nullptr;
  std::int32_t minLength = -1;
  std::int32_t maxLength = -1;
  char16_t const* minInclusive = nullptr;
  char16_t const* maxInclusive = nullptr;
  char16_t const* minExclusive = nullptr;
  char16_t const* maxExclusive = nullptr;
  std::int32_t length = -1;
  std::int32_t totalDigits = -1;
  std::int32_t fractionDigits = -1;
};

struct SimpleType {
  KestXmlLib20::ItemType itemType;
  KestXmlLib20::CWhitespaceUtils::WhitespaceRule whitespaceRule;
  Facets facets = {};
  char16_t const* format = nullptr;  ///< of KestVariant::ToString; null for the kind's own form

  /// The facets as the library takes them.
  KestXmlLib20::CPrimitiveRestrictions GetRestrictions() const {
    return {facets.pattern,      facets.minLength,     facets.maxLength,    facets.minInclusive,
            facets.maxInclusive, facets.minExclusive,  facets.maxExclusive, facets.length,
            facets.totalDigits,  facets.fractionDigits};
  }
};

namespace SimpleTypes {

using namespace KestXmlLib20;

inline constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
inline constexpr auto kPreserve = CWhitespaceUtils::WhitespaceRule_Preserve;

// In the order of order.xsd.
// clang-format off
inline constexpr SimpleType kText         {ItemType_string, kPreserve, {.maxLength = 1000}};
inline constexpr SimpleType kName         {ItemType_string, kCollapse, {.minLength = 1, .maxLength = 60}};
inline constexpr SimpleType kOrderId      {ItemType_string, kCollapse, {.pattern = u"PO-[0-9]{6}"}};
inline constexpr SimpleType kSku          {ItemType_string, kCollapse, {.pattern = u"[A-Z]{2}-[0-9]{4}"}};
inline constexpr SimpleType kCountry      {ItemType_string, kCollapse, {.pattern = u"[A-Z]{2}"}};
inline constexpr SimpleType kVatId        {ItemType_string, kCollapse, {.pattern = u"[A-Z]{2}[0-9A-Z]{2,12}"}};
inline constexpr SimpleType kEmail        {ItemType_string, kCollapse, {.pattern = u"[^@\\s]+@[^@\\s]+", .maxLength = 254}};
inline constexpr SimpleType kPhone        {ItemType_string, kCollapse, {.pattern = u"\\+[0-9 ]{6,20}"}};
inline constexpr SimpleType kGln          {ItemType_string, kCollapse, {.pattern = u"[0-9]{13}"}};
inline constexpr SimpleType kCardNumber   {ItemType_string, kCollapse, {.pattern = u"\\*{12}[0-9]{4}"}};
inline constexpr SimpleType kIsbn         {ItemType_string, kCollapse, {.pattern = u"97[89](-[0-9]+){4}", .length = 17}};
inline constexpr SimpleType kMoney        {ItemType_decimal, kCollapse, {.minInclusive = u"0", .fractionDigits = 2}};
inline constexpr SimpleType kDiscountValue{ItemType_decimal, kCollapse, {.minExclusive = u"0", .fractionDigits = 2}};
inline constexpr SimpleType kContract     {ItemType_integer, kCollapse, {.minInclusive = u"0", .totalDigits = 30}};
inline constexpr SimpleType kQuantity     {ItemType_ui4, kCollapse, {.minInclusive = u"1", .maxInclusive = u"10000"}};
inline constexpr SimpleType kDaysToPay    {ItemType_i2, kCollapse, {.minInclusive = u"0", .maxInclusive = u"90"}};
inline constexpr SimpleType kCustomerId   {ItemType_ui4, kCollapse};
inline constexpr SimpleType kDate         {ItemType_date, kCollapse};
inline constexpr SimpleType kVisit        {ItemType_date, kCollapse, {.minInclusive = u"2000-01-01"}};
inline constexpr SimpleType kMonth        {ItemType_yearMonth, kCollapse};
inline constexpr SimpleType kDuration     {ItemType_duration, kCollapse};
inline constexpr SimpleType kBoolean      {ItemType_boolean, kCollapse};
inline constexpr SimpleType kSignature    {ItemType_base64Binary, kCollapse, {.maxLength = 512}};
// clang-format on

}  // namespace SimpleTypes

/// A collection of values of @p type; @p Col is the class for its kind, such as CstringCol.
template <typename Col>
KestXmlLib20::CSmartPtr<Col> NewValueCol(char16_t const* elementName, char16_t const* ns,
                                         std::int32_t minOccurs, std::int32_t maxOccurs,
                                         SimpleType const& type) {
  Facets const& facets = type.facets;
  return new Col(elementName, ns, minOccurs, maxOccurs, facets.pattern, facets.minLength,
                 facets.maxLength, facets.minInclusive, facets.maxInclusive, facets.minExclusive,
                 facets.maxExclusive, facets.length, facets.totalDigits, facets.fractionDigits,
                 type.whitespaceRule, type.format);
}

}  // namespace KestOrders
