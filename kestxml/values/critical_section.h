// The library's only lock class.
#pragma once

#include "kestxml/platform/api.h"
#include "kestxml/platform/recursive_lock.h"

/// A lock that the thread which holds it may take again.
class KESTXML_API CKESTCriticalSection {
 public:
  constexpr CKESTCriticalSection() noexcept = default;
  /// A copy is a lock of its own, free whatever the state of its source: the class is copied only
  /// along with objects that hold it, and the state of a lock can't be copied.
  CKESTCriticalSection(CKESTCriticalSection const&) noexcept {}
  CKESTCriticalSection& operator=(CKESTCriticalSection const&) noexcept { return *this; }
  virtual ~CKESTCriticalSection() = default;

  void Enter() noexcept { m_lock.Lock(); }
  void Leave() noexcept { m_lock.Unlock(); }

 private:
  KestXmlLib20::platform::RecursiveLock m_lock;
};
