#include "bench/json/orders_json.h"

#include <map>
#include <string_view>

#include "kestxml/binding/register.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/values/binary_data.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

[[maybe_unused]] bool const g_registered = (Register(20, 0), true);

void Remove(std::string_view piece, std::string& text) {
  std::string kept;
  kept.reserve(text.size());
  std::size_t begin = 0;
  for (std::size_t found; (found = text.find(piece, begin)) != text.npos;
       begin = found + piece.size()) {
    kept.append(text, begin, found - begin);
  }
  text = kept.append(text, begin);
}

}  // namespace

CSerializationContext MakeOrdersContext() {
  CSerializationContext context;
  context.SetDefaultNamespaceURI(kOrdersNamespace);
  context.SetIndentChars(u"  ");
  return context;
}

CSmartPtr<COrders> ReadForJson(BenchDocument const& document) {
  std::string bytes = document.bytes;
  Remove("&quot;", bytes);
  Remove("\\", bytes);
  CSmartPtr<COrders> orders(new COrders);
  orders->FromXmlStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                        static_cast<std::uint32_t>(bytes.size()),
                        CSerializationContext::GetDefaultContext());
  return orders;
}

std::string const& JsonOf(BenchDocument const& document) {
  static std::map<std::string, std::string> texts;
  std::string& text = texts[document.name];
  if (text.empty()) {
    text = ReadForJson(document)
               ->ToJsonStream(true, XmlEncoding_UTF8, EOLType_LF, MakeOrdersContext(),
                              CompressionType_None)
               .GetView();
  }
  return text;
}

}  // namespace KestBench
