// The enumerations of the order schema. Each has the two functions that its entries in tables take:
// the text of a number, and the number of a text.
#pragma once

#include <cstdint>

namespace KestOrders {

enum class OrderStatus : std::int32_t { Draft, Open, Shipped, Closed };
enum class Currency : std::int32_t { Eur, Gbp, Usd, Jpy };
enum class Priority : std::int32_t { Low, Normal, High };
enum class DiscountKind : std::int32_t { Percent, Amount };
enum class ServicePlace : std::int32_t { OnSite, Remote };

// All of them throw KestXmlLib20::CKestInvalidValueException for what the enumeration does not
// have. A text comes as it stands in the document: white space around it is of no account here.

char16_t const* OrderStatusToString(int value);
int OrderStatusFromString(char16_t const* text);
char16_t const* CurrencyToString(int value);
int CurrencyFromString(char16_t const* text);
char16_t const* PriorityToString(int value);
int PriorityFromString(char16_t const* text);
char16_t const* DiscountKindToString(int value);
int DiscountKindFromString(char16_t const* text);
char16_t const* ServicePlaceToString(int value);
int ServicePlaceFromString(char16_t const* text);

}  // namespace KestOrders
