// The counted pointer by which objects and collections are held.
#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

namespace KestXmlLib20 {
namespace internal {
template <typename U, typename T>
concept PointsInto = std::convertible_to<U*, T*>;
}

/// Holds one reference of an object that counts its own, by T::AddRef and T::Release, or null.
/// A new object has a count of 0: the first CSmartPtr on it makes that 1, and the one that takes
/// the count back to 0 ends the object. So an object on the heap is either handed to a CSmartPtr
/// or never counted at all. T may be incomplete until a reference is taken or given back.
template <typename T>
class CSmartPtr {
 public:
  using element_type = T;

  constexpr CSmartPtr() noexcept = default;
  /// From nullptr alone, so that NULL and 0 are null pointers, too.
  template <std::same_as<std::nullptr_t> Null>
  constexpr CSmartPtr(Null) noexcept {}  // NOLINT: null stands wherever a pointer does
  /// Takes a reference of its own: the caller's pointer still only borrows.
  CSmartPtr(T* object) : m_pObject(object) { Acquire(); }  // NOLINT: the count lies in the object
  CSmartPtr(CSmartPtr const& other) : m_pObject(other.m_pObject) { Acquire(); }
  CSmartPtr(CSmartPtr&& other) noexcept : m_pObject(std::exchange(other.m_pObject, nullptr)) {}

  /// From a pointer to a derived class.
  template <internal::PointsInto<T> U>
  CSmartPtr(CSmartPtr<U> const& other) : m_pObject(other.Get()) {  // NOLINT: as pointers convert
    Acquire();
  }
  template <internal::PointsInto<T> U>
  CSmartPtr(CSmartPtr<U>&& other) noexcept  // NOLINT: as pointers convert
      : m_pObject(std::exchange(other.m_pObject, nullptr)) {}

  /// By value, so that assignment from a pointer, from null and from itself are this one as well.
  CSmartPtr& operator=(CSmartPtr other) noexcept {
    std::swap(m_pObject, other.m_pObject);
    return *this;
  }

  ~CSmartPtr() {
    if (m_pObject) m_pObject->Release();
  }

  T* Get() const noexcept { return m_pObject; }
  T* operator->() const noexcept { return m_pObject; }
  T& operator*() const noexcept { return *m_pObject; }
  explicit operator bool() const noexcept { return m_pObject != nullptr; }

  /// Equal when both point to the same object or both are null.
  template <typename U>
  bool operator==(CSmartPtr<U> const& other) const noexcept {
    return m_pObject == other.Get();
  }
  template <typename U>
  bool operator==(U* object) const noexcept {
    return m_pObject == object;
  }
  bool operator==(std::nullptr_t) const noexcept { return m_pObject == nullptr; }

 private:
  template <typename U>
  friend class CSmartPtr;

  void Acquire() {
    if (m_pObject) m_pObject->AddRef();
  }

  T* m_pObject = nullptr;
};

}  // namespace KestXmlLib20
