// The byte buffer in which binary values and whole documents travel.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Bytes that copies share until one of them is changed: copying costs one atomic increment,
/// whatever the length. Objects in different threads may share their bytes; one object belongs to
/// one thread at a time.
///
/// An empty value has no block of bytes at all, which is not the same as a block of length 0.
/// Blocks are memory of malloc: a pointer given away for good (see @p take) must come from there,
/// and one received from ReleaseData goes to free. Lengths have 32 bits; what would be longer is
/// refused with "The document exceeds the limit of 4294967295 bytes.".
class KESTXML_API CBinaryData {
 public:
  /// The most bytes that a value holds.
  static constexpr std::uint32_t kMaxLength = 0xFFFFFFFF;

  CBinaryData() noexcept = default;
  /// With @p take the object owns @p data from now on; otherwise it copies the bytes. A length of 0
  /// makes an empty value whatever else is passed, and @p data stays the caller's.
  CBinaryData(unsigned char* data, std::uint32_t length, bool take);
  /// The bytes of @p text as they lie in memory, two for each unit, without conversion.
  explicit CBinaryData(char16_t const* text);
  /// A copy of @p bytes.
  explicit CBinaryData(std::string_view bytes);

  CBinaryData(CBinaryData const& other) noexcept : m_block(Share(other.m_block)) {}
  CBinaryData(CBinaryData&& other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
  CBinaryData& operator=(CBinaryData const& other) noexcept;
  CBinaryData& operator=(CBinaryData&& other) noexcept;
  virtual ~CBinaryData() { Clear(); }

  /// The bytes, still shared: writing through the pointer changes every copy. Null when empty.
  unsigned char* GetData() const { return m_block ? m_block->data : nullptr; }
  std::uint32_t GetLength() const { return m_block ? m_block->length : 0; }
  /// The same bytes as text that a stream or a file can take; valid until the value changes.
  std::string_view GetView() const {
    return {reinterpret_cast<char const*>(GetData()), GetLength()};
  }
  unsigned char const* begin() const { return GetData(); }
  unsigned char const* end() const { return GetData() + GetLength(); }

  /// Hands the bytes to the caller, who releases them with free; leaves this object empty. Null
  /// when it was empty.
  unsigned char* ReleaseData();

  /// Text appends its raw bytes, two for each unit.
  void Append(unsigned char const* data, std::uint32_t length);
  void Append(unsigned char byte) {
    if (IsSoleOwner() && m_block->length < m_block->capacity) {
      m_block->data[m_block->length++] = byte;
    } else {
      Append(&byte, 1);
    }
  }
  void Append(char16_t unit);
  void Append(char16_t const* text);
  void Append(std::u16string_view text);
  void Append(CBinaryData const& other);

  /// Room for @p room bytes behind the present ones, to be filled by the caller; those that
  /// CommitAppend then counts join the value. Any other change in between takes the room back.
  unsigned char* PrepareAppend(std::size_t room);
  void CommitAppend(std::size_t count);

  /// Replaces the value with a copy; a length of 0 makes it empty.
  void SetBuffer(unsigned char const* data, std::uint32_t length);
  void SetBuffer(char16_t const* text);

  /// RFC 4648 with '+', '/' and padding, without line breaks (xsd:base64Binary).
  std::u16string GetAsBase64() const;
  /// Skips '=', blanks, tabs and line ends wherever they stand, and reads a character above 127 by
  /// its low seven bits. Any other character outside the alphabet gives a block of length 0: bad
  /// base64 is no error. An empty text gives an empty value.
  void SetAsBase64(char16_t const* text);

  /// Two upper-case digits for each byte (xsd:hexBinary).
  std::u16string GetAsHexString() const;
  static std::u16string GetAsHexString(unsigned char const* data, std::uint32_t length);
  /// Reads both cases. @throws CKestException on an odd length or a character that is no digit; the
  /// value is then empty.
  void SetAsHexString(char16_t const* text);

  /// Equal lengths and bytes, or both empty. An empty value never equals one with a block, even a
  /// block of length 0.
  bool operator==(CBinaryData const& other) const;

  /// @throws CKestException for an empty value and above the length. The index equal to the length
  /// passes: it refers to a byte that reads as 0 and isn't part of the value.
  unsigned char const& operator[](std::uint32_t index) const;
  /// Makes the bytes this object's own first, so the reference ends with the next change or copy.
  unsigned char& operator[](std::uint32_t index);

  void Clear() noexcept;

 protected:
  /// Makes a new block of malloc from hexadecimal @p text, whose bytes it counts; null for none.
  static std::uint32_t ConvertToHexData(char16_t const* text, unsigned char** data);

 private:
  // The count alone makes sharing safe between threads: whoever holds the only reference is the
  // only one who could hand out another, so a block seen with a count of 1 stays this object's own.
  struct Block {
    unsigned char* data;
    std::uint32_t length;
    std::size_t capacity;
    std::atomic<std::int32_t> refCount;
  };

  static Block* NewBlock(unsigned char* data, std::uint32_t length, std::size_t capacity);
  static Block* Share(Block* block) noexcept {
    if (block) block->refCount.fetch_add(1, std::memory_order_relaxed);
    return block;
  }
  bool IsSoleOwner() const {
    return m_block && m_block->refCount.load(std::memory_order_acquire) == 1;
  }
  std::int32_t GetRefCount() const { return m_block->refCount.load(std::memory_order_acquire); }
  void MakeBlock(unsigned char const* data, std::uint32_t length, std::size_t capacity);
  void CopyOnWrite();
  void TestIndex(std::uint32_t index) const;

  Block* m_block = nullptr;
};

}  // namespace KestXmlLib20
