#include "examples/demo/order_table.h"

#include <algorithm>

#include "examples/demo/columns.h"

namespace KestDemo {
namespace {

using namespace KestXmlLib20;
using namespace KestOrders;

CDecimal RoundedToCents(CDecimal const& value) {
  return CDecimal(std::u16string_view(value.ToString(2)));
}

/// 1205.9 as "1205.90", filled with blanks on the left.
std::string Amount(CDecimal const& value, std::size_t width) {
  std::string text = ToUtf8(value.ToString(2));
  if (text.find('.') + 2 == text.size()) text += '0';  // cleared places come as one zero
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

/// What is left of @p sum.
CDecimal Reduced(CDecimal sum, CObjectCol<CDiscount> const& discounts) {
  for (CDiscount const& discount : discounts) {
    CDecimal const& value = discount.GetValue();
    sum -= discount.GetKind() == DiscountKind::Amount ? value : sum * value / CDecimal(100);
  }
  return RoundedToCents(sum);
}

std::string DiscountText(CDiscount const& discount) {
  std::string const text = "-" + ToUtf8(discount.GetValue().ToString());
  return discount.GetKind() == DiscountKind::Percent ? text + "%" : text;
}

std::string DiscountTexts(CObjectCol<CDiscount> const& discounts) {
  std::string text;
  for (CDiscount const& discount : discounts)
    text += (text.empty() ? "" : " ") + DiscountText(discount);
  return text;
}

template <typename Range>
std::string Joined(Range const& texts) {
  std::string joined;
  for (std::u16string const& text : texts) joined += (joined.empty() ? "" : ", ") + ToUtf8(text);
  return joined;
}

/// What only some kinds of item have.
std::string Detail(CItem const& item) {
  if (auto const* const book = dynamic_cast<CBookItem const*>(&item))
    return ToUtf8(book->GetIsbn()) + ", " + Joined(book->GetAuthors());
  if (auto const* const service = dynamic_cast<CServiceItem const*>(&item)) {
    std::string text = ToUtf8(service->GetDuration().value_or(Duration()).ToString());
    if (auto const place = service->GetPlace())
      text += ", " + ToUtf8(ServicePlaceToString(static_cast<int>(*place)));
    for (CDateTime const& visit : service->GetVisits()) text += ", " + ToUtf8(visit.ToString());
    return text;
  }
  return "";
}

std::string AddressText(CAddress const& address) {
  if (address.GetGln()) return "GLN " + ToUtf8(*address.GetGln());
  if (address.GetPoBox()) return "P.O. box " + ToUtf8(*address.GetPoBox());
  auto const postal = address.GetPostal();
  if (!postal) return "none";
  return ToUtf8(postal->GetName()) + ", " + Joined(postal->GetLines()) + ", " +
         ToUtf8(postal->GetPostcode()) + " " + ToUtf8(postal->GetCity()) + ", " +
         ToUtf8(postal->GetCountry());
}

std::string PaymentText(CPayment const& payment) {
  if (payment.GetInvoice())
    return "within " + std::to_string(*payment.GetInvoice()) + " days of the invoice";
  if (auto const card = payment.GetCard())
    return "by card " + ToUtf8(card->GetNumber()) + ", valid until " +
           ToUtf8(card->GetExpires().ToString());
  std::string text;
  for (CInstalment const& part : payment.GetInstalments())
    text += (text.empty() ? "" : ", ") + Amount(part.GetAmount(), 0) + " on " +
            ToUtf8(part.GetDue().ToString());
  return text;
}

std::string ApprovalText(CApproval* approval) {
  if (!approval) return "not asked for";
  if (approval->IsNil()) return "asked for";
  return "by " + ToUtf8(approval->GetBy()) + " on " + ToUtf8(approval->GetOn().ToString());
}

void PrintHead(std::ostream& out, COrder const& order) {
  CHeader const& header = *order.GetHeader();
  CCustomer const& customer = *order.GetCustomer();
  out << "  order     " << ToUtf8(order.GetId()) << " of " << ToUtf8(header.GetDate().ToString())
      << ", " << ToUtf8(OrderStatusToString(static_cast<int>(order.GetStatus()))) << ", priority "
      << ToUtf8(PriorityToString(static_cast<int>(header.GetPriority())));
  if (header.GetDeliverBy()) out << ", to arrive by " << ToUtf8(header.GetDeliverBy()->ToString());
  if (header.GetContract()) out << "\n  contract  " << ToUtf8(header.GetContract()->ToString());
  out << "\n  customer  " << customer.GetNumber() << ' ' << ToUtf8(customer.GetName()) << ", "
      << ToUtf8(customer.GetEmail()) << "\n  bill to   " << AddressText(*order.GetBillTo());
  if (auto const shipTo = order.GetShipTo()) out << "\n  ship to   " << AddressText(*shipTo);
  out << "\n  payment   " << PaymentText(order.GetPayment()) << "\n  approval  "
      << ApprovalText(order.GetApproval().Get()) << "\n\n";
}

void PrintItem(std::ostream& out, CItem const& item, CDecimal const& sum) {
  out << "  " << Left(item.GetSku(), 10) << Left(item.GetName(), 52)
      << Grouped(item.GetQuantity(), 6) << Amount(item.GetPrice(), 10) << "  "
      << Left(FromUtf8(DiscountTexts(item.GetDiscounts())), 10) << Amount(sum, 10) << '\n';
  if (std::string const detail = Detail(item); !detail.empty())
    out << "            " << detail << '\n';
}

void PrintTail(std::ostream& out, COrder const& order) {
  for (CNote const& note : order.GetNotes())
    out << "  note by " << ToUtf8(note.GetAuthor()) << (note.GetInternal() ? ", internal: " : ": ")
        << ToUtf8(CWhitespaceUtils::Collapse(note.GetText())) << '\n';
  if (auto const extension = order.GetExtension())
    out << "  and an element that the schema does not know: " << ToUtf8(extension->GetName())
        << " of " << ToUtf8(extension->GetNamespace()) << ", with "
        << extension->GetChildElements()->GetCount() << " elements in it\n";
}

}  // namespace

void Print(std::ostream& out, COrder const& order) {
  PrintHead(out, order);
  out << "  " << Left(u"item", 62) << "pieces     price  discount         sum\n";
  CDecimal total;
  for (CItem const& item : order.GetItems()) {
    CDecimal const full = item.GetPrice() * CDecimal(std::int64_t{item.GetQuantity()});
    CDecimal const sum = Reduced(full, item.GetDiscounts());
    PrintItem(out, item, sum);
    total += sum;
  }
  std::u16string const currency =
      CurrencyToString(static_cast<int>(order.GetHeader()->GetCurrency()));
  out << "  " << Left(u"total in " + currency, 80)
      << Left(FromUtf8(DiscountTexts(order.GetDiscounts())), 10)
      << Amount(Reduced(total, order.GetDiscounts()), 10) << "\n\n";
  PrintTail(out, order);
}

}  // namespace KestDemo
