// XML bytes to objects and back.
#include <stdexcept>

#include "bench/binding/orders_model.h"
#include "bench/support/measure.h"
#include "kestxml/binding/register.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/values/binary_data.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

[[maybe_unused]] bool const g_registered = (Register(20, 0), true);

CSerializationContext MakeContext() {
  CSerializationContext context;
  context.SetDefaultNamespaceURI(kOrdersNamespace);
  context.SetIndentChars(u"  ");
  return context;
}

CSmartPtr<COrders> Read(BenchDocument const& document) {
  CSmartPtr<COrders> orders(new COrders);
  orders->FromXmlStream(reinterpret_cast<unsigned char const*>(document.bytes.data()),
                        static_cast<std::uint32_t>(document.bytes.size()),
                        CSerializationContext::GetDefaultContext());
  return orders;
}

CBinaryData Write(COrders& orders, CSerializationContext const& context) {
  return orders.ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, context,
                            CompressionType_None);
}

CMeasure const g_read("objects_read", [](benchmark::State& state, BenchDocument const& document) {
  if (Read(document)->GetOrders().GetCount() == 0) throw std::runtime_error("Nothing was read.");
  for (auto _ : state) Read(document);
});

CMeasure const g_write("objects_write", [](benchmark::State& state, BenchDocument const& document) {
  auto const orders = Read(document);
  auto const context = MakeContext();
  CBinaryData const once = Write(*orders, context);
  COrders again;
  again.FromXmlStream(once, context);
  if (!(Write(again, context) == once)) throw std::runtime_error("The document changed.");
  for (auto _ : state) benchmark::DoNotOptimize(Write(*orders, context).GetLength());
});

}  // namespace
}  // namespace KestBench
