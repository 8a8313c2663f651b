// The byte-level form of text output: encoding and line ends.
#pragma once

#include <cstdint>

namespace KestXmlLib20 {

/// How text becomes bytes. The numbers are part of the interface.
enum XmlEncoding : std::int32_t {
  XmlEncoding_None = 0,                ///< wide text only: making bytes of it fails
  XmlEncoding_UTF8 = 1,                ///< UTF-8, never with a byte order mark
  XmlEncoding_UTF16 = 2,               ///< UTF-16 little-endian; a file begins with FF FE
  XmlEncoding_UTF16NoDeclaration = 3,  ///< as 2, but the declaration does not name it
};

/// The line end of formatted output and of line feeds in text.
enum EOLType : std::int32_t {
  EOLType_CRLF = 0,
  EOLType_LF = 1,
};

}  // namespace KestXmlLib20
