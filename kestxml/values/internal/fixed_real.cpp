#include "kestxml/values/internal/fixed_real.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace KestXmlLib20::internal {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMostDigits = 16;
constexpr int kLeastExponent = -4;  // of ten: below it "%g" prints an exponent

// The powers of ten from kLeastExponent on. Those below one are the least doubles that are not
// below the exact power, the others are exact; so a comparison with any of them decides exactly.
constexpr std::array<double, kMostDigits + 1 - kLeastExponent> kPowers = {
    1e-4, 1e-3, 1e-2, 1e-1, 1e0,  1e1,  1e2,  1e3,  1e4,  1e5, 1e6,
    1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16};

constexpr std::size_t kPowerCount = 20;  // 10^19 still fits into 64 bits

template <typename T>
constexpr std::array<T, kPowerCount> PowersOf(T base) {
  std::array<T, kPowerCount> powers = {1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * base;
  return powers;
}

constexpr auto kFives = PowersOf<std::uint64_t>(5);
constexpr auto kTens = PowersOf<std::uint64_t>(10);

// The integer next to magnitude * 10^power; a tie goes to the even one. The product is exact: 53
// bits of the magnitude and at most 49 of the power of five.
std::uint64_t ScaleAndRound(double magnitude, int power) {
  constexpr int kMantissaBits = 52;
  auto const bits = std::bit_cast<std::uint64_t>(magnitude);
  std::uint64_t const one = std::uint64_t{1} << kMantissaBits;
  std::uint64_t const mantissa = (bits & (one - 1)) | one;
  int const exponent = static_cast<int>(bits >> kMantissaBits) - 1023 - kMantissaBits + power;
  Wide const product = Wide{mantissa} * kFives[static_cast<std::size_t>(power)];
  if (exponent >= 0) return static_cast<std::uint64_t>(product << exponent);
  Wide const whole = product >> -exponent;
  Wide const rest = product - (whole << -exponent);
  Wide const half = Wide{1} << (-exponent - 1);
  bool const up = rest > half || (rest == half && (whole & 1) != 0);
  return static_cast<std::uint64_t>(whole) + (up ? 1 : 0);
}

// Takes the zeros off the end of a number of at most 17 digits that is not 0.
void StripZeros(std::uint64_t& number) {
  for (std::uint64_t const power : {kTens[8], kTens[4], kTens[2], kTens[1], kTens[1]}) {
    if (number % power == 0) number /= power;
  }
}

}  // namespace

char* PrintFixedReal(double value, int digits, char* to) {
  double const magnitude = value < 0 ? -value : value;
  auto const* const above = std::upper_bound(kPowers.begin(), kPowers.end(), magnitude);
  int exponent = static_cast<int>(above - kPowers.begin()) - 1 + kLeastExponent;
  if (!(magnitude >= kPowers.front()) || exponent >= digits) return nullptr;

  std::uint64_t number = ScaleAndRound(magnitude, digits - 1 - exponent);
  if (number == kTens[static_cast<std::size_t>(digits)]) ++exponent;
  if (exponent >= digits) return nullptr;
  StripZeros(number);
  char text[kMostDigits];
  int const count = static_cast<int>(std::to_chars(text, std::end(text), number).ptr - text);

  if (value < 0) *to++ = '-';
  if (exponent < 0) {
    std::memcpy(to, "0.000", 5);
    to += 1 - exponent;
    std::memcpy(to, text, static_cast<std::size_t>(count));
    return to + count;
  }
  int const whole = exponent + 1;
  for (int i = 0; i < whole; ++i) *to++ = i < count ? text[i] : '0';
  if (count <= whole) return to;
  *to++ = '.';
  return std::copy(text + whole, text + count, to);
}

}  // namespace KestXmlLib20::internal
