// Walks a collection of objects.
#pragma once

#include <cstddef>
#include <iterator>

#include "kestxml/collections/node.h"

namespace KestXmlLib20 {

/// A forward iterator over the items of a CXmlCollection, all of which are of class T. It stays
/// valid until the item that it stands on is removed.
template <typename T>
class CKestIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using pointer = T*;
  using reference = T&;

  /// The end of any collection.
  CKestIterator() = default;
  explicit CKestIterator(CNode* node) : m_pNode(node) {}

  T& operator*() const { return static_cast<T&>(*m_pNode->m_pItem); }
  T* operator->() const { return &**this; }

  CKestIterator& operator++() {
    m_pNode = m_pNode->m_pNext;
    return *this;
  }
  CKestIterator operator++(int) {
    CKestIterator const before = *this;
    ++*this;
    return before;
  }

  bool operator==(CKestIterator const&) const = default;

 private:
  CNode* m_pNode = nullptr;
};

}  // namespace KestXmlLib20
