// Finished bytes on their way out.
#pragma once

#include <string>

#include "kestxml/document/output_form.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// Bytes that a writer of a binary format appends to.
class KESTXML_API CBinaryStream : protected CInstanceMonitor {
 public:
  CBinaryStream() = default;
  explicit CBinaryStream(CBinaryData const& data);
  ~CBinaryStream() override;

  CBinaryData& GetData() { return m_data; }

 protected:
  CBinaryData m_data;
};

/// Puts finished bytes into a file at once.
class KESTXML_API CFileBinaryStream : public CBinaryStream {
 public:
  CFileBinaryStream(CBinaryData const& data, char16_t const* fileName, XmlEncoding encoding);

  /// Makes the file, or empties it, and writes the byte order mark that the encoding asks for and
  /// the bytes as they are; so gzip data of UTF-16 text gets the mark in front of it as well.
  /// @throws CKestException with the 32-bit error code; the file may be partly written.
  void WriteToFile();

 private:
  std::u16string m_fileName;
  XmlEncoding m_encoding;
};

}  // namespace KestXmlLib20
