#include "kestxml/values/internal/magnitude_arithmetic.h"

#include <algorithm>
#include <utility>

namespace KestXmlLib20::internal {
namespace {

using Limb = Magnitude::Limb;
constexpr std::uint64_t kBase = Magnitude::kBase;
constexpr std::size_t kLimbDigits = Magnitude::kLimbDigits;

constexpr Limb kPowersOf10[] = {1,      10,      100,      1000,      10000,
                                100000, 1000000, 10000000, 100000000, 1000000000};

Magnitude OfSize(std::size_t size) {
  Magnitude number;
  number.Resize(size);
  return number;
}

// number * factor, in one limb more than it has.
Magnitude MultiplyByLimb(Magnitude const& number, Limb factor) {
  std::size_t const size = number.Size();
  Magnitude product = OfSize(size + 1);
  Limb* const limbs = product.Data();
  std::uint64_t carry = 0;
  for (std::size_t i = 0; i < size; ++i) {
    std::uint64_t const sum = std::uint64_t{number[i]} * factor + carry;
    limbs[i] = static_cast<Limb>(sum % kBase);
    carry = sum / kBase;
  }
  limbs[size] = static_cast<Limb>(carry);
  return product;
}

Quotient DivideByLimb(Magnitude const& dividend, Limb divisor) {
  Quotient result = {dividend, Magnitude()};
  Limb* const limbs = result.quotient.Data();
  std::uint64_t rest = 0;
  for (std::size_t i = dividend.Size(); i-- > 0;) {
    std::uint64_t const part = rest * kBase + limbs[i];
    limbs[i] = static_cast<Limb>(part / divisor);
    rest = part % divisor;
  }
  result.quotient.Trim();
  result.remainder.Data()[0] = static_cast<Limb>(rest);
  return result;
}

// One digit of long division in base kBase, from the three highest limbs of what is left and the
// two highest of the divisor. It is the digit sought, or one more.
std::uint64_t EstimateDigit(Limb const* top, Limb high, Limb next) {
  std::uint64_t const upper = top[2] * kBase + top[1];
  std::uint64_t digit = upper / high;
  std::uint64_t rest = upper % high;
  while (digit >= kBase || digit * next > rest * kBase + top[0]) {
    --digit;
    rest += high;
    if (rest >= kBase) break;
  }
  return digit;
}

// Takes digit * divisor from the limbs at @p rest, one more than the divisor has. True when that
// was too much; the top limb then lacks a borrow.
bool SubtractProduct(Limb* rest, std::uint64_t digit, Magnitude const& divisor, std::size_t size) {
  Limb const* const limbs = divisor.Data();
  std::uint64_t carry = 0;
  for (std::size_t i = 0; i < size; ++i) {
    std::uint64_t const product = digit * limbs[i] + carry;
    carry = product / kBase;
    auto const low = static_cast<Limb>(product % kBase);
    bool const borrow = rest[i] < low;
    rest[i] = rest[i] - low + (borrow ? Magnitude::kBase : 0);
    carry += borrow;
  }
  bool const isTooMuch = rest[size] < carry;
  rest[size] = static_cast<Limb>(rest[size] - carry);
  return isTooMuch;
}

void AddBack(Limb* rest, Magnitude const& divisor, std::size_t size) {
  Limb const* const limbs = divisor.Data();
  Limb carry = 0;
  for (std::size_t i = 0; i < size; ++i) {
    Limb const sum = rest[i] + limbs[i] + carry;
    carry = sum >= kBase;
    rest[i] = sum - (carry ? Magnitude::kBase : 0);
  }
  rest[size] += carry;
}

// Long division (Knuth, The Art of Computer Programming, volume 2, 4.3.1, algorithm D): both
// numbers are first scaled so that the divisor's highest limb is at least half the base.
Quotient DivideLong(Magnitude const& dividend, Magnitude const& divisor) {
  std::size_t const size = divisor.Size();
  std::size_t const steps = dividend.Size() - size + 1;
  auto const scale = static_cast<Limb>(kBase / (std::uint64_t{divisor[size - 1]} + 1));
  Magnitude const scaled = MultiplyByLimb(divisor, scale);
  Magnitude rest = MultiplyByLimb(dividend, scale);
  Magnitude quotient = OfSize(steps);
  for (std::size_t i = steps; i-- > 0;) {
    Limb* const from = rest.Data() + i;
    std::uint64_t digit = EstimateDigit(from + size - 2, scaled[size - 1], scaled[size - 2]);
    if (SubtractProduct(from, digit, scaled, size)) {
      AddBack(from, scaled, size);
      --digit;
    }
    quotient.Data()[i] = static_cast<Limb>(digit);
  }
  quotient.Trim();
  rest.Resize(size);
  rest.Trim();
  return {std::move(quotient), DivideByLimb(rest, scale).quotient};
}

}  // namespace

bool IsZero(Magnitude const& number) {
  return number.Size() == 0 || (number.Size() == 1 && number[0] == 0);
}

int Compare(Magnitude const& left, Magnitude const& right) {
  if (left.Size() != right.Size()) return left.Size() < right.Size() ? -1 : 1;
  for (std::size_t i = left.Size(); i-- > 0;) {
    if (left[i] != right[i]) return left[i] < right[i] ? -1 : 1;
  }
  return 0;
}

Magnitude Add(Magnitude const& left, Magnitude const& right) {
  bool const swap = left.Size() < right.Size();
  Magnitude sum(swap ? right : left);
  Magnitude const& shorter = swap ? left : right;
  Limb* const limbs = sum.Data();
  Limb carry = 0;
  for (std::size_t i = 0; i < sum.Size() && (carry != 0 || i < shorter.Size()); ++i) {
    limbs[i] += carry + (i < shorter.Size() ? shorter[i] : 0);
    carry = limbs[i] >= kBase;
    if (carry) limbs[i] -= Magnitude::kBase;
  }
  if (carry) {
    sum.Resize(sum.Size() + 1);
    sum.Data()[sum.Size() - 1] = carry;
  }
  return sum;
}

Magnitude Subtract(Magnitude const& left, Magnitude const& right) {
  Magnitude difference(left);
  Limb* const limbs = difference.Data();
  Limb borrow = 0;
  for (std::size_t i = 0; i < left.Size() && (borrow != 0 || i < right.Size()); ++i) {
    Limb const taken = borrow + (i < right.Size() ? right[i] : 0);
    borrow = limbs[i] < taken;
    limbs[i] = limbs[i] - taken + (borrow ? Magnitude::kBase : 0);
  }
  difference.Trim();
  return difference;
}

Magnitude Multiply(Magnitude const& left, Magnitude const& right) {
  if (IsZero(left) || IsZero(right)) return Magnitude();
  Magnitude product = OfSize(left.Size() + right.Size());
  for (std::size_t i = 0; i < left.Size(); ++i) {
    std::uint64_t const factor = left[i];
    Limb const* const from = right.Data();
    Limb* const to = product.Data() + i;
    std::uint64_t carry = 0;
    for (std::size_t j = 0; j < right.Size(); ++j) {
      std::uint64_t const sum = factor * from[j] + to[j] + carry;
      to[j] = static_cast<Limb>(sum % kBase);
      carry = sum / kBase;
    }
    to[right.Size()] = static_cast<Limb>(carry);
  }
  product.Trim();
  return product;
}

Quotient Divide(Magnitude const& dividend, Magnitude const& divisor) {
  if (Compare(dividend, divisor) < 0) return {Magnitude(), dividend};
  if (divisor.Size() == 1) return DivideByLimb(dividend, divisor[0]);
  return DivideLong(dividend, divisor);
}

Magnitude MultiplyByPowerOf10(Magnitude const& number, std::size_t power) {
  if (IsZero(number)) return number;
  std::size_t const whole = power / kLimbDigits;
  Magnitude product = MultiplyByLimb(number, kPowersOf10[power % kLimbDigits]);
  product.Trim();
  if (whole == 0) return product;
  std::size_t const size = product.Size();
  product.Resize(size + whole);
  Limb* const limbs = product.Data();
  std::copy_backward(limbs, limbs + size, limbs + size + whole);
  std::fill_n(limbs, whole, 0);
  return product;
}

Quotient DivideByPowerOf10(Magnitude const& number, std::size_t power) {
  std::size_t const whole = power / kLimbDigits;
  if (whole >= number.Size()) return {Magnitude(), number};
  Limb const low = kPowersOf10[power % kLimbDigits];
  Limb const high = kPowersOf10[kLimbDigits - power % kLimbDigits];
  Quotient result = {OfSize(number.Size() - whole), number};
  Limb* const limbs = result.quotient.Data();
  for (std::size_t i = 0; i < result.quotient.Size(); ++i) {
    Limb const above = i + whole + 1 < number.Size() ? number[i + whole + 1] : 0;
    limbs[i] = number[i + whole] / low + above % low * high;
  }
  result.quotient.Trim();
  result.remainder.Resize(whole + 1);
  result.remainder.Data()[whole] %= low;
  result.remainder.Trim();
  return result;
}

std::size_t CountTrailingZeros(Magnitude const& number) {
  std::size_t whole = 0;
  while (number[whole] == 0) ++whole;
  std::size_t zeros = whole * kLimbDigits;
  for (Limb limb = number[whole]; limb % 10 == 0; limb /= 10) ++zeros;
  return zeros;
}

}  // namespace KestXmlLib20::internal
