#include "kestxml/values/internal/magnitude_text.h"

#include <array>

namespace KestXmlLib20::internal {
namespace {

using Limb = Magnitude::Limb;
constexpr std::size_t kLimbDigits = Magnitude::kLimbDigits;

// The two digits of each number below 100.
constexpr auto kPairs = [] {
  std::array<char16_t, 200> pairs = {};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char16_t>(u'0' + i / 10);
    pairs[2 * i + 1] = static_cast<char16_t>(u'0' + i % 10);
  }
  return pairs;
}();

Limb ReadLimb(char16_t const* digits, char16_t const* end) {
  Limb limb = 0;
  for (; digits != end; ++digits) limb = limb * 10 + static_cast<Limb>(*digits - u'0');
  return limb;
}

char16_t* WritePair(std::size_t pair, char16_t* end) {
  *--end = kPairs[2 * pair + 1];
  *--end = kPairs[2 * pair];
  return end;
}

// Without leading zeros; nothing for 0.
void WriteShort(Limb limb, char16_t* end) {
  for (; limb >= 10; limb /= 100) end = WritePair(limb % 100, end);
  if (limb > 0) *--end = static_cast<char16_t>(u'0' + limb);
}

char16_t* WriteLimb(Limb limb, char16_t* end) {
  for (std::size_t i = 0; i < kLimbDigits / 2; ++i, limb /= 100) end = WritePair(limb % 100, end);
  *--end = static_cast<char16_t>(u'0' + limb);
  return end;
}

}  // namespace

void ReadDigits(std::u16string_view digits, Magnitude& number) {
  while (digits.size() > 1 && digits.front() == u'0') digits.remove_prefix(1);
  number.Resize((digits.size() + kLimbDigits - 1) / kLimbDigits);
  char16_t const* end = digits.data() + digits.size();
  Limb* limb = number.Data();
  for (; end - digits.data() > static_cast<std::ptrdiff_t>(kLimbDigits); end -= kLimbDigits) {
    *limb++ = ReadLimb(end - kLimbDigits, end);
  }
  if (!digits.empty()) *limb = ReadLimb(digits.data(), end);
}

std::size_t CountDigits(Magnitude const& number) {
  if (number.Size() == 0) return 0;
  Limb const top = number[number.Size() - 1];
  std::size_t digits = 1;
  for (Limb power = 10; digits < kLimbDigits && top >= power; power *= 10) ++digits;
  return (number.Size() - 1) * kLimbDigits + digits;
}

void WriteDigits(Magnitude const& number, char16_t* end) {
  if (number.Size() == 0) return;
  std::size_t const top = number.Size() - 1;
  for (std::size_t i = 0; i < top; ++i) end = WriteLimb(number[i], end);
  if (top == 0 && number[0] == 0) *--end = u'0';
  WriteShort(number[top], end);
}

}  // namespace KestXmlLib20::internal
