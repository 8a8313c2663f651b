#include "kestxml/document/namespace_alias_map.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using Entries = std::vector<std::pair<std::u16string, std::u16string>>;

Entries EntriesOf(CNamespaceAliasMap const& map) {
  return {map.begin(), map.end()};
}

TEST(NamespaceAliasMap, HasOneAliasForAUriInTheOrderOfUnits) {
  CNamespaceAliasMap map;
  map.Add(u"a", u"urn:one");
  map.Add(u"b", u"urn:one");
  map.Add(u"b", u"urn:\uFFFD");
  map.Add(u"c", u"urn:\U0001F600");  // a surrogate pair, so lower than U+FFFD
  map.Add(nullptr, nullptr);
  EXPECT_EQ(
      EntriesOf(map),
      (Entries{{u"", u""}, {u"urn:one", u"b"}, {u"urn:\U0001F600", u"c"}, {u"urn:\uFFFD", u"b"}}));
  EXPECT_EQ(map.GetNamespaceFromAlias(u"b"), u"urn:one") << "the first of two";
  EXPECT_EQ(map.GetNamespaceAt(2), u"urn:\U0001F600");
  EXPECT_EQ(map.GetNamespaceAt(-3), u"") << "the first";
  EXPECT_EQ(map.GetNamespaceAt(4), u"") << "there is none";

  CNamespaceAliasMap const copy = map;
  map.RemoveNamespace(u"urn:one");
  map.RemoveNamespace(u"urn:absent");
  EXPECT_FALSE(map.DoesNamespaceExist(u"urn:one"));
  EXPECT_EQ(map.GetNamespaceFromAlias(u"b"), u"urn:\uFFFD");
  EXPECT_TRUE(copy.DoesNamespaceExist(u"urn:one"));
}

TEST(NamespaceAliasMap, GrowsByALookUpThatMisses) {
  CNamespaceAliasMap const map;
  EXPECT_FALSE(map.DoesAliasExist(u""));
  EXPECT_EQ(map.GetNamespaceAt(-1), u"");
  EXPECT_EQ(map.GetAliasFromNamespace(u"urn:one"), u"");
  EXPECT_TRUE(map.DoesAliasExist(u""));
  EXPECT_TRUE(map.DoesNamespaceExist(u"urn:one"));
  EXPECT_EQ(map.GetNamespaceCount(), 1);
}

TEST(NamespaceAliasMap, FailsToFindAnAlias) {
  EXPECT_EQ(Thrown([] { CNamespaceAliasMap().GetNamespaceFromAlias(u"p%s"); }),
            u"Namespace alias [p%s] not found");
}

}  // namespace
}  // namespace KestXmlLib20
