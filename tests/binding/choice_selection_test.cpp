#include <gtest/gtest.h>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/smart_ptr.h"
#include "tests/model/bare_object.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Reaches the protected operations.
class Choice : public CXmlObjectBase {
 public:
  using CXmlObjectBase::Choice_CollectionChanged;
  using CXmlObjectBase::Choice_SelectElement;
  using CXmlObjectBase::Choice_SetElementValid;
};

constexpr char16_t kThrows[] = u"(throws)";

constexpr char16_t kBracketed[] =
    u"The Property [b] is already set. Only one element within this class bay be set at a time";

struct ChoiceCase {
  char const* name;
  char16_t const* before;  // the selection; the property of the call is always "a"
  int count;               // of items, or whether there is an object
  char16_t const* after;   // the selection, or kThrows
};

void PrintTo(ChoiceCase const& row, std::ostream* out) {
  *out << row.name;
}

template <typename Call>
void Expect(ChoiceCase const& row, char16_t const* message, Call call) {
  std::u16string selection = row.before;
  if (row.after == kThrows) {
    EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { call(selection); }), message);
    EXPECT_EQ(selection, row.before);
  } else {
    call(selection);
    EXPECT_EQ(selection, row.after);
  }
}

// clang-format off
constexpr ChoiceCase kObjects[] = {
    {"SameStays",               u"a", 1, u"a"},
    {"SameWithNullIsCleared",   u"a", 0, u""},
    {"OtherThrows",             u"b", 1, kThrows},
    {"OtherWithNullStays",      u"b", 0, u"b"},
    {"EmptySelects",            u"",  1, u"a"},
    {"EmptyWithNullSelectsToo", u"",  0, u"a"},
};

constexpr ChoiceCase kCollections[] = {
    {"SameStays",               u"a", 2,  u"a"},
    {"SameWithoutItemsIsCleared", u"a", 0, u""},
    {"OtherThrows",             u"b", 1,  kThrows},
    {"OtherThrowsBelowZero",    u"b", -1, kThrows},
    {"OtherWithoutItemsStays",  u"b", 0,  u"b"},
    {"EmptySelects",            u"",  1,  u"a"},
    {"EmptyWithoutItemsStays",  u"",  0,  u""},
    {"EmptyBelowZeroStays",     u"",  -1, u""},
};

constexpr ChoiceCase kValid[] = {
    {"SameStays",               u"a", 1, u"a"},
    {"SameInvalidIsCleared",    u"a", 0, u""},
    {"OtherThrows",             u"b", 1, kThrows},
    {"OtherInvalidIsCleared",   u"b", 0, u""},
    {"EmptyInvalidStays",       u"",  0, u""},
};
// clang-format on

class ChoiceOfObjects : public testing::TestWithParam<ChoiceCase> {};
class ChoiceOfCollections : public testing::TestWithParam<ChoiceCase> {};
class ChoiceOfValues : public testing::TestWithParam<ChoiceCase> {};

TEST_P(ChoiceOfObjects, KeepsOneSelection) {
  Expect(GetParam(), kBracketed, [](std::u16string& selection) {
    CSmartPtr<BareObject> const object(new BareObject);
    Choice::Choice_SelectElement(u"a", GetParam().count ? object.Get() : nullptr, selection);
  });
}

TEST_P(ChoiceOfCollections, KeepsOneSelection) {
  Expect(GetParam(), kBracketed, [](std::u16string& selection) {
    Choice::Choice_CollectionChanged(u"a", GetParam().count, selection);
  });
}

TEST_P(ChoiceOfValues, KeepsOneSelection) {
  Expect(GetParam(),
         u"The Property b is already set. Only one element within this class bay be set at a time",
         [](std::u16string& selection) {
           Choice::Choice_SetElementValid(GetParam().count != 0, u"a", selection);
         });
}

TEST(ChoiceOfValues, RefusesToSelectWhenNothingIsSelected) {
  std::u16string selection;
  EXPECT_EQ(Thrown<CKestInvalidStateException>(
                [&] { Choice::Choice_SetElementValid(true, u"a", selection); }),
            u"The Property  is already set. Only one element within this class bay be set at a "
            u"time");
}

INSTANTIATE_TEST_SUITE_P(Selection, ChoiceOfObjects, testing::ValuesIn(kObjects), RowName());
INSTANTIATE_TEST_SUITE_P(Selection, ChoiceOfCollections, testing::ValuesIn(kCollections),
                         RowName());
INSTANTIATE_TEST_SUITE_P(Selection, ChoiceOfValues, testing::ValuesIn(kValid), RowName());

}  // namespace
}  // namespace KestXmlLib20
