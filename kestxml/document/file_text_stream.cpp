#include "kestxml/document/file_text_stream.h"

#include "kestxml/document/internal/output_file.h"
#include "kestxml/document/internal/text_bytes.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

void TestWritten(platform::ErrorCode error) {
  if (error != platform::kErrorNone) {
    throw CKestException(FormatString(u"Failed to write data to the file. Error [0x%08X]", error));
  }
}

}  // namespace

CFileTextStream::CFileTextStream(char16_t const* fileName, XmlEncoding encoding)
    : CTextStream(encoding), m_fileName(fileName ? fileName : u"") {}

CFileTextStream::~CFileTextStream() = default;

void CFileTextStream::Open() {
  CTextStream::Open();
  m_file = internal::CreateOutputFile(m_fileName, m_encoding);
  m_filePosition = internal::ByteOrderMark(m_encoding).size();
  m_utf8 = CUtf8Encoder();
  m_pending.Clear();
}

void CFileTextStream::Flush() {
  if (m_buffer.GetLength() == 0) return;
  internal::AppendBytes(m_buffer, m_encoding, m_utf8, m_pending);
  WritePending();
  m_buffer.Clear();
}

void CFileTextStream::Close() {
  Flush();
  internal::FinishBytes(m_utf8, m_pending);
  WritePending();
  TestWritten(m_file.Close());
}

void CFileTextStream::WritePending() {
  auto const written = m_file.WriteAt(m_filePosition, m_pending.GetData(), m_pending.GetLength());
  m_pending.Clear();
  m_filePosition += written.value;
  if (written.error) m_file.Close();
  TestWritten(written.error);
}

}  // namespace KestXmlLib20
