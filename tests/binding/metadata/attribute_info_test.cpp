// The entries of attribute tables, where the classes of the model do not show them.
#include "kestxml/binding/metadata/attribute_info.h"

#include <gtest/gtest.h>

#include "kestxml/binding/attribute_col.h"
#include "tests/model/assembled.h"
#include "tests/model/collections.h"

namespace KestModel {
namespace {

using Properties = CAssembled::Properties;

CAttributeInfo* Prim(bool isOptional, std::int32_t index = 0) {
  return Attribute(u"a", index, isOptional, {.type = ItemType_i4, .maxInclusive = u"4"});
}
CAttributeInfo* Enum(bool isOptional) {
  return new CAttributeInfoEnum(u"a", u"", 0, isOptional, ColorToString, StringToColor, nullptr);
}
CAttributeInfo* Any(char16_t const* restriction = u"##any", char16_t const* target = u"") {
  return new CAttributeInfoAny(u"a", u"", 1, true, restriction, target, nullptr);
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

std::u16string NotWritten(std::u16string const& failure) {
  return u"Validation: Failed to convert the element [O] to XML\n"
         u"Exception: Failed to convert attributes to XML\n" +
         failure;
}
constexpr char16_t kNotThere[] =
    u"Validation: Failed to process the element. @ /O\n"
    u"Validation: Failed to find the required Attribute [a].";

// clang-format off
TEST(AttributeInfo, IsReadAndWritten) {
  AssembledCase const rows[] = {
      {"Unset",           {Prim(true), Enum(true), Any()}, nullptr, nullptr, nullptr, u"<O/>"},
      {"RequiredUnset",   {Prim(false)}, nullptr, nullptr, nullptr, NotWritten(u"Exception: Invalid Type 0 to convert to string")},
      {"BeyondBound",     {Prim(true)}, Number<5>, nullptr, nullptr, NotWritten(u"Exception: Invalid Value for a [5]")},
      {"NoColor",         {Enum(true)}, Number<7>, nullptr, nullptr, NotWritten(u"InvalidValue: Invalid Color [7]")},
      {"RefusedGet",      {Prim(true, kRefused)}, nullptr, nullptr, nullptr, NotWritten(u"Validation: Failed to get the property value for [a].\nException: refused")},
      {"RefusedSet",      {Prim(true, kRefused)}, nullptr, nullptr, u"<O a='1'/>", u"Exception: Failed to set the property value [1]. @ /O/@a\nException: refused"},
      {"EnumMissing",     {Enum(false)}, nullptr, nullptr, u"<O/>", kNotThere},
      // A wildcard in front takes the attribute of the entry behind it.
      {"WildcardBehind",  {Prim(false), Any()}, Attributes, nullptr, u"<O a='1' b='2'/>", u"<O a='1' b='2'/>"},
      {"WildcardInFront", {Any(), Prim(false)}, Attributes, nullptr, u"<O a='1'/>", kNotThere},
      {"NoneIsOther",     {Any(u"##other", u"urn:t")}, Attributes, nullptr, u"<O b='2'/>", u"<O b='2'/>"},
      {"NoneIsNotTarget", {Any(u"##targetNamespace", u"urn:t")}, Attributes, nullptr, u"<O b='2'/>", u"Exception: Unexpected Attribute found. @ /O/@b"},
      {"Narrower",        {Any()}, ForeignAttributes, nullptr, u"<O b='2'/>",
                          u"Validation: Failed to process the element. @ /O\nInvalidNamespace: Invalid namespace []. The namespace must be one of [##other] where the target namespace is []."},
      {"NoAttributes",    {Any()}, Colors, nullptr, u"<O b='2'/>",
                          u"Validation: Failed to process the element. @ /O\nException: Serialization Data Error : The collection should be a CAttributeCol, it was not!"},
  };
  // clang-format on
  ExpectOutcomes(rows);
}

}  // namespace
}  // namespace KestModel
