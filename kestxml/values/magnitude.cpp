#include "kestxml/values/magnitude.h"

#include <algorithm>

namespace KestXmlLib20::internal {

bool Magnitude::operator==(Magnitude const& other) const {
  if (m_size != other.m_size) return false;
  std::uint32_t same = 0;
  while (same < m_size && (*this)[same] == other[same]) ++same;
  return same == m_size;
}

void Magnitude::Grow(std::size_t size) {
  auto limbs = std::make_unique_for_overwrite<Limb[]>(size);
  std::copy_n(Data(), m_size, limbs.get());
  Release();
  m_outside = limbs.release();
  m_capacity = static_cast<std::uint32_t>(size);
}

// What has become short, or was a constant, moves inside.
void Magnitude::CopyOutside(Magnitude const& other) {
  TakeInside(Magnitude());  // so that what is copied later was always set
  Resize(other.m_size);
  std::copy_n(other.Data(), other.m_size, Data());
}

}  // namespace KestXmlLib20::internal
