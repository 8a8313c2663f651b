#include "kestxml/platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace KestXmlLib20::platform {
namespace {

static_assert(sizeof(off_t) == 8, "positions beyond 2 GiB");

constexpr mode_t kNewFileMode = 0666;  // less the process's umask

std::string DirectoryOf(std::string const& name) {
  auto const slash = name.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : name.substr(0, slash);
}

// The system has one error for a missing file and for a missing directory before it.
ErrorCode OpenError(int systemError, std::string const& name) {
  if (systemError != ENOENT) return ErrorCodeOf(systemError);
  struct stat status;
  return stat(DirectoryOf(name).c_str(), &status) == 0 ? kErrorFileNotFound : kErrorPathNotFound;
}

int OpenDescriptor(std::string const& name, int flags) {
  int descriptor;
  do {
    descriptor = open(name.c_str(), flags | O_CLOEXEC, kNewFileMode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

ssize_t WriteOnce(int descriptor, std::uint64_t offset, char const* bytes, std::size_t length) {
  ssize_t const count = pwrite(descriptor, bytes, length, static_cast<off_t>(offset));
  return count < 0 && errno == ESPIPE ? write(descriptor, bytes, length) : count;
}

// Calls @p step(bytes done so far) until it has moved @p length bytes, fails, or moves none.
template <typename Step>
Result<std::size_t> Repeat(std::size_t length, Step const& step) {
  Result<std::size_t> done;
  while (done.value < length) {
    ssize_t const count = step(done.value);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) done.error = ErrorCodeOf(errno);
    if (count <= 0) break;
    done.value += static_cast<std::size_t>(count);
  }
  return done;
}

}  // namespace

File& File::operator=(File&& other) noexcept {
  if (this != &other) {
    Close();
    m_descriptor = std::exchange(other.m_descriptor, kClosed);
  }
  return *this;
}

Result<File> File::OpenForReading(std::string const& name) {
  // Without O_NONBLOCK a pipe that nobody writes to would hold the caller here for ever.
  File file(OpenDescriptor(name, O_RDONLY | O_NONBLOCK));
  if (!file.IsOpen()) return {File(), OpenError(errno, name)};
  struct stat status;
  if (fstat(file.m_descriptor, &status) != 0) return {File(), ErrorCodeOf(errno)};
  if (S_ISDIR(status.st_mode)) return {File(), kErrorAccessDenied};
  posix_fadvise(file.m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
  return {std::move(file), kErrorNone};
}

Result<File> File::CreateForWriting(std::string const& name) {
  File file(OpenDescriptor(name, O_WRONLY | O_CREAT | O_TRUNC));
  if (!file.IsOpen()) return {File(), OpenError(errno, name)};
  return {std::move(file), kErrorNone};
}

Result<std::uint64_t> File::GetSize() const {
  struct stat status;
  if (fstat(m_descriptor, &status) != 0) return {0, ErrorCodeOf(errno)};
  if (!S_ISREG(status.st_mode)) return {0, kErrorGeneralFailure};
  return {static_cast<std::uint64_t>(status.st_size), kErrorNone};
}

Result<std::size_t> File::ReadAt(std::uint64_t offset, void* buffer, std::size_t length) const {
  return Repeat(length, [&](std::size_t done) {
    return pread(m_descriptor, static_cast<char*>(buffer) + done, length - done,
                 static_cast<off_t>(offset + done));
  });
}

ReadRequest File::StartRead(std::uint64_t offset, void* buffer, std::size_t length) const {
  // Advice only: what the system makes of it shows when the bytes are read.
  posix_fadvise(m_descriptor, static_cast<off_t>(offset), static_cast<off_t>(length),
                POSIX_FADV_WILLNEED);
  return ReadRequest(*this, offset, buffer, length);
}

Result<std::size_t> File::WriteAt(std::uint64_t offset, void const* bytes,
                                  std::size_t length) const {
  auto done = Repeat(length, [&](std::size_t count) {
    return WriteOnce(m_descriptor, offset + count, static_cast<char const*>(bytes) + count,
                     length - count);
  });
  // A device that takes no more without saying why is full.
  if (done.value < length && done.error == kErrorNone) done.error = kErrorDiskFull;
  return done;
}

ErrorCode File::Close() noexcept {
  if (!IsOpen()) return kErrorNone;
  int const status = close(std::exchange(m_descriptor, kClosed));
  // An interrupted close has closed the file all the same.
  return status == 0 || errno == EINTR ? kErrorNone : ErrorCodeOf(errno);
}

Result<std::size_t> ReadRequest::Wait() {
  if (!m_file) return {};
  auto const read = std::exchange(m_file, nullptr)->ReadAt(m_offset, m_buffer, m_length);
  if (read.error != kErrorNone) return {0, read.error};
  return {read.value, read.value == 0 && m_length != 0 ? kErrorHandleEof : kErrorNone};
}

}  // namespace KestXmlLib20::platform
