#include <gtest/gtest.h>

#include "tests/model/bare_object.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Reaches the protected operations.
struct Wildcard : BareObject {
  using BareObject::IsNamespaceValid;
  using BareObject::TestNamespace;
};

TEST(NamespaceRestriction, IsDecidedByItsFirstToken) {
  // clang-format off
  struct {
    char const* name; char16_t const* ns; char16_t const* restriction; char16_t const* target;
    bool passes;
  } const rows[] = {
      {"AnyTakesAll",                     u"urn:x", u"##any",             u"urn:t", true},
      {"OtherTakesOther",                 u"urn:x", u"##other",           u"urn:t", true},
      {"OtherRefusesTarget",              u"urn:t", u"##other",           u"urn:t", false},
      {"OtherTakesEmptyBesideTarget",     u"",      u"##other",           u"urn:t", true},
      {"OtherRefusesEmptyWithoutTarget",  u"",      u"##other",           u"",      false},
      {"LocalTakesEmpty",                 u"",      u"##local",           u"urn:t", true},
      {"LocalRefusesTarget",              u"urn:t", u"##local",           u"urn:t", false},
      {"TargetTakesTarget",               u"urn:t", u"##targetNamespace", u"urn:t", true},
      {"TargetRefusesEmpty",              u"",      u"##targetNamespace", u"urn:t", false},
      {"UriTakesItself",                  u"urn:x", u"urn:x",             u"urn:t", true},
      {"UriTakesEmpty",                   u"",      u"urn:x",             u"urn:t", true},
      {"UriRefusesOther",                 u"urn:y", u"urn:x",             u"urn:t", false},
      {"CaseCountsInKeywords",            u"urn:x", u"##Any",             u"urn:t", false},
      {"ListIsDecidedByItsFirst",         u"urn:t", u"##targetNamespace ##local", u"urn:t", true},
      {"ListTakesEmptyByItsBlank",        u"",      u"##targetNamespace ##other", u"urn:t", true},
      {"ListTakesItsOwnText",             u"a b",   u"a b",               u"urn:t", true},
      {"ListTakesItsOwnTextByItsBlank",   u"##local b", u"##local b",     u"urn:t", true},
      {"FirstUriOfListIsNotTheList",      u"urn:x", u"urn:x urn:y",       u"urn:t", false},
      {"RestOfListIsNotLookedAt",         u"urn:x", u"##local ##any",     u"urn:t", false},
      {"ListEndsInsteadOfTurningForever", u"urn:x", u"##targetNamespace ##local", u"urn:t", false},
      {"NullIsEmpty",                     nullptr,  u"##local",           nullptr,  true},
      {"NullRestrictionIsEmpty",          u"urn:x", nullptr,              u"urn:t", false},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Wildcard::IsNamespaceValid(row.ns, row.restriction, row.target), row.passes);
  }
}

TEST(NamespaceRestriction, FailureNamesAllThree) {
  EXPECT_EQ(Thrown<CKestInvalidNamespaceException>(
                [] { Wildcard::TestNamespace(u"urn:t", u"##other", u"urn:t"); }),
            u"Invalid namespace [urn:t]. The namespace must be one of [##other] where the target "
            u"namespace is [urn:t].");
  EXPECT_NO_THROW(Wildcard::TestNamespace(u"urn:x", u"##other", u"urn:t"));
}

}  // namespace
}  // namespace KestXmlLib20
