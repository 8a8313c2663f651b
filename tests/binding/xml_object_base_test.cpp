#include "kestxml/binding/xml_object_base.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/smart_ptr.h"
#include "tests/model/bare_object.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Reaches the protected operations.
class Counted : public BareObject {
 public:
  using BareObject::BareObject;
  using BareObject::Throw_IfElementNameDiffers;
  using BareObject::Throw_IfPropertyIsNull;
};

TEST(ObjectCount, DeletesAtTheStepFromOneToZero) {
  bool deleted = false;
  auto* const object = new Counted(&deleted);
  EXPECT_EQ(object->AddRef(), 1);
  EXPECT_EQ(object->AddRef(), 2);
  EXPECT_EQ(object->Release(), 1);
  EXPECT_FALSE(deleted);
  EXPECT_EQ(object->Release(), 0);
  EXPECT_TRUE(deleted);
}

TEST(ObjectCount, GoesBelowZeroWithoutDeleting) {
  bool deleted = false;
  auto* const object = new Counted(&deleted);
  EXPECT_EQ(object->Release(), -1);
  EXPECT_FALSE(deleted);
  object->AddRef();
  object->AddRef();
  EXPECT_EQ(object->Release(), 0);
  EXPECT_TRUE(deleted);
}

TEST(ObjectCount, IsCopiedWithTheObject) {
  CSmartPtr<Counted> const first(new Counted);
  CSmartPtr<Counted> const second = first;
  first->SetElementName(u"Order");
  bool copyDeleted = false;
  auto* const copy = new Counted(*first);
  EXPECT_EQ(copy->GetElementName(), u"Order");
  EXPECT_EQ(copy->AddRef(), 3) << "the copy began at the count of its source";
  for (int i = 0; i < 3; ++i) copy->Release();

  auto* const assigned = new Counted(&copyDeleted);
  static_cast<CXmlObjectBase&>(*assigned) = *first;
  EXPECT_EQ(assigned->AddRef(), 3);
  EXPECT_EQ(assigned->GetElementName(), u"Order");
  for (int i = 0; i < 3; ++i) assigned->Release();
  EXPECT_TRUE(copyDeleted);
}

TEST(ObjectCount, IsSharedByThreads) {
  bool deleted = false;
  {
    CSmartPtr<Counted> const shared(new Counted(&deleted));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([mine = shared] {
        for (int turn = 0; turn < 10'000; ++turn) CSmartPtr<Counted> const copy = mine;
      });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(shared->AddRef(), 2) << "each thread let go of its own";
    shared->Release();
    EXPECT_FALSE(deleted);
  }
  EXPECT_TRUE(deleted);
}

TEST(ObjectBase, NullNameIsNoName) {
  CSmartPtr<Counted> const object(new Counted);
  object->SetElementName(u"Order");
  object->SetElementName(nullptr);
  EXPECT_EQ(object->GetElementName(), u"");
}

TEST(ObjectBase, ConstantBaseIsTheObject) {
  CSmartPtr<Counted> const object(new Counted);
  Counted const& constant = *object;
  EXPECT_EQ(constant.GetBase(), object.Get());
}

TEST(PropertyGuards, RefuseNullAndOtherNames) {
  CSmartPtr<Counted> const order(new Counted);
  order->SetElementName(u"Order");
  EXPECT_EQ(
      Thrown<CKestInvalidParamException>([] { Counted::Throw_IfPropertyIsNull(nullptr, u"Item"); }),
      u"The Property [Item] is mandatory, it may node be NULL");
  EXPECT_EQ(Thrown<CKestInvalidParamException>(
                [&] { Counted::Throw_IfElementNameDiffers(order.Get(), u"Item"); }),
            u"This property requires an element with the name Item the element being set has the "
            u"element name Order");
  EXPECT_NO_THROW(Counted::Throw_IfPropertyIsNull(order.Get(), u"Item"));
  EXPECT_NO_THROW(Counted::Throw_IfElementNameDiffers(order.Get(), u"Order"));
  EXPECT_NO_THROW(Counted::Throw_IfElementNameDiffers(nullptr, u"Item"));
}

}  // namespace
}  // namespace KestXmlLib20
