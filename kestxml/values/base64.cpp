#include "kestxml/values/base64.h"

#include <array>

namespace KestXmlLib20 {
namespace {

constexpr std::u16string_view kAlphabet =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr signed char kSkipped = -1;
constexpr signed char kWrong = -2;

constexpr std::array<signed char, 128> MakeDecodeTable() {
  std::array<signed char, 128> table{};
  table.fill(kWrong);
  for (char16_t const unit : std::u16string_view(u"=\t\n\r ")) table[unit] = kSkipped;
  signed char value = 0;
  for (char16_t const unit : kAlphabet) table[unit] = value++;
  return table;
}

constexpr std::array<signed char, 128> kDecodeTable = MakeDecodeTable();

// Writes the four characters of up to three bytes; those that no bit reaches are '='.
void EncodeGroup(unsigned char const* data, std::uint32_t length, char16_t* out) {
  std::uint32_t bits = 0;
  for (std::uint32_t i = 0; i < 3; ++i) bits = bits << 8 | (i < length ? data[i] : 0u);
  for (std::uint32_t i = 0; i < 4; ++i) {
    out[i] = i <= length ? kAlphabet[bits >> (18 - 6 * i) & 0x3F] : u'=';
  }
}

}  // namespace

std::u16string CBase64::Encode(unsigned char const* data, std::uint32_t length) {
  if (!data) return {};
  std::u16string text((std::size_t{length} + 2) / 3 * 4, u'\0');
  char16_t* out = text.data();
  for (; length > 3; length -= 3, data += 3, out += 4) EncodeGroup(data, 3, out);
  if (length > 0) EncodeGroup(data, length, out);
  return text;
}

std::size_t CBase64::Decode(std::u16string_view text, unsigned char* out) {
  unsigned char* const begin = out;
  std::uint32_t bits = 0;
  int held = 0;
  for (char16_t const unit : text) {
    signed char const value = kDecodeTable[unit & 0x7F];
    if (value == kWrong) return 0;
    if (value == kSkipped) continue;
    bits = bits << 6 | static_cast<std::uint32_t>(value);
    held += 6;
    if (held < 8) continue;
    held -= 8;
    *out++ = static_cast<unsigned char>(bits >> held);
  }
  return static_cast<std::size_t>(out - begin);
}

}  // namespace KestXmlLib20
