#include "kestxml/document/text_stream.h"

namespace KestXmlLib20 {

CTextStream::CTextStream(XmlEncoding encoding) : m_encoding(encoding) {}
CTextStream::~CTextStream() = default;

void CTextStream::Open() {
  m_buffer.Clear();
}
void CTextStream::Close() {}
void CTextStream::Flush() {}

}  // namespace KestXmlLib20
