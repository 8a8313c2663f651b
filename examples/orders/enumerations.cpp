#include "examples/orders/enumerations.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "kestxml/kestxml.h"

namespace KestOrders {
namespace {

using namespace KestXmlLib20;

// In the order of the enumerators.
constexpr char16_t const* kOrderStatus[] = {u"draft", u"open", u"shipped", u"closed"};
constexpr char16_t const* kCurrency[] = {u"EUR", u"GBP", u"USD", u"JPY"};
constexpr char16_t const* kPriority[] = {u"low", u"normal", u"high"};
constexpr char16_t const* kDiscountKind[] = {u"percent", u"amount"};
constexpr char16_t const* kServicePlace[] = {u"onSite", u"remote"};

using Texts = std::span<char16_t const* const>;

char16_t const* TextOf(int value, Texts texts, char16_t const* name) {
  if (value < 0 || static_cast<std::size_t>(value) >= texts.size())
    throw CKestInvalidValueException(FormatString(u"%d is not a value of %s.", value, name));
  return texts[static_cast<std::size_t>(value)];
}

int ValueOf(char16_t const* text, Texts texts, char16_t const* name) {
  std::u16string const collapsed = CWhitespaceUtils::Collapse(text);
  auto const found = std::ranges::find(texts, std::u16string_view(collapsed));
  if (found == texts.end())
    throw CKestInvalidValueException(FormatString(u"[%s] is not a value of %s.", text, name));
  return static_cast<int>(found - texts.begin());
}

}  // namespace

char16_t const* OrderStatusToString(int value) {
  return TextOf(value, kOrderStatus, u"OrderStatus");
}
int OrderStatusFromString(char16_t const* text) {
  return ValueOf(text, kOrderStatus, u"OrderStatus");
}
char16_t const* CurrencyToString(int value) {
  return TextOf(value, kCurrency, u"Currency");
}
int CurrencyFromString(char16_t const* text) {
  return ValueOf(text, kCurrency, u"Currency");
}
char16_t const* PriorityToString(int value) {
  return TextOf(value, kPriority, u"Priority");
}
int PriorityFromString(char16_t const* text) {
  return ValueOf(text, kPriority, u"Priority");
}
char16_t const* DiscountKindToString(int value) {
  return TextOf(value, kDiscountKind, u"DiscountKind");
}
int DiscountKindFromString(char16_t const* text) {
  return ValueOf(text, kDiscountKind, u"DiscountKind");
}
char16_t const* ServicePlaceToString(int value) {
  return TextOf(value, kServicePlace, u"ServicePlace");
}
int ServicePlaceFromString(char16_t const* text) {
  return ValueOf(text, kServicePlace, u"ServicePlace");
}

}  // namespace KestOrders
