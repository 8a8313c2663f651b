#include "kestxml/binding/internal/output_way.h"

#include "kestxml/document/async_output.h"
#include "kestxml/document/byte_text_stream.h"
#include "kestxml/values/compression.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20::internal {

CBinaryData BytesOf(XmlEncoding encoding, CompressionType compression,
                    std::function<void(CTextStream& stream)> const& write) {
  CByteTextStream stream(encoding);
  write(stream);
  CBinaryData data = stream.TakeBytes();
  if (compression != CompressionType_None) CompressBinaryData(data, compression);
  return data;
}

bool GrowsAsItIsWritten(CompressionType compression) {
  if (compression == CompressionType_ZLib) {
    throw CKestException(u"ZLIB Compression only available for To Stream methods.");
  }
  return GetAsyncToXmlFile() && compression == CompressionType_None;
}

}  // namespace KestXmlLib20::internal
