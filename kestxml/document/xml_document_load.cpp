// The loads of CXmlDocument from files and byte buffers.

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

#include "kestxml/document/internal/expat_reader.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/platform/file.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/compression.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

using internal::CExpatReader;
using platform::ErrorCode;
using platform::File;

// Blocks of an overlapped load, in bytes. A file of a whole number of them fails to load on that
// path, since only a block that falls short is known to be the last: callers rely on the failure.
constexpr std::size_t kChunk = 0x20000;

bool loadsAreOverlapped = false;

File Open(char16_t const* fileName) {
  auto opened = File::OpenForReading(ToUtf8(fileName));
  if (opened.error == platform::kErrorNone) return std::move(opened.value);
  throw CKestException(
      FormatString(u"Failed to open the file [%s] Error [0x%08x]", fileName, opened.error));
}

// Lengths have 32 bits, so a file that needs more is one whose size can't be had.
std::uint32_t SizeOf(File const& file, char16_t const* fileName) {
  auto size = file.GetSize();
  if (size.error == platform::kErrorNone && size.value > UINT32_MAX) {
    size.error = platform::kErrorFileTooLarge;
  }
  if (size.error == platform::kErrorNone) return static_cast<std::uint32_t>(size.value);
  throw CKestException(FormatString(u"Failed to get the size of the file [%s] Error [0x%08x]",
                                    fileName, size.error));
}

[[noreturn]] void ThrowUnreadable(char16_t const* fileName, ErrorCode error) {
  throw CKestException(FormatString(u"Failed to read the contents of the file [%s] Error [0x%08x]",
                                    fileName, error));
}

[[noreturn]] void ThrowUnreadable(ErrorCode error) {
  throw CKestException(
      FormatString(u"Failed to read the contents of the file. Error [0x%08x]", error));
}

// All @p length bytes, which the file's size has promised.
void ReadAll(File const& file, char16_t const* fileName, std::uint64_t offset, void* buffer,
             std::size_t length) {
  auto const read = file.ReadAt(offset, buffer, length);
  if (read.error != platform::kErrorNone) ThrowUnreadable(fileName, read.error);
  if (read.value != length) ThrowUnreadable(fileName, platform::kErrorHandleEof);
}

CBinaryData ReadAll(File const& file, char16_t const* fileName, std::uint32_t size) {
  CBinaryData bytes;
  if (size == 0) return bytes;
  ReadAll(file, fileName, 0, bytes.PrepareAppend(size), size);
  bytes.CommitAppend(size);
  return bytes;
}

// Straight into the parser's own memory, in one piece unless the file is huge.
void ParseFile(CExpatReader& reader, File const& file, char16_t const* fileName,
               std::span<unsigned char const> head, std::uint32_t size) {
  std::uint32_t offset = 0;
  do {
    std::uint32_t const piece = std::min(size - offset, CExpatReader::kLargestPiece);
    void* const buffer = reader.GetBuffer(head, piece);
    ReadAll(file, fileName, offset, buffer, piece);
    offset += piece;
    reader.ParseFilledBuffer(piece, offset == size);
  } while (offset != size);
}

}  // namespace

void AsyncFromXmlFile(bool overlapped) {
  loadsAreOverlapped = overlapped;
}

void CXmlDocument::Load(char16_t const* fileName) {
  Cleanup();
  if (!fileName) fileName = u"";
  if (loadsAreOverlapped) {
    LoadInBlocks(fileName);
  } else {
    LoadWhole(fileName);
  }
}

CBinaryData CXmlDocument::ReadFile(char16_t const* fileName) {
  File const file = Open(fileName);
  return ReadAll(file, fileName, SizeOf(file, fileName));
}

void CXmlDocument::LoadWhole(char16_t const* fileName) {
  File const file = Open(fileName);
  std::uint32_t const size = SizeOf(file, fileName);
  unsigned char head[2] = {};
  std::size_t const headLength = std::min<std::size_t>(size, sizeof head);
  ReadAll(file, fileName, 0, head, headLength);
  if (MayBeCompressed(head, headLength)) {
    Parse(ReadAll(file, fileName, size).GetData(), size);
  } else {
    CExpatReader reader(*m_tree, ReaderOptions());
    ParseFile(reader, file, fileName, {head, headLength}, size);
    RequireDocumentElement();
  }
}

void CXmlDocument::LoadXmlStream(unsigned char const* data, std::uint32_t length) {
  Cleanup();
  if (!data || length == 0) throw CKestException(u"XML Stream is empty!");
  Parse(data, length);
}

// What does not inflate is parsed as it stands.
void CXmlDocument::Parse(unsigned char const* data, std::uint32_t length) {
  CBinaryData inflated;
  if (Inflate(inflated, data, length, m_context->GetLimits().GetMaxInflatedBytes())) {
    ParseText(inflated.GetData(), inflated.GetLength());
  } else {
    ParseText(data, length);
  }
}

void CXmlDocument::LoadInBlocks(char16_t const* fileName) {
  File const file = Open(fileName);
  auto block = std::make_unique_for_overwrite<unsigned char[]>(kChunk);
  auto const first = file.StartRead(m_readOffset, block.get(), kChunk).Wait();
  if (first.error == platform::kErrorHandleEof) ThrowUnreadable(fileName, first.error);
  if (first.error != platform::kErrorNone) ThrowUnreadable(first.error);
  m_readOffset += first.value;
  try {
    ParseBlocks(file, std::move(block), first.value);
  } catch (CKestException const&) {
    Cleanup();
    throw;
  }
}

// While one block is parsed the system fetches the next.
void CXmlDocument::ParseBlocks(platform::File const& file, std::unique_ptr<unsigned char[]> block,
                               std::size_t length) {
  CExpatReader reader(*m_tree, ReaderOptions());
  auto spare = std::make_unique_for_overwrite<unsigned char[]>(kChunk);
  while (length == kChunk) {
    auto next = file.StartRead(m_readOffset, spare.get(), kChunk);
    reader.ParseBuffer(block.get(), kChunk, false);
    auto const read = next.Wait();
    if (read.error != platform::kErrorNone) ThrowUnreadable(read.error);
    m_readOffset += read.value;
    length = read.value;
    std::swap(block, spare);
  }
  reader.ParseBuffer(block.get(), static_cast<std::uint32_t>(length), true);
  RequireDocumentElement();
}

}  // namespace KestXmlLib20
