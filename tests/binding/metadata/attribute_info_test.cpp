// The entries of attribute tables, where the classes of the model do not show them.
#include "kestxml/binding/metadata/attribute_info.h"

#include <gtest/gtest.h>

#include "kestxml/binding/attribute_col.h"
#include "tests/model/assembled.h"
#include "tests/model/collections.h"
#include "tests/model/outcome.h"

namespace KestModel {
namespace {

using Properties = CAssembled::Properties;
using MakeEntry = CAttributeInfo* (*)();

template <bool kIsOptional, std::int32_t kIndex = 0>
CAttributeInfo* Prim() {
  return Attribute(u"a", kIndex, kIsOptional, {.type = ItemType_i4, .maxInclusive = u"4"});
}
template <bool kIsOptional>
CAttributeInfo* Enum() {
  return new CAttributeInfoEnum(u"a", u"", 0, kIsOptional, ColorToString, StringToColor, nullptr);
}
CAttributeInfo* Any() {
  return new CAttributeInfoAny(u"a", u"", 1, true, u"##any", u"", nullptr);
}
CAttributeInfo* Target() {
  return new CAttributeInfoAny(u"a", u"", 1, true, u"##targetNamespace", u"urn:t", nullptr);
}
CAttributeInfo* OtherThanTarget() {
  return new CAttributeInfoAny(u"a", u"", 1, true, u"##other", u"urn:t", nullptr);
}

void Attributes(Properties& p) {
  p[1].SetXmlCollection(new CAttributeCol(u"", u"##any", u""));
}
void ForeignAttributes(Properties& p) {
  p[1].SetXmlCollection(new CAttributeCol(u"", u"##other", u""));
}
void Colors(Properties& p) {
  p[1].SetXmlCollection(new CColorCol(u"", 0, -1));
}
template <std::int32_t kValue>
void Number(Properties& p) {
  p[0].SetI4(kValue);
}

struct AttributeCase {
  char const* name;
  std::initializer_list<MakeEntry> entries;
  void (*init)(Properties&);
  char16_t const* document;  ///< null: is only written
  char16_t const* outcome = nullptr;
};

constexpr char16_t kNotWritten[] =
    u"Validation: Failed to convert the element [O] to XML\n"
    u"Exception: Failed to convert attributes to XML\n";

// clang-format off
TEST(AttributeInfo, IsReadAndWritten) {
  AttributeCase const rows[] = {
      {"Unset",           {Prim<true>, Enum<true>, Any}, nullptr, nullptr, u"<O/>"},
      {"RequiredUnset",   {Prim<false>}, nullptr, nullptr, u"Exception: Invalid Type 0 to convert to string"},
      {"BeyondBound",     {Prim<true>}, Number<5>, nullptr, u"Exception: Invalid Value for a [5]"},
      {"NoColor",         {Enum<true>}, Number<7>, nullptr, u"InvalidValue: Invalid Color [7]"},
      {"RefusedGet",      {Prim<true, kRefused>}, nullptr, nullptr, u"Validation: Failed to get the property value for [a].\nException: refused"},
      {"RefusedSet",      {Prim<true, kRefused>}, nullptr, u"<O a='1'/>", u"Exception: Failed to set the property value [1]. @ /O/@a\nException: refused"},
      {"EnumMissing",     {Enum<false>}, nullptr, u"<O/>",
                          u"Validation: Failed to process the element. @ /O\nValidation: Failed to find the required Attribute [a]."},
      // A wildcard in front takes the attribute of the entry behind it.
      {"WildcardBehind",  {Prim<false>, Any}, Attributes, u"<O a='1' b='2'/>"},
      {"WildcardInFront", {Any, Prim<false>}, Attributes, u"<O a='1'/>",
                          u"Validation: Failed to process the element. @ /O\nValidation: Failed to find the required Attribute [a]."},
      {"NoneIsOther",     {OtherThanTarget}, Attributes, u"<O b='2'/>"},
      {"NoneIsNotTarget", {Target}, Attributes, u"<O b='2'/>", u"Exception: Unexpected Attribute found. @ /O/@b"},
      {"Narrower",        {Any}, ForeignAttributes, u"<O b='2'/>",
                          u"Validation: Failed to process the element. @ /O\nInvalidNamespace: Invalid namespace []. The namespace must be one of [##other] where the target namespace is []."},
      {"NoAttributes",    {Any}, Colors, u"<O b='2'/>",
                          u"Validation: Failed to process the element. @ /O\nException: Serialization Data Error : The collection should be a CAttributeCol, it was not!"},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<CAttributeInfo*> entries;
    for (auto const make : row.entries) entries.push_back(make());
    entries.resize(3);  // null ends the table
    CDesign const design(Class(XmlElementGroupType_Sequence, XmlElementType_Element, u"O"), {},
                         {entries[0], entries[1], entries[2]});
    CSmartPtr<CAssembled> const owner(new CAssembled(design, row.init));
    std::u16string const expected = Expand(row.outcome ? row.outcome : row.document);
    if (row.document) {
      EXPECT_EQ(Outcome(*owner, Expand(row.document), {}), expected);
    } else {
      EXPECT_EQ(OutcomeOf([&] { return Written(*owner); }),
                expected.starts_with(u'<') ? expected : kNotWritten + expected);
    }
  }
}

}  // namespace
}  // namespace KestModel
