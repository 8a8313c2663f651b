#include "kestxml/values/binary_data.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "kestxml/values/base64.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/internal/malloc_bytes.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/length_limit.h"

namespace KestXmlLib20 {
namespace {

using internal::AllocateBytes;
using internal::MallocBytes;
using internal::ResizeBytes;

constexpr std::size_t kMinGrownCapacity = 8192;

// Twice what is needed, but not past what a length can count, unless that is needed.
std::size_t GrownCapacity(std::size_t needed) {
  std::size_t const twice = std::min<std::size_t>(2 * needed, CBinaryData::kMaxLength);
  return std::max({needed, twice, kMinGrownCapacity});
}

// A null pointer is taken as no text.
std::u16string_view View(char16_t const* text) {
  return text ? text : u"";
}

void TestLength(std::size_t length) {
  if (length > CBinaryData::kMaxLength) ThrowTooManyBytes();
}

std::uint32_t ByteLength(std::u16string_view text) {
  TestLength(text.size() > CBinaryData::kMaxLength ? text.size() : text.size() * 2);
  return static_cast<std::uint32_t>(text.size() * 2);
}

unsigned char const* BytesOf(std::u16string_view text) {
  return reinterpret_cast<unsigned char const*>(text.data());
}

bool PointsInto(unsigned char const* pointer, unsigned char const* data, std::size_t length) {
  std::less<> const before;
  return !before(pointer, data) && before(pointer, data + length);
}

unsigned char HexValue(char16_t digit) {
  if (digit >= u'0' && digit <= u'9') return static_cast<unsigned char>(digit - u'0');
  if (digit >= u'A' && digit <= u'F') return static_cast<unsigned char>(digit - u'A' + 10);
  if (digit >= u'a' && digit <= u'f') return static_cast<unsigned char>(digit - u'a' + 10);
  throw CKestException(FormatString(u"Invalid char in hex string [%c]", digit));
}

}  // namespace

CBinaryData::CBinaryData(unsigned char* data, std::uint32_t length, bool take) {
  if (length == 0) return;
  if (take) {
    m_block = NewBlock(data, length, length);
  } else {
    MakeBlock(data, length, length);
  }
}

CBinaryData::CBinaryData(char16_t const* text) {
  Append(text);
}

CBinaryData::CBinaryData(std::string_view bytes) {
  TestLength(bytes.size());
  Append(reinterpret_cast<unsigned char const*>(bytes.data()),
         static_cast<std::uint32_t>(bytes.size()));
}

CBinaryData& CBinaryData::operator=(CBinaryData const& other) noexcept {
  return *this = CBinaryData(other);
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept {
  std::swap(m_block, other.m_block);
  if (this != &other) other.Clear();
  return *this;
}

void CBinaryData::Clear() noexcept {
  Block* const block = std::exchange(m_block, nullptr);
  if (!block || block->refCount.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  std::free(block->data);
  delete block;
}

CBinaryData::Block* CBinaryData::NewBlock(unsigned char* data, std::uint32_t length,
                                          std::size_t capacity) {
  return new Block{data, length, capacity, 1};
}

// Leaves the present block for a new one that begins with a copy of @p data.
void CBinaryData::MakeBlock(unsigned char const* data, std::uint32_t length, std::size_t capacity) {
  MallocBytes bytes = AllocateBytes(capacity);
  if (length != 0) std::memcpy(bytes.get(), data, length);
  Block* const block = NewBlock(bytes.get(), length, capacity);
  static_cast<void>(bytes.release());
  Clear();
  m_block = block;
}

void CBinaryData::CopyOnWrite() {
  if (m_block && !IsSoleOwner()) MakeBlock(m_block->data, m_block->length, m_block->length);
}

unsigned char* CBinaryData::ReleaseData() {
  if (!m_block) return nullptr;
  CopyOnWrite();
  // Only a use of this one object from two threads can have shared the block since.
  if (std::int32_t const count = GetRefCount(); count > 1) {
    throw CKestException(FormatString(u"Failed to release data. [RefCount=%d]", count));
  }
  unsigned char* const data = std::exchange(m_block->data, nullptr);
  Clear();
  return data;
}

void CBinaryData::Append(unsigned char const* data, std::uint32_t length) {
  if (length == 0) return;
  TestLength(std::size_t{GetLength()} + length);
  if (m_block && PointsInto(data, m_block->data, m_block->length)) {
    CBinaryData const copy(const_cast<unsigned char*>(data), length, false);
    return Append(copy.GetData(), length);
  }
  std::memcpy(PrepareAppend(length), data, length);
  CommitAppend(length);
}

void CBinaryData::Append(char16_t unit) {
  Append(std::u16string_view(&unit, 1));
}

void CBinaryData::Append(char16_t const* text) {
  Append(View(text));
}

void CBinaryData::Append(std::u16string_view text) {
  Append(BytesOf(text), ByteLength(text));
}

void CBinaryData::Append(CBinaryData const& other) {
  Append(other.GetData(), other.GetLength());
}

unsigned char* CBinaryData::PrepareAppend(std::size_t room) {
  std::size_t const needed = GetLength() + room;
  if (!IsSoleOwner()) MakeBlock(GetData(), GetLength(), GrownCapacity(needed));
  // Only a use of this one object from two threads can have shared the block since.
  if (std::int32_t const count = GetRefCount(); count > 1) {
    throw CKestException(FormatString(u"Failed to append. [RefCount=%d]", count));
  }
  if (needed > m_block->capacity) {
    std::size_t const capacity = GrownCapacity(needed);
    m_block->data = internal::ResizedBytes(m_block->data, capacity);
    m_block->capacity = capacity;
  }
  return m_block->data + m_block->length;
}

void CBinaryData::CommitAppend(std::size_t count) {
  TestLength(m_block->length + count);
  m_block->length += static_cast<std::uint32_t>(count);
}

void CBinaryData::SetBuffer(unsigned char const* data, std::uint32_t length) {
  // The copy is made before the old value goes: the bytes may be its own.
  *this = CBinaryData(const_cast<unsigned char*>(data), length, false);
}

void CBinaryData::SetBuffer(char16_t const* text) {
  *this = CBinaryData(text);
}

std::u16string CBinaryData::GetAsBase64() const {
  return CBase64::Encode(GetData(), GetLength());
}

void CBinaryData::SetAsBase64(char16_t const* text) {
  Clear();
  std::u16string_view const view = View(text);
  if (view.empty()) return;
  MallocBytes bytes = AllocateBytes(CBase64::MaxBytes(view.size()));
  std::size_t const length = CBase64::Decode(view, bytes.get());
  TestLength(length);
  // Made even for no bytes: that value is a block of length 0, not an empty value.
  ResizeBytes(bytes, length);
  m_block = NewBlock(bytes.get(), static_cast<std::uint32_t>(length), length);
  static_cast<void>(bytes.release());
}

std::u16string CBinaryData::GetAsHexString() const {
  return GetAsHexString(GetData(), GetLength());
}

std::u16string CBinaryData::GetAsHexString(unsigned char const* data, std::uint32_t length) {
  constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  std::u16string text(data ? std::size_t{length} * 2 : 0, u'\0');
  for (std::size_t i = 0; i < text.size(); i += 2) {
    text[i] = kDigits[data[i / 2] >> 4];
    text[i + 1] = kDigits[data[i / 2] & 0xF];
  }
  return text;
}

void CBinaryData::SetAsHexString(char16_t const* text) {
  Clear();
  unsigned char* data = nullptr;
  std::uint32_t const length = ConvertToHexData(text, &data);
  MallocBytes bytes(data);
  if (length != 0) m_block = NewBlock(data, length, length);
  static_cast<void>(bytes.release());
}

std::uint32_t CBinaryData::ConvertToHexData(char16_t const* text, unsigned char** data) {
  std::u16string_view const view = View(text);
  if (view.size() % 2 != 0) throw CKestException(u"Invalid length in hex string");
  std::size_t const length = view.size() / 2;
  TestLength(length);
  *data = nullptr;
  if (length == 0) return 0;
  MallocBytes bytes = AllocateBytes(length);
  for (std::size_t i = 0; i < length; ++i) {
    unsigned char const high = HexValue(view[2 * i]);
    bytes.get()[i] = static_cast<unsigned char>(high << 4 | HexValue(view[2 * i + 1]));
  }
  *data = bytes.release();
  return static_cast<std::uint32_t>(length);
}

bool CBinaryData::operator==(CBinaryData const& other) const {
  if (m_block == other.m_block) return true;
  if (!m_block || !other.m_block) return false;
  return GetView() == other.GetView();
}

void CBinaryData::TestIndex(std::uint32_t index) const {
  if (!m_block || index > m_block->length) {
    throw CKestException(FormatString(u"Index Out of range [%d]", index));
  }
}

unsigned char const& CBinaryData::operator[](std::uint32_t index) const {
  static constexpr unsigned char kBehindLast = 0;
  TestIndex(index);
  return index == m_block->length ? kBehindLast : m_block->data[index];
}

unsigned char& CBinaryData::operator[](std::uint32_t index) {
  TestIndex(index);
  if (index < m_block->length) {
    CopyOnWrite();
    return m_block->data[index];
  }
  return *PrepareAppend(1) = 0;
}

}  // namespace KestXmlLib20
