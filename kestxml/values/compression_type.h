// What may be wrapped around finished output.
#pragma once

#include <cstdint>

namespace KestXmlLib20 {

/// How finished bytes are compressed. The numbers are part of the interface.
enum CompressionType : std::int32_t {
  CompressionType_None = 0,
  CompressionType_GZip = 1,  ///< RFC 1952
  CompressionType_ZLib = 2,  ///< RFC 1950; for stream output only
};

}  // namespace KestXmlLib20
