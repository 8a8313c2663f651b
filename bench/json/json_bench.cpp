// JSON bytes to XML, to objects and back.
#include <stdexcept>

#include "bench/json/orders_json.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/values/binary_data.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

unsigned char const* DataOf(std::string const& bytes) {
  return reinterpret_cast<unsigned char const*>(bytes.data());
}

CBinaryData Convert(std::string const& json) {
  CXmlDocument document;
  return document.LoadJsonStream(DataOf(json), static_cast<std::uint32_t>(json.size()));
}

void Read(COrders& orders, std::string const& json) {
  orders.FromJsonStream(DataOf(json), static_cast<std::uint32_t>(json.size()),
                        CSerializationContext::GetDefaultContext());
}

CBinaryData Write(COrders& orders, CSerializationContext const& context) {
  return orders.ToJsonStream(true, XmlEncoding_UTF8, EOLType_LF, context, CompressionType_None);
}

CMeasure const g_convert("json_to_xml", [](benchmark::State& state, BenchDocument const& document) {
  std::string const& json = JsonOf(document);
  CSmartPtr<COrders> const orders(new COrders);
  orders->FromXmlStream(Convert(json), CSerializationContext::GetDefaultContext());
  if (Write(*orders, MakeOrdersContext()).GetView() != json) {
    throw std::runtime_error("The document changed.");
  }
  for (auto _ : state) benchmark::DoNotOptimize(Convert(json).GetLength());
});

CMeasure const g_read("json_objects_read",
                      [](benchmark::State& state, BenchDocument const& document) {
                        std::string const& json = JsonOf(document);
                        for (auto _ : state) {
                          CSmartPtr<COrders> const orders(new COrders);
                          Read(*orders, json);
                        }
                      });

CMeasure const g_write("json_objects_write",
                       [](benchmark::State& state, BenchDocument const& document) {
                         auto const orders = ReadForJson(document);
                         auto const context = MakeOrdersContext();
                         if (Write(*orders, context).GetView() != JsonOf(document)) {
                           throw std::runtime_error("The document changed.");
                         }
                         for (auto _ : state) {
                           benchmark::DoNotOptimize(Write(*orders, context).GetLength());
                         }
                       });

}  // namespace
}  // namespace KestBench
