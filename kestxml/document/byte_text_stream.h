// The stream behind output to memory.
#pragma once

#include <cstdint>

#include "kestxml/document/text_stream.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {

/// Turns each flushed piece of text into bytes at once and uses its blocks again, so that a long
/// document is never held as text. An encoding without a byte form drops the text; that this fails
/// shows only when the bytes are taken, after everything has been written.
class KESTXML_API CByteTextStream final : public CTextStream {
 public:
  /// @param maxBytes most bytes to make of the text; 0 for as many as 32 bits can count.
  explicit CByteTextStream(XmlEncoding encoding, std::uint64_t maxBytes = 0);

  void Open() override;
  void Close() override;
  /// @throws CKestException when there are more bytes than allowed.
  void Flush() override;

  /// The bytes since Open, without a byte order mark; to be called after Close.
  /// @throws CKestException when the encoding has no byte form.
  CBinaryData TakeBytes();

 private:
  std::uint64_t m_maxBytes;
  CBinaryData m_bytes;
  CUtf8Encoder m_utf8;
};

}  // namespace KestXmlLib20
