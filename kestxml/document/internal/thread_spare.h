// A thing that waits in each thread for its next use.
#pragma once

#include <utility>

namespace KestXmlLib20::internal {

/// One T of each thread. It also serves what still runs when the thread's own objects have gone:
/// such as static objects at the end of the process.
template <typename T>
class ThreadSpare {
 public:
  /// What was kept last, or an empty T.
  static T Take() { return s_isGone ? T() : std::exchange(Slot().value, T()); }
  static void Keep(T value) {
    if (!s_isGone) Slot().value = std::move(value);
  }

 private:
  struct Holder {
    T value;
    ~Holder() { s_isGone = true; }
  };
  static Holder& Slot() {
    thread_local Holder holder;
    return holder;
  }

  static inline thread_local bool s_isGone = false;
};

}  // namespace KestXmlLib20::internal
