// Files: opened whole, read and written at explicit positions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "kestxml/platform/api.h"
#include "kestxml/platform/error_code.h"

namespace KestXmlLib20::platform {

/// What a call gives: its value, and the code of its failure or kErrorNone. Callers build the
/// messages, so nothing here throws.
template <typename T>
struct Result {
  T value{};
  ErrorCode error = kErrorNone;
};

class ReadRequest;

/// An open file, or none; closed when it goes. Names are UTF-8. Interrupted and partial calls of
/// the system are carried on with, so a count that falls short always has its reason.
class KESTXML_API File {
 public:
  File() noexcept = default;
  File(File&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, kClosed)) {}
  File& operator=(File&& other) noexcept;
  ~File() { Close(); }

  /// An existing file, to be read from front to back. A directory gives kErrorAccessDenied, a name
  /// whose directory is missing kErrorPathNotFound.
  static Result<File> OpenForReading(std::string const& name);
  /// A new file, or an existing one emptied.
  static Result<File> CreateForWriting(std::string const& name);

  bool IsOpen() const { return m_descriptor != kClosed; }
  /// In bytes. What isn't a regular file, such as a pipe, has no size: kErrorGeneralFailure.
  Result<std::uint64_t> GetSize() const;
  /// Reads @p length bytes, or as many as there are before the end; gives the count.
  Result<std::size_t> ReadAt(std::uint64_t offset, void* buffer, std::size_t length) const;
  /// Asks the system to fetch bytes that a later wait on the request will need. This file and
  /// @p buffer must stay until then. Starts no thread, and can't fail.
  ReadRequest StartRead(std::uint64_t offset, void* buffer, std::size_t length) const;
  /// Writes all @p length bytes; on an error the value is the count that went out before it. What
  /// knows no positions, such as a pipe, takes the bytes at its end.
  Result<std::size_t> WriteAt(std::uint64_t offset, void const* bytes, std::size_t length) const;
  /// Closes the file if it is open. A system that has held written bytes back may report only here
  /// that it can't store them.
  ErrorCode Close() noexcept;

 private:
  static constexpr int kClosed = -1;
  explicit File(int descriptor) noexcept : m_descriptor(descriptor) {}

  int m_descriptor = kClosed;
};

/// A read that has been started and not yet waited for.
class KESTXML_API ReadRequest {
 public:
  ReadRequest() noexcept = default;

  /// Finishes the read. The value is the count, which falls short of the length only at the end of
  /// the file. Without any byte to read the error is kErrorHandleEof; any other error means that
  /// the read never took place, as if it could not have been started. Without a request, 0 bytes.
  Result<std::size_t> Wait();

 private:
  friend class File;
  ReadRequest(File const& file, std::uint64_t offset, void* buffer, std::size_t length) noexcept
      : m_file(&file), m_offset(offset), m_buffer(buffer), m_length(length) {}

  File const* m_file = nullptr;
  std::uint64_t m_offset = 0;
  void* m_buffer = nullptr;
  std::size_t m_length = 0;
};

}  // namespace KestXmlLib20::platform
