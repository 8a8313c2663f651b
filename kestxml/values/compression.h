// gzip and zlib wrapping of whole buffers.
#pragma once

#include <cstddef>
#include <cstdint>

#include "kestxml/platform/api.h"
#include "kestxml/values/compression_type.h"

namespace KestXmlLib20 {

class CBinaryData;

/// Replaces @p data with its compressed form; empty data and CompressionType_None leave it as it
/// is. The result must fit into the size of the input.
/// @throws CKestException when it does not, as with very short or random data, which leaves @p data
/// empty.
KESTXML_API void CompressBinaryData(CBinaryData& data, CompressionType type);

/// Whether inflating would get past the first two of @p length bytes: the mark of gzip (RFC 1952,
/// 2.3.1), or a zlib header with its check and a window that the method allows (RFC 1950, 2.2).
KESTXML_API bool MayBeCompressed(unsigned char const* head, std::size_t length);

/// Fills @p inflated with what the @p length bytes at @p data inflate to, if they are a complete
/// gzip or zlib stream; what follows the stream is dropped. False for anything else, also a damaged
/// stream: it counts as plain, and @p inflated is then of no use.
/// @param maxBytes most bytes to inflate to; 0 for as many as 32 bits can count.
/// @throws CKestException when there are more.
KESTXML_API bool Inflate(CBinaryData& inflated, unsigned char const* data, std::uint32_t length,
                         std::uint64_t maxBytes);

/// Inflates the @p length bytes of malloc at @p data if they are a complete gzip or zlib stream,
/// and replaces both; what follows the stream is dropped. Anything else, also a damaged stream,
/// counts as plain and stays untouched, at the cost of a look at its first two bytes.
/// @param maxBytes most bytes to inflate to; 0 for as many as 32 bits can count.
/// @throws CKestException when there are more; the input is then untouched.
KESTXML_API void DecompressBuffer(unsigned char** data, std::uint32_t* length,
                                  std::uint64_t maxBytes = std::uint64_t{1} << 30);

}  // namespace KestXmlLib20
