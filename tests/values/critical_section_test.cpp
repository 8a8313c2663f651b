#include "kestxml/values/critical_section.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(CriticalSection, IsHeldUntilItIsLeftAsOftenAsEntered) {
  CKESTCriticalSection lock;
  int count = 0;
  auto const add = [&] {
    for (int i = 0; i < 10'000; ++i) {
      lock.Enter();
      lock.Enter();
      lock.Leave();
      ++count;
      lock.Leave();
    }
  };
  std::thread other(add);
  add();
  other.join();
  EXPECT_EQ(count, 20'000);
}

TEST(CriticalSection, CopyOfALockThatIsHeldIsFree) {
  CKESTCriticalSection lock;
  lock.Enter();
  CKESTCriticalSection copy(lock);
  std::thread([&] {
    copy.Enter();
    copy.Leave();
  }).join();
  lock.Leave();
}

}  // namespace
