// What all writers share, as far as the text of the XML writer does not show it.
#include "kestxml/document/xml_writer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "kestxml/document/xml_writer_context.h"
#include "kestxml/values/format_string.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

// A writer without a format. Elements are opened in the two steps that formats may lie between.
class BareWriter : public CXmlWriter {
 public:
  using CXmlWriter::AddContextNamespace;
  using CXmlWriter::CreateContext;
  using CXmlWriter::FindPrefix;
  using CXmlWriter::GenerateAlias;
  using CXmlWriter::GetEffectiveNamespaces;
  using CXmlWriter::NeedsPrefix;

  void WriteComment(std::u16string_view) override {}
  void WriteProcessingInstruction(std::u16string_view) override {}
  void WriteRawAttributes(std::u16string_view) override {}
  void WriteText(std::u16string_view, ItemType, bool) override {}
  void WriteAttribute(std::u16string_view, std::u16string_view, std::u16string_view,
                      ItemType) override {}
  void WriteTypeAttribute(std::u16string_view, std::u16string_view, ItemType) override {}
  void WriteNil() override {}
  void StartElement(std::u16string_view localName, std::u16string_view uri) override {
    m_pCurrentContext = CreateContext(localName, uri);
  }
  void EndElement() override { EndContext(); }

  CXmlWriterContext& Current() { return *GetCurrentContext(); }
  std::u16string PrefixOf(std::u16string_view uri) {
    auto const* const prefix = FindPrefix(Current(), uri);
    return prefix ? *prefix : u"(none)";
  }
};

std::u16string URI(int number) {
  return u"urn:" + FormatString(u"%d", number);
}

std::vector<std::u16string> FirstAliases(int count) {
  std::vector<std::u16string> aliases;
  for (int i = 0; i < count; ++i) {
    aliases.push_back({static_cast<char16_t>(u'A' + i / 26), static_cast<char16_t>(u'A' + i % 26)});
  }
  return aliases;
}

TEST(XmlWriter, GeneratesTheFirstAliasThatIsFree) {
  // clang-format off
  struct {
    char const* name;
    std::vector<std::u16string> used;
    char16_t const* expected;
  } const rows[] = {
      {"First",                  {u"xml"},         u"AA"},
      {"Second",                 {u"xml", u"AA"},  u"AB"},
      {"GapIsFilled",            {u"AA", u"AC"},   u"AB"},
      {"TwoURIsMayShareOne",     {u"AA", u"AA"},   u"AB"},
      {"OtherTextsDoNotCount",   {u"aa", u"AAA", u"A", u"", u"A[", u"A@", u"@A"}, u"AA"},
      {"SecondUnitRunsOver",     FirstAliases(26),           u"BA"},
      {"FirstUnitPassesZ",       FirstAliases(26 * 26),      u"[A"},
      {"AndGoesOn",              FirstAliases(26 * 26 + 27), u"\\B"},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    BareWriter writer;
    int number = 0;
    for (std::u16string const& prefix : row.used) writer.AddNamespace(prefix, URI(number++));
    writer.StartElement(u"a", u"");
    EXPECT_EQ(writer.GenerateAlias(), row.expected);
    // What comes in an element goes with it, also where it replaces what was there.
    writer.StartElement(u"b", u"");
    for (int i = 0; i < 3 * number; ++i) writer.AddNamespace(writer.GenerateAlias(), URI(i));
    writer.EndElement();
    EXPECT_EQ(writer.GenerateAlias(), row.expected);
    EXPECT_EQ(writer.PrefixOf(URI(0)), row.used[0]);
    EXPECT_EQ(writer.GetEffectiveNamespaces(writer.Current()).size(), row.used.size() + 1);
  }
}

// Neither an element nor a prefix costs more the more prefixes are in force.
TEST(XmlWriter, CostFollowsTheNumberOfPrefixesAdded) {
  constexpr int kPrefixes = 20'000, kLevels = 990;
  rusage before{}, after{};
  getrusage(RUSAGE_SELF, &before);
  BareWriter writer;
  for (int i = 0; i < kPrefixes; ++i) writer.AddNamespace(u"p" + FormatString(u"%d", i), URI(i));
  for (int i = 0; i < kLevels; ++i) {
    writer.StartElement(u"a", u"");
    writer.AddContextNamespace(writer.Current(), URI(kPrefixes + i), writer.GenerateAlias());
  }
  for (int i = 0; i < kPrefixes; ++i) {
    writer.AddContextNamespace(writer.Current(), URI(-i), writer.GenerateAlias());
  }
  for (int i = 0; i < kPrefixes; ++i) {
    writer.StartElement(u"a", u"");
    writer.AddContextNamespace(writer.Current(), u"urn:x", writer.GenerateAlias());
    writer.EndElement();
  }
  EXPECT_EQ(writer.PrefixOf(URI(kPrefixes)), u"AA");
  for (int i = 0; i < kLevels; ++i) writer.EndElement();
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 100 * 1024) << "KiB; copies would be gigabytes";
  EXPECT_LT(after.ru_utime.tv_sec - before.ru_utime.tv_sec, 10) << "seconds";
}

// A writer that holds an element back until it has seen what follows depends on it.
TEST(XmlWriter, ContextThatIsNotYetCurrentSeesChangesOfItsParent) {
  BareWriter writer;
  writer.SetDefaultNamespace(u"urn:d");
  writer.StartElement(u"root", u"urn:d");
  writer.StartElement(u"a", u"urn:d");
  auto* const pending = writer.CreateContext(u"b", u"urn:d");
  writer.AddNamespace(u"p", u"urn:p");
  ASSERT_NE(writer.FindPrefix(*pending, u"urn:p"), nullptr);
  writer.SetDefaultNamespace(u"urn:a replacement that is longer");
  EXPECT_EQ(pending->GetNamespaceURI(), u"urn:d");
  EXPECT_TRUE(writer.NeedsPrefix(*pending));
  writer.AddContextNamespace(*pending, u"urn:q", u"q");
  EXPECT_EQ(writer.PrefixOf(u"urn:q"), u"(none)");
}

TEST(XmlWriter, ContextStartsAnewForEachElement) {
  BareWriter writer;
  writer.StartElement(u"root", u"");
  for (char16_t const* name : {u"a", u"a name that is longer", u"b"}) {
    writer.StartElement(name, u"urn:x");
    auto& context = writer.Current();
    EXPECT_EQ(context.GetLocalName(), name);
    EXPECT_EQ(context.GetNamespaceURI(), u"urn:x");
    EXPECT_EQ(context.GetParent()->GetLocalName(), u"root");
    EXPECT_EQ(context.m_depth, 1);
    EXPECT_EQ(context.m_childCount, 0);
    EXPECT_TRUE(context.m_startTagOpen);
    EXPECT_FALSE(context.m_writerState);
    EXPECT_EQ(context.m_arrayState, 0);
    EXPECT_EQ(writer.PrefixOf(u"urn:x"), u"(none)");
    writer.AddNamespace(u"x", u"urn:x");
    context.m_childCount = context.m_arrayState = 3;
    context.m_startTagOpen = false;
    context.m_writerState = true;
    writer.EndElement();
  }
}

TEST(XmlWriter, LimitsTheDepth) {
  struct {
    char const* name;
    std::int64_t limit;  // below 0: as it is from the start
    int fits;
    char16_t const* message;
  } const rows[] = {
      {"FromTheStart", -1, 1000, u"The document exceeds the limit of 1000 nested elements."},
      {"One", 1, 1, u"The document exceeds the limit of 1 nested elements."},
      {"None", 0, 200000, u"(nothing was thrown)"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    BareWriter writer;
    if (row.limit >= 0) writer.SetMaxDepth(static_cast<std::uint32_t>(row.limit));
    for (int i = 0; i < row.fits; ++i) writer.StartElement(u"a", u"");
    EXPECT_EQ(Thrown([&] { writer.StartElement(u"a", u""); }), row.message);
  }  // what is still open is torn down here, without recursion
}

}  // namespace
}  // namespace KestXmlLib20
