// The lock that a thread may take again while it holds it.
#pragma once

#include <pthread.h>

namespace KestXmlLib20::platform {

/// Ready before any dynamic initialisation, so that a static lock can be taken while other static
/// objects are still being built.
class RecursiveLock {
 public:
  constexpr RecursiveLock() noexcept = default;
  RecursiveLock(RecursiveLock const&) = delete;
  RecursiveLock& operator=(RecursiveLock const&) = delete;
  ~RecursiveLock() { pthread_mutex_destroy(&m_mutex); }

  void Lock() noexcept { pthread_mutex_lock(&m_mutex); }
  void Unlock() noexcept { pthread_mutex_unlock(&m_mutex); }

 private:
  pthread_mutex_t m_mutex = PTHREAD_RECURSIVE_MUTEX_INITIALIZER_NP;
};

}  // namespace KestXmlLib20::platform
