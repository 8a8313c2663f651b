#include "kestxml/values/internal/magnitude_text.h"

#include <algorithm>
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

char16_t* WritePair(Limb pair, char16_t* end) {
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

Magnitude ReadDigits(std::u16string_view digits) {
  Magnitude number;
  std::size_t const zeros = std::min(digits.find_first_not_of(u'0'), digits.size());
  if (zeros == digits.size()) {
    number.Resize(digits.empty() ? 0 : 1);
    return number;
  }
  digits.remove_prefix(zeros);
  number.Resize((digits.size() + kLimbDigits - 1) / kLimbDigits);
  char16_t const* end = digits.data() + digits.size();
  Limb* limb = number.Data();
  for (; end - digits.data() > static_cast<std::ptrdiff_t>(kLimbDigits); end -= kLimbDigits) {
    *limb++ = ReadLimb(end - kLimbDigits, end);
  }
  *limb = ReadLimb(digits.data(), end);
  return number;
}

std::size_t CountDigits(Magnitude const& number) {
  if (number.Size() == 0) return 0;
  std::size_t digits = (number.Size() - 1) * kLimbDigits + 1;
  for (Limb top = number[number.Size() - 1]; top >= 10; top /= 10) ++digits;
  return digits;
}

void WriteDigits(Magnitude const& number, char16_t* end) {
  if (number.Size() == 0) return;
  std::size_t const top = number.Size() - 1;
  for (std::size_t i = 0; i < top; ++i) end = WriteLimb(number[i], end);
  if (top == 0 && number[0] == 0) *--end = u'0';
  WriteShort(number[top], end);
}

}  // namespace KestXmlLib20::internal
