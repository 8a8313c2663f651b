#include "kestxml/document/binary_stream.h"

#include "kestxml/document/internal/output_file.h"
#include "kestxml/document/internal/text_bytes.h"
#include "kestxml/platform/file.h"

namespace KestXmlLib20 {

CBinaryStream::CBinaryStream(CBinaryData const& data) : m_data(data) {}
CBinaryStream::~CBinaryStream() = default;

CFileBinaryStream::CFileBinaryStream(CBinaryData const& data, char16_t const* fileName,
                                     XmlEncoding encoding)
    : CBinaryStream(data), m_fileName(fileName ? fileName : u""), m_encoding(encoding) {}

void CFileBinaryStream::WriteToFile() {
  platform::File file = internal::CreateOutputFile(m_fileName, m_encoding);
  auto const written = file.WriteAt(internal::ByteOrderMark(m_encoding).size(), m_data.GetData(),
                                    m_data.GetLength());
  if (written.error) internal::ThrowWriteFailed(m_fileName, written.error);
  if (auto const error = file.Close()) internal::ThrowWriteFailed(m_fileName, error);
}

}  // namespace KestXmlLib20
