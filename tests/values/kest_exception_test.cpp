#include "kestxml/values/kest_exception.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <typeinfo>

namespace KestXmlLib20 {
namespace {

TEST(KestException, PathJoinsTheMessage) {
  CKestException const with(u"Failed.", std::u16string(u"/a/b[2]"));
  EXPECT_EQ(with.GetMessageW(), u"Failed.\nPath: /a/b[2]");
  EXPECT_EQ(with.GetPath(), u"/a/b[2]");
  EXPECT_EQ(CKestException(u"Failed.", std::u16string()).GetMessageW(), u"Failed.");
}

TEST(KestException, FullMessageIsTheChainFromOutside) {
  CKestException const innermost(u"three", std::u16string(u"/p"));
  CKestValidationException const middle(u"two", u"", innermost);
  CKestException const outer(u"one", middle);
  EXPECT_EQ(outer.GetFullMessage(), u"one\ntwo\nthree\nPath: /p");
  EXPECT_EQ(outer.GetMessageW(), u"one");
  EXPECT_EQ(innermost.GetInnerException(), nullptr);

  std::ostringstream printed;
  printed << outer;
  EXPECT_EQ(printed.str(), "one\ntwo\nthree\nPath: /p");
}

template <typename Exception>
class KestExceptionFamily : public testing::Test {};
using Family = testing::Types<CKestException, CKestValidationException, CKestInvalidValueException,
                              CKestInvalidNamespaceException, CKestInvalidStateException,
                              CKestInvalidParamException, CKestOverFlowException>;
TYPED_TEST_SUITE(KestExceptionFamily, Family);

TYPED_TEST(KestExceptionFamily, ConvertsFromAnyAndKeepsItsClassAsInner) {
  CKestException const any(u"text", u"/p", CKestException(u"inner"));
  std::optional<CKestException> outer;
  try {
    throw TypeParam(any);
  } catch (CKestException const& caught) {
    outer.emplace(u"outer", caught);
  }
  CKestException const& inner = *outer->GetInnerException();
  EXPECT_EQ(typeid(inner), typeid(TypeParam));
  EXPECT_EQ(inner.GetPath(), u"/p");
  EXPECT_EQ(outer->GetFullMessage(), u"outer\ntext\nPath: /p\ninner");
}

TEST(KestException, AssignmentKeepsThePathAndTheOldInner) {
  CKestException target(u"old", u"/old", CKestException(u"old inner"));
  CKestException const* const oldInner = target.GetInnerException();
  target = CKestException(u"new", u"/new", CKestException(u"new inner"));
  EXPECT_EQ(target.GetMessageW(), u"new\nPath: /new");
  EXPECT_EQ(target.GetPath(), u"/old");
  EXPECT_EQ(target.GetInnerException()->GetMessageW(), u"new inner");
  EXPECT_EQ(oldInner->GetMessageW(), u"old inner");

  target = *target.GetInnerException();
  EXPECT_EQ(target.GetFullMessage(), u"new inner");
  EXPECT_EQ(target.GetInnerException(), nullptr);
}

TEST(KestException, ChainOfAnyLengthEnds) {
  CKestException chain(u"0");
  for (int i = 0; i < 100'000; ++i) chain = CKestException(u"x", chain);
  EXPECT_EQ(chain.GetFullMessage().size(), 200'001u);
}

}  // namespace
}  // namespace KestXmlLib20
