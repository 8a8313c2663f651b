// Text output that goes to a file while it is being produced.
#pragma once

#include <cstdint>
#include <string>

#include "kestxml/document/text_stream.h"
#include "kestxml/platform/file.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {

/// Writes the text of a writer to a file piece by piece: the system takes each piece at its
/// position and stores it while the next one is produced, so memory stays bounded whatever the
/// length of the document. Failures are CKestException with the 32-bit error code; they leave a
/// partly written file, and so does a stream that ends without Close.
class KESTXML_API CFileTextStream : public CTextStream {
 public:
  CFileTextStream(char16_t const* fileName, XmlEncoding encoding);
  ~CFileTextStream() override;

  /// Makes the file, or empties it, and writes the byte order mark that the encoding asks for.
  void Open() override;
  /// Writes what is left and closes the file.
  void Close() override;
  /// Hands the text in the buffer to the system. An encoding without a byte form fails here.
  void Flush() override;

 private:
  void WritePending();

  std::u16string m_fileName;
  CBinaryData m_pending;             // the bytes of the present write
  std::uint64_t m_filePosition = 0;  // of the next write
  platform::File m_file;
  CUtf8Encoder m_utf8;
};

}  // namespace KestXmlLib20
