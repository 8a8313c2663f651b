#include "examples/demo/json_story.h"

#include <string>
#include <string_view>

#include "examples/demo/columns.h"
#include "examples/demo/refusal.h"
#include "examples/orders/order.h"

namespace KestDemo {
namespace {

using namespace KestXmlLib20;
using namespace KestOrders;

// An order whose JSON reads back equal: its only collection is of objects and comes last, no
// element is empty, and no text has a quotation mark or a backslash.
constexpr char16_t kPlainOrder[] =
    u"<order xmlns='urn:example:purchase-order' id='PO-004218'>"
    u"<header><currency>EUR</currency><date>2026-03-02</date><priority>high</priority></header>"
    u"<customer number='10482'><name>Stadtbibliothek F\u00FCrstenau</name>"
    u"<email>einkauf@bibliothek.fuerstenau.example</email></customer>"
    u"<billTo><gln>4012345000009</gln></billTo>"
    u"<invoice>14</invoice>"
    u"<item sku='SH-0310'><name>Bookcase, beech, 2.1 m</name><quantity>4</quantity>"
    u"<price>189.00</price></item>"
    u"<item sku='LA-0042'><name>Lamp</name><quantity>2</quantity><price>40.00</price></item>"
    u"</order>";

CSerializationContext MakeContext(JsonRoundTrip roundTrip) {
  CSerializationContext context;
  context.SetIndentChars(u"  ");
  context.SetDefaultNamespaceURI(kOrderNamespace);
  CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
  aliases.Add(u"xsi", u"http://www.w3.org/2001/XMLSchema-instance");
  aliases.Add(u"desk", u"urn:example:desk");
  aliases.Add(u"ship", u"urn:example:parcel");
  context.GetJsonContext()->SetSupportRoundtrip(roundTrip);
  return context;
}

std::u16string ToJson(COrder& order, JsonRoundTrip roundTrip) {
  return order.ToJson(true, EOLType_LF, MakeContext(roundTrip));
}

std::u16string ToXml(COrder& order) {
  return order.ToXml(false, true, EOLType_LF, MakeContext(JsonRoundTrip_Full));
}

void ReadJson(COrder& order, std::u16string const& json) {
  order.FromJson(json.c_str(), MakeContext(JsonRoundTrip_Full));
}

void PrintFirstLines(std::ostream& out, std::string_view text, int lines) {
  for (; lines > 0; --lines) {
    std::size_t const end = text.find('\n');
    out << "    " << text.substr(0, end) << '\n';
    text.remove_prefix(end + 1);
  }
  out << "    ...\n";
}

void ShowMode(std::ostream& out, COrder& order, char const* name, JsonRoundTrip roundTrip) {
  constexpr int kLines = 7;
  std::string const text = ToUtf8(ToJson(order, roundTrip));
  out << '\n' << "  " << name << ", " << Grouped(text.size()) << " bytes:\n\n";
  PrintFirstLines(out, text, kLines);
}

bool ShowRoundTrip(std::ostream& out, COrder& order) {
  std::u16string const json = ToJson(order, JsonRoundTrip_Full);
  CSmartPtr<COrder> const copy(new COrder);
  ReadJson(*copy, json);
  bool const isEqual = ToXml(*copy) == ToXml(order);
  out << "\nAn order in a shape that JSON keeps, written and read into a new object: "
      << (isEqual ? "equal" : "NOT EQUAL") << ".\n\n"
      << ToUtf8(json) << '\n';
  return isEqual;
}

}  // namespace

bool TellJsonStory(std::ostream& out, std::filesystem::path const& file) {
  CSmartPtr<COrder> const order(new COrder);
  order->FromXmlFile(file.u16string().c_str(), CSerializationContext::GetDefaultContext());
  out << "The same order as JSON, in the three round-trip modes:\n";
  ShowMode(out, *order, "JsonRoundTrip_Full", JsonRoundTrip_Full);
  ShowMode(out, *order, "JsonRoundTrip_Attributes", JsonRoundTrip_Attributes);
  ShowMode(out, *order, "JsonRoundTrip_None", JsonRoundTrip_None);

  CSmartPtr<COrder> const plain(new COrder);
  plain->FromXml(kPlainOrder, CSerializationContext::GetDefaultContext());
  bool const isEqual = ShowRoundTrip(out, *plain);

  out << "\nThe first order does not come back. Its lists of values, such as the phones, leave a\n"
         "bracket behind, its approval is empty, and its discounts stand behind its items:\n";
  std::u16string broken = ToJson(*plain, JsonRoundTrip_Full);
  broken.erase(broken.find(u"\"quantity\":") + 10, 1);
  CSmartPtr<COrder> const target(new COrder);
  return ShowRefused(out, "  order.FromJson(order.ToJson(...))",
                     [&] { ReadJson(*target, ToJson(*order, JsonRoundTrip_Full)); }) &&
         ShowRefused(out, "  The second order without its first colon behind \"quantity\":",
                     [&] { ReadJson(*target, broken); }) &&
         isEqual;
}

}  // namespace KestDemo
