#include "kestxml/collections/xml_collection_base.h"

#include <gtest/gtest.h>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/smart_ptr.h"
#include "tests/collections/event_log.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Counts what it is told to count.
class CountOnly : public CXmlCollectionBase {
 public:
  using CXmlCollectionBase::CXmlCollectionBase;
  using CXmlCollectionBase::FireOnCollectionChange;
  using CXmlCollectionBase::FireOnCollectionRemove;
  using CXmlCollectionBase::FireOnCollectionRemoveComplete;
  using CXmlCollectionBase::GetTargetNamespace;

  CountOnly() = default;
  CountOnly(std::int32_t minOccurs, std::int32_t maxOccurs, std::int32_t count_)
      : CXmlCollectionBase(u"Line", u"urn:order", minOccurs, maxOccurs), count(count_) {}

  std::int32_t GetCount() const override { return count; }
  void Clear() override { count = 0; }
  void Remove(std::int32_t) override {}

  std::int32_t count = 0;

 protected:
  void ToXml_Int(CXmlWriter*, bool, char16_t const*, CSerializationContext const&,
                 bool) const override {}
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CSerializationContext const&,
                           bool) override {
    return child;
  }
};

struct CountCase {
  char const* name;
  std::int32_t minOccurs, maxOccurs, count;
  char16_t const* message;
};

constexpr CountCase kCounts[] = {
    {"Within", 1, 2, 2, kNothingThrown},
    {"NoneOfNone", 0, 0, 0, kNothingThrown},
    {"OneOfNone", 0, 0, 1,
     u"The Maximum number of [Line] elements allowed in this collection is 0"},
    {"NoBound", 0, -1, 0x7FFFFFFF, kNothingThrown},
    {"TooFew", 1, -1, 0, u"The Minimum number of [Line] elements allowed in this collection is 1"},
    {"TheMaximumIsTestedFirst", 5, 2, 3,
     u"The Maximum number of [Line] elements allowed in this collection is 2"},
};

class Occurrence : public testing::TestWithParam<CountCase> {};
INSTANTIATE_TEST_SUITE_P(Counts, Occurrence, testing::ValuesIn(kCounts), RowName());

TEST_P(Occurrence, IsTestedUnlessIgnored) {
  auto const& [name, minOccurs, maxOccurs, count, message] = GetParam();
  CSmartPtr<CountOnly> const collection(new CountOnly(minOccurs, maxOccurs, count));
  CSerializationContext context;
  EXPECT_EQ(Thrown<CKestValidationException>([&] { collection->ValidateCount(context); }), message);
  EXPECT_EQ(collection->IsValidCount(context), message == std::u16string(kNothingThrown));
  context.SetIgnoreInvalidCollectionCounts(true);
  EXPECT_NO_THROW(collection->ValidateCount(context));
  EXPECT_TRUE(collection->IsValidCount(context));
}

TEST(CollectionBase, HasNoNamesAndNoBoundAtFirst) {
  CSmartPtr<CountOnly> const collection(new CountOnly);
  EXPECT_EQ(collection->GetNamespace(), u"");
  EXPECT_EQ(collection->GetMinOccurs(), 0);
  EXPECT_EQ(collection->GetMaxOccurs(), -1);
  EXPECT_EQ(Thrown([&] { collection->GetTargetNamespace(); }),
            u"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
            u"(program logic error)");
}

TEST(CollectionBase, IsHeldByAVariant) {
  CSmartPtr<CountOnly> const collection(new CountOnly);
  KestVariant value;
  value.SetXmlCollection(collection.Get());
  KestVariant copy(value);
  EXPECT_EQ(copy.GetXmlCollection(), collection);
  EXPECT_EQ(copy.GetXmlObject(), nullptr) << "it is of another kind";
  EXPECT_EQ(collection->AddRef(), 4);
  value.Clear();
  copy.SetXmlCollection(nullptr);
  EXPECT_EQ(collection->Release(), 1);
  EXPECT_EQ(copy.GetXmlCollection(), nullptr);
  EXPECT_EQ(Thrown([&] { copy.GetType(); }), u"Invalid Type 28");
  EXPECT_EQ(Thrown([&] { copy.ToString(); }), u"Invalid Type 28 to convert to string");
}

TEST(Listeners, HearAsOftenAsTheyWereAdded) {
  CSmartPtr<CountOnly> const collection(new CountOnly);
  EventLog twice, once;
  collection->AddEventListener(&twice);
  collection->AddEventListener(&once);
  collection->AddEventListener(&twice);
  collection->AddEventListener(nullptr);
  collection->FireOnCollectionRemove(7);
  EXPECT_EQ(twice.events, (std::vector<std::string>{"-7", "-7"}));
  EXPECT_EQ(once.events, std::vector<std::string>{"-7"});
  EXPECT_EQ(once.sender, collection->GetBase());

  collection->RemoveEventListener(&twice);
  collection->FireOnCollectionRemoveComplete(-1);
  EXPECT_EQ(twice.events.size(), 2u);
  EXPECT_EQ(once.events.back(), "-!") << "no index";
}

TEST(Listeners, MayRemoveThemselves) {
  struct Once : EventLog {
    explicit Once(CountOnly* from) : collection(from) {}
    void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
      EventLog::OnEvent(from, type, data);
      collection->RemoveEventListener(this);
    }
    CountOnly* collection;
  };
  CSmartPtr<CountOnly> const collection(new CountOnly);
  Once listener(collection.Get());
  collection->AddEventListener(&listener);
  collection->FireOnCollectionChange();
  collection->FireOnCollectionChange();
  EXPECT_EQ(listener.events, std::vector<std::string>{"~"});
}

}  // namespace
}  // namespace KestXmlLib20
