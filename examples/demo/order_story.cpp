#include "examples/demo/order_story.h"

#include <fstream>
#include <iterator>
#include <string>

#include "examples/demo/columns.h"
#include "examples/demo/line_diff.h"
#include "examples/demo/order_table.h"
#include "examples/demo/refusal.h"
#include "examples/demo/round_trip.h"
#include "examples/orders/order.h"

namespace KestDemo {
namespace {

using namespace KestXmlLib20;
using namespace KestOrders;

/// Two blanks a level, and prefixes chosen by us.
CSerializationContext MakeContext() {
  CSerializationContext context;
  context.SetIndentChars(u"  ");
  CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
  aliases.Add(u"po", kOrderNamespace);
  aliases.Add(u"xsi", u"http://www.w3.org/2001/XMLSchema-instance");
  aliases.Add(u"desk", u"urn:example:desk");
  aliases.Add(u"ship", u"urn:example:parcel");
  return context;
}

std::string ToText(COrder& order) {
  return ToUtf8(order.ToXml(false, true, EOLType_LF, MakeContext()));
}

std::string ReadText(std::filesystem::path const& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Writes the order, reads that and compares the two.
bool ShowWritten(std::ostream& out, COrder& order) {
  auto const context = MakeContext();
  CBinaryData const bytes =
      order.ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, context, CompressionType_None);
  CSmartPtr<COrder> const copy(new COrder);
  copy->FromXmlStream(bytes, context);
  bool const isEqual = ToText(*copy) == ToText(order);
  out << "\nWritten, " << Grouped(bytes.GetLength())
      << " bytes, and read into a new object: " << (isEqual ? "equal" : "NOT EQUAL") << ".\n";
  return isEqual;
}

bool ReadAndPrint(std::ostream& out, COrder& order, std::filesystem::path const& file) {
  std::u16string const name = file.u16string();
  double const milliseconds = Milliseconds(
      [&] { order.FromXmlFile(name.c_str(), CSerializationContext::GetDefaultContext()); });
  out << file.filename().string() << ": " << Grouped(std::filesystem::file_size(file))
      << " bytes, read in " << Fixed(milliseconds, 1)
      << " ms into objects of generated classes:\n\n";
  Print(out, order);
  return ShowWritten(out, order);
}

CSmartPtr<CServiceItem> MakeDisposal() {
  CSmartPtr<CServiceItem> item(new CServiceItem);
  item->SetSku(u"SV-0011");
  item->SetName(u"Disposal of packaging");
  item->SetPrice(u"25.00");
  item->SetDuration(CDateTimeSpan(0, 30, 0));
  return item;
}

void Change(COrder& order) {
  order.SetStatus(OrderStatus::Shipped);
  order.GetPayment().GetInstalments().Clear();
  order.GetPayment().SetInvoice(std::int16_t{14});
  order.GetItems().Item(1)->SetQuantity(5);
  order.GetItems().Add(MakeDisposal().Get());
  CApproval& approval = *order.GetApproval();
  approval.SetNil(false);
  approval.SetBy(u"Dr. Anneke Vos");
  approval.SetOn(CDateTime(2026, 3, 4));
}

bool ShowChanges(std::ostream& out, COrder& order) {
  out << "\nSetters check what they are given, too:\n";
  bool const isRefused =
      ShowRefused(out, "  item.SetSku(u\"BK-41\")",
                  [&] { order.GetItems().Item(0)->SetSku(u"BK-41"); }) &&
      ShowRefused(out, "  order.GetPayment().SetInvoice(14), while instalments are agreed",
                  [&] { order.GetPayment().SetInvoice(std::int16_t{14}); });
  std::string const before = ToText(order);
  Change(order);
  out << "\nShipped, approved, paid by invoice, with three books and one item more. Written with "
         "the\n"
         "prefixes po, xsi, desk and ship, these lines differ:\n\n";
  PrintChangedLines(out, before, ToText(order));
  return ShowWritten(out, order) && isRefused;
}

/// A document in which @p part is replaced, read with @p context.
void ReadReplaced(
    std::string text, std::string_view part, std::string_view replacement,
    CSerializationContext const& context = CSerializationContext::GetDefaultContext()) {
  text.replace(text.find(part), part.size(), replacement);
  CSmartPtr<COrder> const order(new COrder);
  order->FromXml(text.c_str(), context);
}

bool ShowFailures(std::ostream& out, std::string const& text) {
  constexpr std::string_view kPostcode = "<postcode>49584</postcode>";
  constexpr std::string_view kGln = "<gln>4012345000009</gln>";
  constexpr std::string_view kTwoAddresses = "<gln>4012345000009</gln><poBox>1270</poBox>";
  out << "\nInvalid documents end in an exception, with the place and every reason:\n";
  bool const isRefused =
      ShowRefused(out, "  An ISBN that its pattern does not allow:",
                  [&] { ReadReplaced(text, "978-0-465-02656-2", "0-465-02656-7"); }) &&
      ShowRefused(
          out, "  An address without its postcode:", [&] { ReadReplaced(text, kPostcode, ""); }) &&
      ShowRefused(out, "  Two kinds of address where the schema has a choice:", [&] {
        ReadReplaced(text, kGln, kTwoAddresses);
      });
  CSerializationContext tolerant;
  tolerant.SetIgnoreUnknownElements(true);
  ReadReplaced(text, kGln, kTwoAddresses, tolerant);
  out << "\n  A context with SetIgnoreUnknownElements(true) reads the last one all the same.\n";
  return isRefused;
}

}  // namespace

bool TellOrderStory(std::ostream& out, std::filesystem::path const& file) {
  CSmartPtr<COrder> const order(new COrder);
  bool const isRead = ReadAndPrint(out, *order, file);
  bool const isChanged = ShowChanges(out, *order);
  return ShowFailures(out, ReadText(file)) && isRead && isChanged;
}

bool ShowOrder(std::ostream& out, std::filesystem::path const& file) {
  CSmartPtr<COrder> const order(new COrder);
  return ReadAndPrint(out, *order, file);
}

}  // namespace KestDemo
