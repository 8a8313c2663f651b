// The classes of the order example.
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "examples/orders/order.h"
#include "tests/model/outcome.h"
#include "tests/model/scratch_folder.h"

namespace KestOrders {
namespace {

using namespace KestXmlLib20;

/// The chain of failures that @p operation ends in.
template <typename Operation>
std::u16string ThrownChain(Operation operation) {
  return KestModel::OutcomeOf([&] {
    operation();
    return std::u16string(kNothingThrown);
  });
}

std::string OrderText() {
  return BytesOfFile(KESTXML_ORDERS "/order.xml");
}

/// What an independent validator makes of a document by the schema of the example; nothing where
/// there is no xmllint.
std::optional<bool> IsValidBySchema(std::string const& text) {
  constexpr int kValid = 0;
  constexpr int kInvalid = 3;
  std::string const program = KESTXML_XMLLINT;
  if (program.empty()) return std::nullopt;
  ScratchFolder const folder;
  int const status = std::system((program + " --noout --schema " KESTXML_ORDERS "/order.xsd " +
                                  folder.MakeFile("order.xml", text) + " 2>/dev/null")
                                     .c_str());
  int const verdict = WEXITSTATUS(status);
  EXPECT_TRUE(verdict == kValid || verdict == kInvalid) << "xmllint ended with " << verdict;
  return verdict == kValid;
}

CSmartPtr<COrder> Read(std::string const& text, CSerializationContext const& context =
                                                    CSerializationContext::GetDefaultContext()) {
  CSmartPtr<COrder> order(new COrder);
  order->FromXml(text.c_str(), context);
  return order;
}

std::u16string Write(COrder& order) {
  return order.ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
}

TEST(Orders, RoundTrip) {
  auto const order = Read(OrderText());
  std::u16string const written = Write(*order);
  auto const again = Read(ToUtf8(written));
  EXPECT_EQ(Write(*again), written);
  again->FromXml(written.c_str(), CSerializationContext::GetDefaultContext());
  EXPECT_EQ(Write(*again), written) << "read into an object that was in use";
}

TEST(Orders, AreWrittenAsTheSchemaHasThem) {
  EXPECT_NE(IsValidBySchema(OrderText()), false);
  EXPECT_NE(IsValidBySchema(ToUtf8(Write(*Read(OrderText())))), false);
}

TEST(Orders, HoldWhatTheDocumentSays) {
  auto const order = Read(OrderText());
  EXPECT_EQ(order->GetOtherAttributes().Item(0)->GetValue(), u"Ilse Brandt");
  EXPECT_EQ(order->GetHeader()->GetPriority(), Priority::Normal);
  EXPECT_EQ(order->GetHeader()->GetContract(), CBigInteger(u"490000000000004217000003"));
  EXPECT_EQ(order->GetCustomer()->GetPhones().Item(1), u"+49 5901 555 0143");
  EXPECT_EQ(order->GetBillTo()->GetSelection(), u"gln");
  EXPECT_EQ(order->GetShipTo()->GetPostal()->GetCity(), u"Fürstenau");
  EXPECT_EQ(order->GetPayment().GetInstalments().Item(1)->GetAmount(), CDecimal(u"605.87"));
  EXPECT_EQ(order->GetItems().GetCount(), 4);
  auto const book = order->GetItems().Item(0);
  EXPECT_EQ(dynamic_cast<CBookItem&>(*book).GetAuthors().GetCount(), 3);
  EXPECT_EQ(dynamic_cast<CBookItem*>(order->GetItems().Item(2).Get()), nullptr);
  EXPECT_TRUE(order->GetApproval()->IsNil());
  EXPECT_TRUE(order->GetNotes().Item(1)->GetInternal());
  EXPECT_EQ(order->GetExtension()->GetChildElements()->Item(1)->GetText(), u"two persons");
}

struct BrokenOrder {
  char const* name;
  char const* part;  // of order.xml
  char const* replacement;
  char16_t const* chain;
};

// clang-format off
constexpr BrokenOrder kBrokenOrders[] = {
    {"PatternOfAttribute", "\"PO-004217\"", "\"PO-4217\"",
     u"Exception: Failed to set the property value [PO-4217]. @ /order/@id\n"
     u"Exception: Invalid Value for id [PO-4217]."},
    {"BoundOfElement", "<quantity>3<", "<quantity>0<",
     u"Exception: Failed to set the property value. @ /order/item[1]/quantity\n"
     u"Exception: Invalid Value for quantity [0]"},
    {"FacetOfSimpleContent", "12.5<", "0<",
     u"Exception: Failed to process the element. @ /order/item[1]/discount\n"
     u"Exception: Invalid Value for discount [0]."},
    {"PatternInDerivedType", "978-0-465", "978-0-46",
     u"Exception: Failed to set the property value. @ /order/item[2]/isbn\n"
     u"Exception: Invalid Value for isbn [978-0-46-02656-2]."},
    {"MissingElement", "<postcode>49584</postcode>", "",
     u"Exception: Failed to find the required child element [postcode]. @ /order/shipTo/postal"},
    {"MissingElementOfAllGroup", "<currency>EUR</currency>", "",
     u"Exception: Failed to process the element. @ /order/header\n"
     u"Validation: Failed to find the mandatory element [currency]."},
    {"MissingAttribute", "number=\"10482\"", "",
     u"Exception: Failed to process the element. @ /order/customer\n"
     u"Validation: Failed to find the required Attribute [number]."},
    {"UnknownElement", "<country>DE</country>", "<country>DE</country><planet/>",
     u"Exception: Failed read all the elements held within the element [postal]. The unexpected element [planet] remains unprocessed @ /order/shipTo/postal"},
    {"UnknownEnumeration", "<currency>EUR<", "<currency>XAU<",
     u"Exception: Failed to process the element. @ /order/header\n"
     u"InvalidValue: [XAU] is not a value of Currency."},
    {"UnknownType", "po:ServiceItem", "po:GiftItem",
     u"Exception: Failed read all the elements held within the element [order]. The unexpected element [item] remains unprocessed @ /order"},
    {"TwoMembersOfAChoice", "</gln>", "</gln><poBox>7</poBox>",
     u"Exception: Failed read all the elements held within the element [billTo]. The unexpected element [poBox] remains unprocessed @ /order/billTo"},
    {"MixedPayments", "<instalment due=\"2026-05-01\">605.87</instalment>", "<invoice>14</invoice>",
     u"Exception: Failed to find the required child element [payment]. @ /order"},
    {"TooManyValues", "<line>Sch", "<line>1</line><line>2</line><line>Sch",
     u"Exception: Failed to process the element. @ /order/shipTo/postal\n"
     u"Validation: The Maximum number of [line] elements allowed in this collection is 3"},
    {"FractionDigits", "<price>62.50<", "<price>62.505<",
     u"Exception: Failed to set the property value. @ /order/item[1]/price\n"
     u"Exception: Invalid Value for price [62.505]."},
    {"DigitsOfAnInteger", "<contract>4900", "<contract>490000000000",
     u"Exception: Failed to set the property value. @ /order/header/contract\n"
     u"Exception: Invalid Value for contract [49000000000000000000004217000003]."},
    {"DateInACollection", "<visit>2026-03-23", "<visit>1999-12-31",
     u"Exception: Failed to process the element. @ /order/item[4]\n"
     u"Exception: Invalid Value for visit [1999-12-31]."},
    {"NoDuration", "PT2H30M", "two hours",
     u"Exception: Failed to process the element. @ /order/item[4]\n"
     u"InvalidValue: Invalid XSD Duration [two hours] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
    {"NilOfAnother", "<shipTo>", "<shipTo xsi:nil=\"true\">",
     u"Exception: Invalid use of 'nil' attribute in non-nillable element. @ /order/shipTo"},
};
// clang-format on

class BrokenOrderTest : public testing::TestWithParam<BrokenOrder> {};

TEST_P(BrokenOrderTest, EndsInItsFailure) {
  std::string text = OrderText();
  std::size_t const at = text.find(GetParam().part);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, std::string_view(GetParam().part).size(), GetParam().replacement);
  EXPECT_EQ(ToUtf8(ThrownChain([&] { Read(text); })), ToUtf8(GetParam().chain));
  EXPECT_NE(IsValidBySchema(text), true);
}

INSTANTIATE_TEST_SUITE_P(Orders, BrokenOrderTest, testing::ValuesIn(kBrokenOrders),
                         [](auto const& row) { return row.param.name; });

TEST(Orders, SettersKeepAChoice) {
  COrder order;
  CPayment& payment = order.GetPayment();
  payment.SetInvoice(std::int16_t{30});
  EXPECT_EQ(ThrownChain([&] { payment.SetCard(CSmartPtr<CCard>(new CCard).Get()); }),
            u"InvalidState: The Property [invoice] is already set. Only one element within this "
            u"class bay be set at a time");
  EXPECT_EQ(ThrownChain([&] {
              payment.GetInstalments().Add(CSmartPtr<CInstalment>(new CInstalment).Get());
            }),
            u"InvalidState: The Property [invoice] is already set. Only one element within this "
            u"class bay be set at a time");
  EXPECT_EQ(payment.GetInstalments().GetCount(), 0) << "what is refused stays out";
  payment.SetInvoice(std::nullopt);
  payment.SetCard(nullptr);
  EXPECT_EQ(payment.GetSelection(), u"");
  payment.GetInstalments().Add(new CInstalment);
  EXPECT_EQ(payment.GetSelection(), u"instalment");
  payment.GetInstalments().Clear();
  payment.SetCard(new CCard);
  EXPECT_EQ(payment.GetSelection(), u"card");
}

TEST(Orders, ACollectionOutlivesThePaymentItBelongedTo) {
  CSmartPtr<CObjectCol<CInstalment>> instalments;
  {
    COrder order;
    instalments = &order.GetPayment().GetInstalments();
    order.Init();
  }
  instalments->Add(new CInstalment);
  EXPECT_EQ(instalments->GetCount(), 1);
}

TEST(Orders, SettersCheckObjects) {
  COrder order;
  EXPECT_EQ(ThrownChain([&] { order.SetCustomer(nullptr); }),
            u"InvalidParam: The Property [customer] is mandatory, it may node be NULL");
  CSmartPtr<CAddress> const address(new CAddress(u"billTo"));
  EXPECT_EQ(ThrownChain([&] { order.SetShipTo(address.Get()); }),
            u"InvalidParam: This property requires an element with the name shipTo the element "
            u"being set has the element name billTo");
  CSmartPtr<CElement> const known(new CElement(u"more", kOrderNamespace));
  EXPECT_EQ(ThrownChain([&] { order.SetExtension(known.Get()); }),
            u"InvalidNamespace: Invalid namespace [urn:example:purchase-order]. The namespace must "
            u"be one of [##other] where the target namespace is [urn:example:purchase-order].");
}

TEST(Orders, AreReadByManyThreadsAtOnce) {
  std::string const text = OrderText();
  std::u16string const expected = Write(*Read(text));
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] {
      CSerializationContext const context;
      EXPECT_EQ(Read(text, context)->ToXml(false, false, EOLType_LF, context), expected);
    });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace KestOrders
