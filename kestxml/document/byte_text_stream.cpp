#include "kestxml/document/byte_text_stream.h"

#include <utility>

#include "kestxml/document/internal/text_bytes.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::AppendBytes, internal::FinishBytes, internal::HasByteForm, internal::TestByteForm;

CByteTextStream::CByteTextStream(XmlEncoding encoding, std::uint64_t maxBytes)
    : CTextStream(encoding), m_maxBytes(maxBytes) {}

void CByteTextStream::Open() {
  CTextStream::Open();
  m_bytes.Clear();
  m_utf8 = CUtf8Encoder();
}

void CByteTextStream::Flush() {
  if (HasByteForm(m_encoding)) AppendBytes(m_buffer, m_encoding, m_utf8, m_bytes);
  if (m_maxBytes != 0 && m_bytes.GetLength() > m_maxBytes) {
    throw CKestException(
        FormatString(u"The document exceeds the limit of %I64u bytes as XML.", m_maxBytes));
  }
  m_buffer.Clear();
}

void CByteTextStream::Close() {
  Flush();
  FinishBytes(m_utf8, m_bytes);
}

CBinaryData CByteTextStream::TakeBytes() {
  TestByteForm(m_encoding);
  return std::exchange(m_bytes, CBinaryData());
}

}  // namespace KestXmlLib20
