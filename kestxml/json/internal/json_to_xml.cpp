#include "kestxml/json/internal/json_to_xml.h"

#include <memory>
#include <utility>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/byte_text_stream.h"
#include "kestxml/document/xml_text_writer.h"
#include "kestxml/json/internal/json_reader_default_handler.h"
#include "kestxml/json/internal/json_reader_to_xml_handler.h"
#include "kestxml/json/json_context.h"
#include "kestxml/json/json_text_reader.h"

namespace KestXmlLib20::internal {

CBinaryData JsonToXml(std::u16string_view text, CSerializationContext const& context) {
  CJsonContext const& json = context.FindJsonContext();
  CByteTextStream stream(XmlEncoding_UTF8, context.GetLimits().GetMaxInflatedBytes());
  CXmlTextWriter writer(stream);  // indented with tabs and line feeds, as it starts
  std::uint32_t const maxDepth = context.GetLimits().GetMaxDepth();
  writer.SetMaxDepth(maxDepth);
  writer.OpenWriter();
  auto handler = std::make_unique<CJsonReaderDefaultHandler>();
  handler->SetInner(std::make_unique<CJsonReaderToXmlHandler>(writer, json.GetSupportRoundtrip(),
                                                              *handler, maxDepth));
  CJsonTextReader(text, json, std::move(handler)).Read();
  writer.CloseWriter();
  return stream.TakeBytes();
}

}  // namespace KestXmlLib20::internal
