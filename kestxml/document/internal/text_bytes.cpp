#include "kestxml/document/internal/text_bytes.h"

#include <bit>

#include "kestxml/document/string_buffer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20::internal {
namespace {

static_assert(std::endian::native == std::endian::little,
              "units are written as they lie in memory");

bool IsUtf16(XmlEncoding encoding) {
  return encoding == XmlEncoding_UTF16 || encoding == XmlEncoding_UTF16NoDeclaration;
}

// @p encode writes at most @p room bytes to the pointer that it is given, and gives their end.
template <typename Encode>
void AppendEncoded(std::size_t room, CBinaryData& bytes, Encode const& encode) {
  char* const begin = reinterpret_cast<char*>(bytes.PrepareAppend(room));
  bytes.CommitAppend(static_cast<std::size_t>(encode(begin) - begin));
}

}  // namespace

bool HasByteForm(XmlEncoding encoding) {
  return encoding == XmlEncoding_UTF8 || IsUtf16(encoding);
}

void TestByteForm(XmlEncoding encoding) {
  if (!HasByteForm(encoding)) {
    throw CKestException(u"Unknown Encoding, select UTF-8 (contact our support team)");
  }
}

std::string_view ByteOrderMark(XmlEncoding encoding) {
  return IsUtf16(encoding) ? "\xFF\xFE" : "";
}

void AppendBytes(CStringBuffer const& text, XmlEncoding encoding, CUtf8Encoder& utf8,
                 CBinaryData& bytes) {
  TestByteForm(encoding);
  text.ForEachBlock([&](std::u16string_view block) {
    if (IsUtf16(encoding)) return bytes.Append(block);
    AppendEncoded(CUtf8Encoder::MaxBytes(block.size()), bytes,
                  [&](char* out) { return utf8.Encode(block, out); });
  });
}

void FinishBytes(CUtf8Encoder& utf8, CBinaryData& bytes) {
  if (!utf8.IsWaiting()) return;
  AppendEncoded(CUtf8Encoder::MaxBytes(0), bytes, [&](char* out) { return utf8.Finish(out); });
}

}  // namespace KestXmlLib20::internal
