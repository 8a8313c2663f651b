// How a number of any length holds its digits. Part of CBigInteger; of no use by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "kestxml/platform/api.h"

namespace KestXmlLib20::internal {

/// A natural number in limbs of nine decimal digits each, least significant first, the highest one
/// not zero unless it is the only one. Zero has one limb; a number without digits, which text can
/// give, has none. Up to 54 digits take no memory beside the object.
class KESTXML_API Magnitude {
 public:
  using Limb = std::uint32_t;
  static constexpr Limb kBase = 1'000'000'000;
  static constexpr std::size_t kLimbDigits = 9;

  constexpr Magnitude() : m_inside{} {}
  constexpr explicit Magnitude(std::uint64_t value) : m_inside{}, m_size(0) {
    do {
      m_inside[m_size++] = static_cast<Limb>(value % kBase);
      value /= kBase;
    } while (value != 0);
  }
  /// Reads @p constant where it lies, without a copy. Only for constants, which never change.
  constexpr explicit Magnitude(std::span<Limb const> constant)
      : m_outside(const_cast<Limb*>(constant.data())),
        m_size(static_cast<std::uint32_t>(constant.size())),
        m_capacity(0) {}

  Magnitude(Magnitude const& other) { Copy(other); }
  Magnitude(Magnitude&& other) noexcept { Take(other); }
  Magnitude& operator=(Magnitude const& other) {
    if (this == &other) return *this;
    Magnitude copy(other);
    return *this = std::move(copy);
  }
  Magnitude& operator=(Magnitude&& other) noexcept {
    if (this == &other) return *this;
    Release();
    Take(other);
    return *this;
  }
  ~Magnitude() { Release(); }

  std::size_t Size() const { return m_size; }
  Limb const* Data() const { return IsInside() ? m_inside : m_outside; }
  Limb* Data() { return IsInside() ? m_inside : m_outside; }
  Limb operator[](std::size_t index) const { return Data()[index]; }

  /// New limbs are zero.
  void Resize(std::size_t size) {
    if (size > m_capacity) Grow(size);
    Limb* const limbs = Data();
    for (std::size_t i = m_size; i < size; ++i) limbs[i] = 0;
    m_size = static_cast<std::uint32_t>(size);
  }

  /// Drops zeros at the top.
  void Trim() {
    Limb const* const limbs = Data();
    while (m_size > 1 && limbs[m_size - 1] == 0) --m_size;
  }

  bool operator==(Magnitude const& other) const;

 private:
  static constexpr std::uint32_t kInside = 6;

  bool IsInside() const { return m_capacity == kInside; }
  void Grow(std::size_t size);
  void CopyOutside(Magnitude const& other);

  // Into an object that owns nothing.
  void Copy(Magnitude const& other) {
    if (!other.IsInside()) return CopyOutside(other);
    TakeInside(other);
  }
  void Take(Magnitude& other) noexcept {
    if (other.IsInside()) return TakeInside(other);
    m_outside = other.m_outside;
    m_size = other.m_size;
    m_capacity = other.m_capacity;
    other.TakeInside(Magnitude());
  }
  void TakeInside(Magnitude const& other) noexcept {
    for (std::uint32_t i = 0; i < kInside; ++i) m_inside[i] = other.m_inside[i];
    m_size = other.m_size;
    m_capacity = kInside;
  }
  void Release() noexcept {
    if (m_capacity > kInside) std::unique_ptr<Limb[]> const last(m_outside);
  }

  union {
    Limb m_inside[kInside];
    Limb* m_outside;
  };
  std::uint32_t m_size = 1;
  std::uint32_t m_capacity = kInside;  // 0: the limbs outside are a constant
};

}  // namespace KestXmlLib20::internal
