// Groups in groups: what no depth of the document bounds.
#include <gtest/gtest.h>

#include <string>

#include "tests/model/assembled.h"
#include "tests/model/outcome.h"

namespace KestModel {
namespace {

constexpr auto kElement = XmlElementType_Element;
constexpr auto kPseudo = XmlElementType_PseudoElement;

CParentElementInfo* Sequence(XmlElementType type, char16_t const* name) {
  return Class(XmlElementGroupType_Sequence, type, name);
}

CElementInfo* Group() {
  return new CElementInfoSeqClsMnd(u"Group", u"", 0, kPseudo, nullptr, 0, true);
}

// The mandatory group of a class is an object of @p design.
CAssembled::InitProperties Holding(CDesign const& design, CAssembled::InitProperties init = {}) {
  return [&design, init](CAssembled::Properties& properties) {
    properties[0].SetXmlObject(new CAssembled(design, init));
  };
}

std::u16string Document(std::u16string_view item, int count) {
  std::u16string text = u"<Root>";
  for (int i = 0; i < count; ++i) text += item;
  return text + u"</Root>";
}

std::u16string LastLine(std::u16string const& chain) {
  return chain.substr(chain.rfind(u'\n') + 1);
}

// Each unknown element lets the groups search the rest, each for each step of the next outer one:
// without a bound that takes the third power of their number.
TEST(GroupLimits, BoundTheSearchForGroups) {
  CDesign const inner(Sequence(kPseudo, u"Inner"), {Primitive<CElementInfoSeqPrimMnd>(u"A", 0)});
  CDesign const middle(Sequence(kPseudo, u"Middle"), {Group()});
  CDesign const outer(Sequence(kPseudo, u"Outer"), {Group()});
  CDesign const root(Sequence(kElement, u"Root"), {Group()});
  CAssembled object(root, Holding(outer, Holding(middle, Holding(inner))));
  CSerializationContext context = MakeContext(UnknownElements);

  std::u16string found = Document(u"<U/>", 20);
  object.FromXml(found.insert(found.size() - 7, u"<A>1</A>").c_str(), context);
  auto const read = [&](int count) {
    return LastLine(Outcome(object, Document(u"<U/>", count), context));
  };
  EXPECT_EQ(read(20), u"Exception: Failed to find the required child element [Group]. @ /Root");
  context.GetLimits().SetMaxAbandonedElements(200'000);
  EXPECT_EQ(read(3'000),
            u"Exception: The document exceeds the limit of 200000 abandoned elements. @ /Root");
}

// A group that may follow itself.
class CChain : public CAssembled {
 public:
  static CDesign const& Design();
  CChain() : CAssembled(Design()) {}
  static CSmartPtr<CXmlObjectBase> New(int, char16_t const*) { return new CChain; }
};

CDesign const& CChain::Design() {
  static CDesign const design(
      Sequence(kPseudo, u"Chain"),
      {Primitive<CElementInfoSeqPrimMnd>(u"A", 0),
       new CElementInfoSeqClsOpt(u"Chain", u"", 1, kPseudo, &CChain::New, 0)});
  return design;
}

TEST(GroupLimits, BoundGroupsInGroups) {
  CDesign const root(Sequence(kElement, u"Root"), {Group()});
  CAssembled object(
      root, [](CAssembled::Properties& properties) { properties[0].SetXmlObject(new CChain); });
  constexpr char16_t kTooDeep[] =
      u"Exception: The document exceeds the limit of 1000 nested elements.";
  auto const outcome = [&](int count) {
    return LastLine(Outcome(object, Document(u"<A>1</A>", count), {}));
  };
  EXPECT_EQ(outcome(500), Document(u"<A>1</A>", 500));
  EXPECT_EQ(outcome(20'000), std::u16string(kTooDeep) + u" @ /Root");

  // Objects that hold each other are written without end where none has an element.
  CSmartPtr<CChain> const chain(new CChain);
  chain->properties[0].SetString(u"1");
  chain->properties[1].SetXmlObject(chain.Get());
  object.properties[0].SetXmlObject(chain.Get());
  EXPECT_EQ(LastLine(OutcomeOf([&] { return Written(object); })), kTooDeep);
  chain->properties.clear();
}

}  // namespace
}  // namespace KestModel
