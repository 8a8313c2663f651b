#include "kestxml/values/compression.h"

#define ZLIB_CONST  // zlib then takes its input as constant
#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "kestxml/values/binary_data.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/malloc_bytes.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

constexpr int kLevel = 1;
constexpr int kGZipWindowBits = 31;        // a window of 32 KiB, with gzip framing
constexpr int kAnyFramingWindowBits = 47;  // a window of 32 KiB, framing as the input has it
constexpr int kMemoryLevel = 8;
constexpr std::size_t kInflateStep = 65'536;

int InitDeflate(z_stream& stream, CompressionType type) {
  if (type == CompressionType_ZLib) return deflateInit(&stream, kLevel);
  return deflateInit2(&stream, kLevel, Z_DEFLATED, kGZipWindowBits, kMemoryLevel,
                      Z_DEFAULT_STRATEGY);
}

// Deflates all of the input into an output of the same size, in the two calls that decide what the
// error of one that does not fit is. Gives what the last call returned.
int Deflate(CompressionType type, unsigned char* input, unsigned char* output,
            std::uint32_t& length) {
  z_stream stream{};
  if (int const status = InitDeflate(stream, type); status != Z_OK) return status;
  stream.next_in = input;
  stream.avail_in = length;
  stream.next_out = output;
  stream.avail_out = length;
  deflate(&stream, Z_NO_FLUSH);
  int const status = deflate(&stream, Z_FINISH);
  deflateEnd(&stream);
  length = static_cast<std::uint32_t>(stream.total_out);
  return status;
}

class InflateStream {
 public:
  InflateStream(unsigned char const* data, std::uint32_t length) {
    m_stream.next_in = data;
    m_stream.avail_in = length;
    if (inflateInit2(&m_stream, kAnyFramingWindowBits) != Z_OK) throw std::bad_alloc();
  }
  InflateStream(InflateStream const&) = delete;
  InflateStream& operator=(InflateStream const&) = delete;
  ~InflateStream() { inflateEnd(&m_stream); }

  // Appends the next bytes, at most @p room, and gives what inflate returned.
  int Next(CBinaryData& out, std::size_t room) {
    m_stream.next_out = out.PrepareAppend(room);
    m_stream.avail_out = static_cast<uInt>(room);
    int const status = inflate(&m_stream, Z_NO_FLUSH);
    if (status == Z_MEM_ERROR) throw std::bad_alloc();
    out.CommitAppend(room - m_stream.avail_out);
    return status;
  }

 private:
  z_stream m_stream{};
};

void TestInflatedLength(std::uint64_t length, std::uint64_t maxBytes) {
  if (maxBytes != 0 && length > maxBytes) {
    throw CKestException(FormatString(
        u"The document exceeds the limit of %I64u bytes after decompression.", maxBytes));
  }
}

}  // namespace

void CompressBinaryData(CBinaryData& data, CompressionType type) {
  if (type != CompressionType_GZip && type != CompressionType_ZLib) return;
  std::uint32_t length = data.GetLength();
  if (length == 0) return;
  internal::MallocBytes const input(data.ReleaseData());
  internal::MallocBytes output = internal::AllocateBytes(length);
  if (int const status = Deflate(type, input.get(), output.get(), length); status != Z_STREAM_END) {
    throw CKestException(FormatString(u"Failed to compress data. [Error Code: %d]", status));
  }
  internal::ResizeBytes(output, length);
  data = CBinaryData(output.get(), length, true);
  static_cast<void>(output.release());
}

bool MayBeCompressed(unsigned char const* head, std::size_t length) {
  if (length < 2) return false;
  if (head[0] == 0x1F && head[1] == 0x8B) return true;
  bool const deflated = (head[0] & 0x0F) == Z_DEFLATED && head[0] >> 4 <= 7;
  return deflated && (head[0] * 256 + head[1]) % 31 == 0;
}

bool Inflate(CBinaryData& inflated, unsigned char const* data, std::uint32_t length,
             std::uint64_t maxBytes) {
  inflated.Clear();
  if (!MayBeCompressed(data, length)) return false;
  InflateStream stream(data, length);
  int status;
  do {
    // One byte beyond the limit shows that it is passed; more is never asked for.
    std::uint64_t const left = maxBytes == 0 ? kInflateStep : maxBytes - inflated.GetLength();
    status = stream.Next(inflated, std::min<std::uint64_t>(left, kInflateStep - 1) + 1);
    TestInflatedLength(inflated.GetLength(), maxBytes);
  } while (status == Z_OK);
  return status == Z_STREAM_END;
}

void DecompressBuffer(unsigned char** data, std::uint32_t* length, std::uint64_t maxBytes) {
  CBinaryData inflated;
  if (!Inflate(inflated, *data, *length, maxBytes)) return;
  std::free(*data);
  *length = inflated.GetLength();
  *data = inflated.ReleaseData();
}

}  // namespace KestXmlLib20
