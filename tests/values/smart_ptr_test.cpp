#include "kestxml/values/smart_ptr.h"

#include <gtest/gtest.h>

namespace KestXmlLib20 {
namespace {

struct Counted {
  int count = 0;
  void AddRef() { ++count; }
  void Release() { --count; }
};
struct Derived : Counted {};

TEST(SmartPtr, HoldsOneReferenceEach) {
  Derived object;
  {
    CSmartPtr<Derived> first(&object);
    CSmartPtr<Derived> const second = first;
    CSmartPtr<Counted> const base = second;
    EXPECT_EQ(object.count, 3);
    CSmartPtr<Counted> const moved = std::move(first);
    EXPECT_EQ(moved->count, 3);
  }
  EXPECT_EQ(object.count, 0);
}

TEST(SmartPtr, AssignmentGivesTheOldReferenceBack) {
  Derived a, b;
  CSmartPtr<Counted> pointer(&a);
  pointer = &b;
  EXPECT_EQ(a.count, 0);
  CSmartPtr<Counted> const& self = pointer;
  pointer = self;
  pointer = pointer.Get();
  EXPECT_EQ(b.count, 1);
  EXPECT_TRUE(pointer == &b && pointer != CSmartPtr<Derived>(&a) && pointer != nullptr);
  pointer = nullptr;
  EXPECT_EQ(b.count, 0);
  pointer = &b;
  pointer = NULL;
  EXPECT_EQ(b.count, 0);
}

}  // namespace
}  // namespace KestXmlLib20
