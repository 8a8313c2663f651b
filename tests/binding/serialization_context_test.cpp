#include "kestxml/binding/serialization_context.h"

#include <gtest/gtest.h>

#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using C = CSerializationContext;

// Every flag, and each limit.
template <typename Test>
void ForEachSetting(Test test) {
  // clang-format off
  test("WriteTypeAttribute",        &C::GetWriteTypeAttribute,        &C::SetWriteTypeAttribute,        true);
  test("IgnoreInvalidCollectionCounts", &C::GetIgnoreInvalidCollectionCounts, &C::SetIgnoreInvalidCollectionCounts, false);
  test("IgnoreMissingChoice",       &C::GetIgnoreMissingChoice,       &C::SetIgnoreMissingChoice,       false);
  test("IgnoreMissingMandatoryElements", &C::GetIgnoreMissingMandatoryElements, &C::SetIgnoreMissingMandatoryElements, false);
  test("IgnoreUnknownElements",     &C::GetIgnoreUnknownElements,     &C::SetIgnoreUnknownElements,     false);
  test("IgnoreUnknownAttributes",   &C::GetIgnoreUnknownAttributes,   &C::SetIgnoreUnknownAttributes,   false);
  test("IgnoreNamespaces",          &C::GetIgnoreNamespaces,          &C::SetIgnoreNamespaces,          false);
  test("NoOptionalAttributeDefaultOutput", &C::GetNoOptionalAttributeDefaultOutput, &C::SetNoOptionalAttributeDefaultOutput, false);
  test("WriteDefaultElementValues", &C::GetWriteDefaultElementValues, &C::SetWriteDefaultElementValues, false);
  test("StripCDATA",                &C::GetStripCDATA,                &C::SetStripCDATA,                true);
  // clang-format on
}

TEST(SerializationContext, BeginsWithItsDefaultsAndIsCopiedWhole) {
  ForEachSetting([](char const* name, auto get, auto set, bool value) {
    SCOPED_TRACE(name);
    C context;
    EXPECT_EQ((context.*get)(), value);
    (context.*set)(!value);
    C assigned;
    assigned = context;
    EXPECT_EQ((C(context).*get)(), !value);
    EXPECT_EQ((assigned.*get)(), !value);
    ForEachSetting([&](char const* other, auto getOther, auto, bool otherValue) {
      if (other != std::string_view(name)) {
        EXPECT_EQ((context.*getOther)(), otherValue) << other;
      }
    });
  });
  C context;
  EXPECT_EQ(context.GetDefaultNamespaceURI() + context.GetInLineSchema(), u"");
  EXPECT_EQ(context.GetIndentChars(), u"\t");
  EXPECT_EQ(context.GetSchemaType(), SchemaType::XmlSchema);
  EXPECT_TRUE(context.GetProcessingInstructions().empty());
  context.SetDefaultNamespaceURI(u"urn:d");
  context.SetInLineSchema(u"s");
  context.SetIndentChars(u" ");
  context.SetSchemaType(SchemaType::XmlDataReduced);
  context.GetProcessingInstructions().push_back(u"<?p?>");
  C const copy(context);
  EXPECT_EQ(copy.GetDefaultNamespaceURI() + copy.GetInLineSchema() + copy.GetIndentChars(),
            u"urn:ds ");
  EXPECT_EQ(copy.GetSchemaType(), SchemaType::XmlDataReduced);
  EXPECT_EQ(copy.GetProcessingInstructions().size(), 1u);
}

TEST(SerializationContext, HoldsItsLimitsAndCopiesThem) {
  using L = CSerializationLimits;
  auto const test = [](auto get, auto set, std::uint64_t value) {
    C context;
    EXPECT_EQ((context.GetLimits().*get)(), value);
    (context.GetLimits().*set)(7);
    EXPECT_EQ((C(context).GetLimits().*get)(), 7u);
    EXPECT_EQ((C().GetLimits().*get)(), value);
  };
  test(&L::GetMaxDepth, &L::SetMaxDepth, 1'000);
  test(&L::GetMaxAttributes, &L::SetMaxAttributes, 10'000);
  test(&L::GetMaxNamespaceDeclarations, &L::SetMaxNamespaceDeclarations, 10'000);
  test(&L::GetMaxNamespaceLength, &L::SetMaxNamespaceLength, 10'000);
  test(&L::GetMaxInflatedBytes, &L::SetMaxInflatedBytes, 1'073'741'824);
  test(&L::GetMaxElements, &L::SetMaxElements, 0);
}

TEST(SerializationContext, UnknownAndMissingElementsExcludeEachOther) {
  C context;
  context.SetIgnoreMissingMandatoryElements(true);
  EXPECT_EQ(
      Thrown<CKestInvalidStateException>([&] { context.SetIgnoreUnknownElements(true); }),
      u"The parser can only ignore additional elements, or ignore the fact that some required ones "
      u"are missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before "
      u"setting IgnoreUnknownElements to true");
  context.SetIgnoreUnknownElements(false);
  context.SetIgnoreMissingMandatoryElements(false);
  context.SetIgnoreUnknownElements(true);
  EXPECT_EQ(
      Thrown<CKestInvalidStateException>([&] { context.SetIgnoreMissingMandatoryElements(true); }),
      u"The parser can only ignore additional elements, or ignore the fact that some required ones "
      u"are missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting "
      u"IgnoreMissingMandatoryElements to true");
  context.SetIgnoreMissingMandatoryElements(false);
}

TEST(SerializationContext, IndentTakesBlanksAndTabsOnly) {
  C context;
  for (char16_t const* const good : {u"", u" \t"}) {
    context.SetIndentChars(good);
    EXPECT_EQ(context.GetIndentChars(), good);
  }
  context.SetIndentChars(nullptr);
  for (char16_t const* const bad : {u"\n", u" x", u"\u00A0"}) {
    EXPECT_EQ(Thrown<CKestInvalidParamException>([&] { context.SetIndentChars(bad); }),
              u"IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
  }
  EXPECT_EQ(context.GetIndentChars(), u"");
}

TEST(SerializationContext, DocumentTypeDefinitionsHaveNoNamespaces) {
  C context;
  context.SetSchemaType(SchemaType::DocumentTypeDefinition);
  context.SetIgnoreNamespaces(false);
  EXPECT_TRUE(context.GetIgnoreNamespaces());
  context.SetSchemaType(SchemaType::XmlDataReduced);
  EXPECT_FALSE(context.GetIgnoreNamespaces());
}

}  // namespace
}  // namespace KestXmlLib20
