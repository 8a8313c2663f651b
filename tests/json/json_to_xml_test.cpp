// The XML that stands for a JSON text.
#include <gtest/gtest.h>

#include "tests/json/converted.h"
#include "tests/model/row_name.h"

namespace KestXmlLib20 {
namespace {

struct XmlCase {
  char const* name;
  char16_t const* json;
  char16_t const* xml;  // or the failures
};

void PrintTo(XmlCase const& row, std::ostream* out) {
  *out << row.name;
}

CSerializationContext ContextOf(JsonRoundTrip roundTrip, char16_t const* root = u"") {
  CSerializationContext context;
  context.GetJsonContext()->SetSupportRoundtrip(roundTrip);
  context.GetJsonContext()->SetRootElementName(root);
  return context;
}

// clang-format off
constexpr XmlCase kConversions[] = {
    {"Nothing",          u" ", u""},
    {"Element",          u"{\"a\":1}", u"<a>1</a>\n"},
    {"Nested",           u"{\"a\":{\"b\":1,\"c\":{\"d\":\"x\"}}}", u"<a>\n\t<b>1</b>\n\t<c>\n\t\t<d>x</d>\n\t</c>\n</a>\n"},
    {"EmptyObject",      u"{\"a\":{}}", u"<a/>\n"},
    {"Null",             u"{\"a\":null}", u"<a/>\n"},
    {"EmptyString",      u"{\"a\":\"\"}", u"<a/>\n"},
    {"Booleans",         u"{\"r\":{\"a\":true,\"b\":false}}", u"<r>\n\t<a>true</a>\n\t<b>false</b>\n</r>\n"},
    {"NumbersKeepTheirText", u"{\"a\":-1.50e3}", u"<a>-1.50e3</a>\n"},
    {"Escaped",          u"{\"a\":{\"@i\":\"<&\\\"\\t\\n\",\"#text\":\"<&\\\"\\t\\n\\r\"}}", u"<a i=\"&lt;&amp;&quot;\t&#xA;\">&lt;&amp;\"\t\n</a>\n"},
    {"AttributeAndText", u"{\"a\":{\"@x\":\"1\",\"#text\":\"v\"}}", u"<a x=\"1\">v</a>\n"},
    {"AttributeKinds",   u"{\"a\":{\"@x\":1.0,\"@y\":true,\"b\":1}}", u"<a x=\"1.0\" y=\"true\">\n\t<b>1</b>\n</a>\n"},
    {"Namespaces",       u"{\"p:a\":{\"@xmlns\":\"d\",\"@xmlns:p\":\"u\",\"p:b\":1}}", u"<p:a xmlns=\"d\" xmlns:p=\"u\">\n\t<p:b>1</p:b>\n</p:a>\n"},
    {"ArrayOfObjects",   u"{\"r\":{\"a\":[{\"b\":1},{\"b\":2},{}],\"c\":3}}", u"<r>\n\t<a>\n\t\t<b>1</b>\n\t</a>\n\t<a>\n\t\t<b>2</b>\n\t</a>\n\t<a/>\n\t<c>3</c>\n</r>\n"},
    {"ArrayInArray",     u"{\"r\":{\"a\":[{\"b\":[{\"c\":1},{\"c\":2}]},{\"b\":[{}]}]}}", u"<r>\n\t<a>\n\t\t<b>\n\t\t\t<c>1</c>\n\t\t</b>\n\t\t<b>\n\t\t\t<c>2</c>\n\t\t</b>\n\t</a>\n\t<a>\n\t\t<b/>\n\t</a>\n</r>\n"},
    {"ArrayOfOneValue",  u"{\"r\":{\"a\":[1],\"b\":2}}", u"<r>\n\t<a>1</a>\n\t<b>2</b>\n</r>\n"},
    {"TwoRoots",         u"{\"a\":1,\"b\":2}", u"<a>1</a>\n<b>2</b>\n"},
    {"ValueAlone",       u"5", u"5"},
    {"NamesAreNotTested", u"{\"a b\":1}", u"<a b>1</a b>\n"},
    // What each value and each end of an object closes decides the rest.
    {"ArrayOfValuesClosesItsParent", u"{\"r\":{\"s\":{\"a\":[1,2],\"b\":3}}}", u"<r>\n\t<s>\n\t\t<a>1</a>\n2\t</s>\n\t<b>3</b>\n</r>\n"},
    {"EmptyArrayStaysOpen", u"{\"r\":{\"c\":[],\"d\":1}}", u"<r>\n\t<c>\n\t\t<d>1</d>\n\t</c>\n</r>\n"},
    {"EmptyArrayUsesUpTheLastEnd", u"{\"r\":{\"s\":{\"c\":[]}}}", u"<r>\n\t<s>\n\t\t<c/>\n\t</s>\n</r>\n"},
    {"TwoEmptyArraysStayOpen", u"{\"r\":{\"c\":[],\"d\":[]}}", u"Exception: An Element has not been closed."},
    {"EmptyArrayBehindText", u"{\"r\":{\"a\":{\"#text\":\"v\",\"c\":[]},\"d\":1}}", u"<r>\n\t<a>v</a>\n\t<c>\n\t\t<d>1</d>\n\t</c>\n</r>\n"},
    {"EmptyArrayAtTheEnd", u"{\"c\":[", u"Validation: Unexpected End of File. Expected Array terminator character ']' at line 1, position 6. @ $"},
    {"EmptyArrayAlone",  u"{\"c\":[]}", u"<c/>\n"},
    {"MemberBehindTextIsInTheParent", u"{\"r\":{\"a\":{\"#text\":\"v\",\"b\":1},\"c\":2}}", u"<r>\n\t<a>v</a>\n\t<b>1</b>\n\t<c>2</c>\n</r>\n"},
    {"TextTwiceClosesTheParent", u"{\"r\":{\"a\":{\"#text\":1,\"#text\":2}}}", u"<r>\n\t<a>1</a>\n2</r>\n"},
    {"AttributeLastStaysOpen", u"{\"r\":{\"a\":{\"@x\":1},\"b\":2}}", u"<r>\n\t<a x=\"1\">\n\t\t<b>2</b>\n\t</a>\n</r>\n"},
    {"AttributeOnly",    u"{\"a\":{\"@x\":1}}", u"Exception: An Element has not been closed."},
    {"AttributeOnlyInArray", u"{\"r\":{\"a\":[{\"@x\":1},{\"@x\":2}]}}", u"Exception: An Element has not been closed."},
    {"NullAttributeIsNone", u"{\"r\":{\"a\":{\"@x\":null,\"b\":1}}}", u"<r>\n\t<a>\n\t\t<b>1</b>\n\t</a>\n</r>\n"},
    {"NullAttributeLastStaysOpen", u"{\"a\":{\"@x\":null}}", u"Exception: An Element has not been closed."},
    {"ObjectAsAttribute", u"{\"a\":{\"@x\":{\"b\":1},\"c\":2}}", u"<a>\n\t<b>1</b>\n</a>\n<c>2</c>\n"},
    // Refused.
    {"EmptyName",        u"{\"a\":{\"\":1}}", u"Validation: JSON item has an empty Name. @ $..a"},
    {"ArrayAlone",       u"[1]", u"Validation: JSON Array has no Name. @ $"},
    {"ArrayDirectlyInArray", u"{\"a\":{\"b\":[[1]]}}", u"Validation: JSON Array has no Name. @ $.a"},
    {"AttributeBehindElement", u"{\"a\":{\"b\":1,\"@x\":\"v\"}}", u"InvalidState: Failed to convert value 'v' to Attribute string value in XML.\nException: Attributes must be added before elements"},
    {"AttributeWithoutElement", u"{\"@x\":\"v\"}", u"InvalidState: Failed to convert value 'v' to Attribute string value in XML.\nException: Attributes must be added before elements"},
    // Paths have the innermost name first.
    {"Path",             u"{\"a\": {\"b\": tru}}", u"Validation: Expected 'true' at line 1, position 16. @ $.b.a"},
    {"PathOfSecondMember", u"{\"a\":{\"b\":{\"x\":1},\"c\":-}}", u"Validation: Expected a digit '0' to '9', found '}' at line 1, position 24. @ $.c.a"},
    {"PathWithIndex",    u"{\"r\":{\"a\":[{},{},{\"b\":!", u"Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '!' at line 1, position 23. @ $.b.a[\u0002].r"},
    {"PathBehindArray",  u"{\"r\":{\"a\":[{}],\"b\":!", u"Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '!' at line 1, position 20. @ $.b.r"},
};

constexpr XmlCase kPlainConversions[] = {
    {"AtIsPartOfTheName", u"{\"r\":{\"@a\":1,\"#text\":2}}", u"<r>\n\t<@a>1</@a>\n\t<#text>2</#text>\n</r>\n"},
    {"EmptyName",         u"{\"a\":{\"\":1}}", u"Validation: JSON item has an empty Name. @ $..a"},
};

constexpr XmlCase kRootConversions[] = {
    {"Object",        u"{\"a\":1,\"b\":2}", u"<root>\n\t<a>1</a>\n\t<b>2</b>\n</root>\n"},
    {"ArrayOfObjects", u"[{\"a\":1}]", u"<root>\n\t<a>1</a>\n</root>\n"},
    {"Value",         u"\"x\"", u"<root>x</root>\n"},
    {"Attributes",    u"{\"@i\":1,\"#text\":\"x\"}", u"<root i=\"1\">x</root>\n"},
    {"EmptyObject",   u"{}", u"<root/>\n"},
    {"WhiteSpace",    u" ", u"<root/>\n"},
    {"PathHasIt",     u"{\"a\":x", u"Validation: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1, position 6. @ $.a.root"},
};
// clang-format on

class JsonToXml : public testing::TestWithParam<XmlCase> {};
TEST_P(JsonToXml, GivesTheBytes) {
  EXPECT_EQ(Converted(GetParam().json), GetParam().xml);
}
INSTANTIATE_TEST_SUITE_P(Full, JsonToXml, testing::ValuesIn(kConversions), RowName());

class JsonToXmlPlainly : public testing::TestWithParam<XmlCase> {};
TEST_P(JsonToXmlPlainly, GivesTheBytes) {
  EXPECT_EQ(Converted(GetParam().json, ContextOf(JsonRoundTrip_None)), GetParam().xml);
}
INSTANTIATE_TEST_SUITE_P(None, JsonToXmlPlainly, testing::ValuesIn(kPlainConversions), RowName());

class JsonToXmlInRoot : public testing::TestWithParam<XmlCase> {};
TEST_P(JsonToXmlInRoot, GivesTheBytes) {
  EXPECT_EQ(Converted(GetParam().json, ContextOf(JsonRoundTrip_Attributes, u"root")),
            GetParam().xml);
}
INSTANTIATE_TEST_SUITE_P(Named, JsonToXmlInRoot, testing::ValuesIn(kRootConversions), RowName());

TEST(JsonToXmlLimits, HoldForTheElements) {
  CSerializationContext context;
  context.GetLimits().SetMaxDepth(3);
  EXPECT_EQ(Converted(u"{\"a\":{\"b\":{\"c\":1}}}", context),
            u"<a>\n\t<b>\n\t\t<c>1</c>\n\t</b>\n</a>\n");
  EXPECT_EQ(Converted(u"{\"a\":{\"b\":{\"c\":{\"d\":1", context),
            u"InvalidState: Failed to convert name 'd' to Element name in XML.\n"
            u"Exception: The document exceeds the limit of 3 nested elements.");
  EXPECT_EQ(Converted(u"{\"a\":{\"b\":{\"c\":{\"d\"", context),
            u"InvalidState: Failed to convert name 'd' to Element name in XML.\n"
            u"Exception: The document exceeds the limit of 3 nested elements.")
      << "the name is refused before what follows is looked at";
}

// Each of the many short members stands behind the indentation of the many open elements.
TEST(JsonToXmlLimits, HoldForTheBytes) {
  CSerializationContext context;
  std::u16string json = u"{\"r\":{\"a\":[";
  for (int i = 0; i < 900; ++i) json += u"{\"@b\":1},";
  json += u"{\"x\":1";
  for (int i = 0; i < 2'000; ++i) json += u",\"x\":1";
  context.GetLimits().SetMaxInflatedBytes(1'000'000);
  EXPECT_EQ(Converted(json, context),
            u"InvalidState: Failed to convert value '1' to Element string value in XML.\n"
            u"Exception: The document exceeds the limit of 1000000 bytes as XML.");
}

// Nothing grows with the input but the output, and nothing recurses on it.
TEST(JsonToXmlLimits, HoldForLargeTexts) {
  std::u16string objects;
  for (int i = 0; i < 200'000; ++i) objects += u"[{\"a\":";
  EXPECT_TRUE(Converted(u"{\"a\":" + objects)
                  .starts_with(u"Validation: JSON exceeded depth limit at line 1, position 301. @ "
                               u"$.a["));
  std::u16string const text(2'000'000, u'x');
  EXPECT_EQ(Converted(u"{\"a\":\"" + text + u"\"}"), u"<a>" + text + u"</a>\n");
  std::u16string comments;
  for (int i = 0; i < 200'000; ++i) comments += u"/**///\n";
  EXPECT_EQ(Converted(comments + u"{\"a\":1}"), u"<a>1</a>\n");
  std::u16string members = u"{\"r\":{\"b\":1";
  for (int i = 0; i < 200'000; ++i) members += u",\"b\":1";
  EXPECT_EQ(Converted(members + u"}}").size(), 200'001 * 10 + 9);
}

}  // namespace
}  // namespace KestXmlLib20
