#include "kestxml/binding/serialization_context.h"

#include <gtest/gtest.h>

#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using C = CSerializationContext;

TEST(SerializationContext, BeginsWithItsDefaults) {
  C const context;
  EXPECT_TRUE(context.GetWriteTypeAttribute());
  EXPECT_TRUE(context.GetStripCDATA());
  EXPECT_EQ(context.GetIndentChars(), u"\t");
  EXPECT_FALSE(context.GetWriteDefaultElementValues());
  EXPECT_EQ(context.GetLimits().GetMaxDepth(), 1'000u);
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
