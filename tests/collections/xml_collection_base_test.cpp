#include "kestxml/collections/xml_collection_base.h"

#include <gtest/gtest.h>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/values/kest_variant.h"
#include "tests/collections/event_log.h"
#include "tests/collections/line.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

struct Lines : CLineCol {
  using CLineCol::FireOnCollectionRemove;
  using CLineCol::FireOnCollectionRemoveComplete;
  using CLineCol::GetTargetNamespace;

  explicit Lines(std::int32_t minOccurs = 0, std::int32_t maxOccurs = -1)
      : CLineCol(u"Line", u"urn:order", minOccurs, maxOccurs) {}
};

TEST(CollectionBase, TestsItsCountUnlessThatIsIgnored) {
  // clang-format off
  struct {
    std::int32_t minOccurs, maxOccurs, count; char16_t const* message;
  } const rows[] = {
      {1,  2, 2, kNothingThrown},
      {0,  0, 0, kNothingThrown},
      {0,  0, 1, u"The Maximum number of [Line] elements allowed in this collection is 0"},
      {0, -1, 9, kNothingThrown},
      {1, -1, 0, u"The Minimum number of [Line] elements allowed in this collection is 1"},
      {5,  2, 3, u"The Maximum number of [Line] elements allowed in this collection is 2"},
  };
  // clang-format on
  for (auto const& [minOccurs, maxOccurs, count, message] : rows) {
    SCOPED_TRACE(count);
    CSmartPtr<Lines> const lines(new Lines(minOccurs, maxOccurs));
    for (std::int32_t i = 0; i < count; ++i) lines->Add();
    CSerializationContext context;
    EXPECT_EQ(Thrown<CKestValidationException>([&] { lines->ValidateCount(context); }), message);
    EXPECT_EQ(lines->IsValidCount(context), message == std::u16string(kNothingThrown));
    context.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_NO_THROW(lines->ValidateCount(context));
    EXPECT_TRUE(lines->IsValidCount(context));
  }
}

TEST(CollectionBase, IsNoDocument) {
  CSmartPtr<Lines> const lines(new Lines);
  EXPECT_EQ(lines->GetNamespace(), u"urn:order");
  EXPECT_EQ(Thrown([&] { lines->GetTargetNamespace(); }),
            u"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
            u"(program logic error)");
}

TEST(CollectionBase, IsHeldByAVariant) {
  CSmartPtr<Lines> const lines(new Lines);
  KestVariant value;
  value.SetXmlCollection(lines.Get());
  KestVariant copy(value);
  EXPECT_EQ(copy.GetXmlCollection(), lines);
  EXPECT_EQ(copy.GetXmlObject(), nullptr) << "it is of another kind";
  EXPECT_EQ(lines->AddRef(), 4);
  value.Clear();
  copy.SetXmlCollection(nullptr);
  EXPECT_EQ(lines->Release(), 1);
  EXPECT_EQ(Thrown([&] { copy.GetType(); }), u"Invalid Type 28");
  EXPECT_EQ(Thrown([&] { copy.ToString(); }), u"Invalid Type 28 to convert to string");
}

TEST(Listeners, HearAsOftenAsTheyWereAdded) {
  EventLog twice, once;
  CSmartPtr<Lines> const lines(new Lines);
  for (EventLog* const listener : {&twice, &once, &twice}) lines->AddEventListener(listener);
  lines->AddEventListener(nullptr);
  lines->FireOnCollectionRemove(7);
  EXPECT_EQ(twice.events, (Events{"-7", "-7"}));
  EXPECT_EQ(once.events, Events{"-7"});
  EXPECT_EQ(once.sender, lines->GetBase());

  lines->RemoveEventListener(&twice);
  lines->FireOnCollectionRemoveComplete(-1);
  EXPECT_EQ(twice.events.size(), 2u);
  EXPECT_EQ(once.events.back(), "-!") << "no index";
}

TEST(Listeners, MayRemoveThemselves) {
  struct Once : EventLog {
    void OnEvent(CXmlObjectBase* from, MsgType type, void* data) override {
      EventLog::OnEvent(from, type, data);
      static_cast<Lines*>(from)->RemoveEventListener(this);
    }
  } listener;
  CSmartPtr<Lines> const lines(new Lines);
  lines->AddEventListener(&listener);
  lines->Add();
  EXPECT_EQ(listener.events, Events{"+"});
}

}  // namespace
}  // namespace KestXmlLib20
