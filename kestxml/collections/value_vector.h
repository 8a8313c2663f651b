// The values of a collection.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace KestXmlLib20::internal {

/// A vector that also gives up its values one by one from the front in linear time: what has gone
/// there stays as a gap until it is as large as the rest.
template <typename T>
class ValueVector {
 public:
  using iterator = typename std::vector<T>::iterator;
  using const_iterator = typename std::vector<T>::const_iterator;

  iterator begin() { return At(0); }
  iterator end() { return m_values.end(); }
  const_iterator begin() const { return At(0); }
  const_iterator end() const { return m_values.end(); }

  std::int32_t GetCount() const { return static_cast<std::int32_t>(m_values.size() - m_gap); }

  /// @param index here and below one of the vector.
  T Get(std::int32_t index) const { return *At(index); }

  /// @param index GetCount() for the end.
  template <typename Value>
  void Insert(std::int32_t index, Value&& value) {
    m_values.insert(At(index), std::forward<Value>(value));
  }

  void Erase(std::int32_t index) {
    if (index != 0) {
      m_values.erase(At(index));
      return;
    }
    // What the value holds ends now, with the one that takes it. Assigning an empty value is not
    // enough: a string keeps its memory then.
    static_cast<void>(T(std::move(*At(0))));
    ++m_gap;
    if (m_gap < m_values.size() - m_gap) return;
    m_values.erase(m_values.begin(), At(0));
    m_gap = 0;
  }

  /// Whether @p value is one of the vector's own, which move when one is inserted.
  bool Holds(T const& value) const {
    T const* const first = m_values.data();
    std::less<> const isBefore;
    return !isBefore(&value, first) && isBefore(&value, first + m_values.size());
  }

 private:
  static std::ptrdiff_t Offset(std::size_t place) { return static_cast<std::ptrdiff_t>(place); }
  iterator At(std::int32_t index) { return m_values.begin() + Offset(m_gap) + index; }
  const_iterator At(std::int32_t index) const { return m_values.begin() + Offset(m_gap) + index; }

  std::vector<T> m_values;
  std::size_t m_gap = 0;  // how many values at the front are gone
};

}  // namespace KestXmlLib20::internal
