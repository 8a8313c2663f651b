#include <gtest/gtest.h>

#include "kestxml/binding/xml_object_base.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// Reaches the protected operations.
class Wildcard : public CXmlObjectBase {
 public:
  using CXmlObjectBase::IsNamespaceValid;
  using CXmlObjectBase::TestNamespace;
};

struct NamespaceCase {
  char const* name;
  char16_t const* ns;
  char16_t const* restriction;
  char16_t const* target;
  bool passes;
};

void PrintTo(NamespaceCase const& row, std::ostream* out) {
  *out << row.name;
}

// clang-format off
constexpr NamespaceCase kNamespaces[] = {
    {"AnyTakesAll",                     u"urn:x", u"##any",             u"urn:t", true},
    {"AnyTakesEmpty",                   u"",      u"##any",             u"urn:t", true},
    {"OtherTakesOther",                 u"urn:x", u"##other",           u"urn:t", true},
    {"OtherRefusesTarget",              u"urn:t", u"##other",           u"urn:t", false},
    {"OtherTakesEmptyBesideTarget",     u"",      u"##other",           u"urn:t", true},
    {"OtherRefusesEmptyWithoutTarget",  u"",      u"##other",           u"",      false},
    {"LocalTakesEmpty",                 u"",      u"##local",           u"urn:t", true},
    {"LocalRefusesTarget",              u"urn:t", u"##local",           u"urn:t", false},
    {"TargetTakesTarget",               u"urn:t", u"##targetNamespace", u"urn:t", true},
    {"TargetRefusesEmpty",              u"",      u"##targetNamespace", u"urn:t", false},
    {"TargetTakesEmptyTarget",          u"",      u"##targetNamespace", u"",      true},
    {"UriTakesItself",                  u"urn:x", u"urn:x",             u"urn:t", true},
    {"UriTakesEmpty",                   u"",      u"urn:x",             u"urn:t", true},
    {"UriRefusesOther",                 u"urn:y", u"urn:x",             u"urn:t", false},
    {"UriRefusesItsPrefix",             u"urn:",  u"urn:x",             u"urn:t", false},
    {"CaseCountsInKeywords",            u"urn:x", u"##Any",             u"urn:t", false},
    {"EmptyTakesEmpty",                 u"",      u"",                  u"urn:t", true},
    {"EmptyRefusesOther",               u"urn:x", u"",                  u"urn:t", false},
    {"FirstOfListDecides",              u"urn:t", u"##targetNamespace ##local", u"urn:t", true},
    {"ListTakesEmptyByItsBlank",        u"",      u"##targetNamespace ##other", u"urn:t", true},
    {"ListTakesEmptyThatOtherRefuses",  u"",      u"##other urn:x",     u"",      true},
    {"ListTakesItsOwnText",             u"a b",   u"a b",               u"urn:t", true},
    {"ListTakesItsOwnTextByItsBlank",   u"##local b", u"##local b",     u"urn:t", true},
    {"FirstUriOfListIsNotTheList",      u"urn:x", u"urn:x urn:y",       u"urn:t", false},
    {"SecondOfListIsNotLookedAt",       u"urn:y", u"urn:x urn:y",       u"urn:t", false},
    {"KeywordBehindBlankIsNotLookedAt", u"urn:x", u"##targetNamespace ##any", u"urn:t", false},
    {"ListEndsInsteadOfTurningForever", u"urn:x", u"##targetNamespace ##local", u"urn:t", false},
    {"LeadingBlankHidesTheRest",        u"urn:x", u" ##any",            u"urn:t", false},
    {"TabDoesNotSeparate",              u"urn:x", u"##any\t##local",    u"urn:t", false},
    {"NullIsEmpty",                     nullptr,  u"##local",           nullptr,  true},
    {"NullRestrictionIsEmpty",          u"urn:x", nullptr,              u"urn:t", false},
};
// clang-format on

class NamespaceRestriction : public testing::TestWithParam<NamespaceCase> {};

TEST_P(NamespaceRestriction, DecidesByItsFirstToken) {
  auto const& [name, ns, restriction, target, passes] = GetParam();
  EXPECT_EQ(Wildcard::IsNamespaceValid(ns, restriction, target), passes);
}

INSTANTIATE_TEST_SUITE_P(Wildcards, NamespaceRestriction, testing::ValuesIn(kNamespaces),
                         RowName());

TEST(NamespaceRestriction, FailureNamesAllThree) {
  EXPECT_NO_THROW(Wildcard::TestNamespace(u"urn:x", u"##other", u"urn:t"));
  EXPECT_EQ(Thrown<CKestInvalidNamespaceException>(
                [] { Wildcard::TestNamespace(u"urn:t", u"##other", u"urn:t"); }),
            u"Invalid namespace [urn:t]. The namespace must be one of [##other] where the target "
            u"namespace is [urn:t].");
}

}  // namespace
}  // namespace KestXmlLib20
