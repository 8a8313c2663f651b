#include <gtest/gtest.h>

#include "kestxml/values/smart_ptr.h"
#include "tests/model/bare_object.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Reaches the protected operations. Each takes the property "a" and a count of what it holds.
struct Choice : BareObject {
  static void Value(int count, std::u16string& selection) {
    Choice_SetElementValid(count != 0, u"a", selection);
  }
  static void Object(int count, std::u16string& selection) {
    CSmartPtr<BareObject> const object(new BareObject);
    Choice_SelectElement(u"a", count ? object.Get() : nullptr, selection);
  }
  static void Collection(int count, std::u16string& selection) {
    Choice_CollectionChanged(u"a", count, selection);
  }
};

constexpr char16_t kTaken[] =
    u"The Property [b] is already set. Only one element within this class bay be set at a time";
constexpr char16_t kTakenByValue[] =
    u"The Property b is already set. Only one element within this class bay be set at a time";
constexpr char16_t kTakenByNothing[] =
    u"The Property  is already set. Only one element within this class bay be set at a time";

TEST(ChoiceSelection, FollowsItsTables) {
  // clang-format off
  struct {
    char const* name; void (*call)(int, std::u16string&); int count;
    char16_t const* before; char16_t const* after; char16_t const* thrown;
  } const rows[] = {
      {"SameObject",              Choice::Object,     1,  u"a", u"a", nullptr},
      {"SameNullObject",          Choice::Object,     0,  u"a", u"",  nullptr},
      {"OtherObject",             Choice::Object,     1,  u"b", u"b", kTaken},
      {"OtherNullObject",         Choice::Object,     0,  u"b", u"b", nullptr},
      {"FirstObject",             Choice::Object,     1,  u"",  u"a", nullptr},
      {"FirstNullObjectSelects",  Choice::Object,     0,  u"",  u"a", nullptr},
      {"SameCollection",          Choice::Collection, 2,  u"a", u"a", nullptr},
      {"SameEmptyCollection",     Choice::Collection, 0,  u"a", u"",  nullptr},
      {"OtherCollection",         Choice::Collection, 1,  u"b", u"b", kTaken},
      {"OtherBelowZero",          Choice::Collection, -1, u"b", u"b", kTaken},
      {"OtherEmptyCollection",    Choice::Collection, 0,  u"b", u"b", nullptr},
      {"FirstCollection",         Choice::Collection, 1,  u"",  u"a", nullptr},
      {"FirstEmptyCollection",    Choice::Collection, 0,  u"",  u"",  nullptr},
      {"FirstBelowZero",          Choice::Collection, -1, u"",  u"",  nullptr},
      {"SameValue",               Choice::Value,      1,  u"a", u"a", nullptr},
      {"SameInvalidValue",        Choice::Value,      0,  u"a", u"",  nullptr},
      {"OtherValue",              Choice::Value,      1,  u"b", u"b", kTakenByValue},
      {"OtherInvalidValue",       Choice::Value,      0,  u"b", u"",  nullptr},
      {"FirstValueThrowsToo",     Choice::Value,      1,  u"",  u"",  kTakenByNothing},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    std::u16string selection = row.before;
    EXPECT_EQ(Thrown<CKestInvalidStateException>([&] { row.call(row.count, selection); }),
              row.thrown ? row.thrown : kNothingThrown);
    EXPECT_EQ(selection, row.after);
  }
}

}  // namespace
}  // namespace KestXmlLib20
