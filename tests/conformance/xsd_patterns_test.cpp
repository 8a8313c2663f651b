// The patterns of others. The translation is small, so that many rows differ: each for one of the
// reasons below. A pattern that is refused needs one even where that makes the verdict right.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <span>
#include <string>
#include <vector>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/primitive_restrictions.h"
#include "kestxml/values/unicode.h"
#include "tests/conformance/test_data.h"
#include "tests/conformance/verdict_table.h"
#include "tests/conformance/xsd_types.h"
#include "tests/model/row_name.h"

namespace KestXmlLib20 {
namespace {

struct PatternRow {
  std::string pattern;
  std::string value;
  bool isValid;  // the value; or the pattern, where that is what the table is about
  std::string base = "string";
  std::string otherFacets = "[]";
};

bool Has(PatternRow const& row, char const* regex) {
  return std::regex_search(row.pattern, std::regex(regex));
}

bool HasByteFrom(unsigned char least, std::string const& text) {
  return std::ranges::any_of(text, [least](unsigned char byte) { return byte >= least; });
}

bool IsHeldAsString(std::string_view base) {
  XsdType const* const type = FindXsdType(base);
  return type && type->kind == ItemType_string;
}

constexpr Reason<PatternRow> kRefused[] = {
    {"name of a block that the translation does not know",
     [](PatternRow const& row) { return Has(row, R"(\\[pP]\{Is)"); }},
    {"class subtraction", [](PatternRow const& row) { return Has(row, R"(-\[)"); }},
    {R"(`\i` or `\c` in a class)",
     [](PatternRow const& row) { return Has(row, R"(\[[^\]]*\\[iIcC])"); }},
};

constexpr Reason<PatternRow> kMisjudgedValue[] = {
    {R"(`\d` is ASCII, so others are no digits)",
     [](PatternRow const& row) {
       return row.isValid && Has(row, R"(\\d)") && HasByteFrom(0x80, row.value);
     }},
    {R"(`\d` and `\w` are ASCII, so `\D` and `\W` match others)",
     [](PatternRow const& row) {
       return !row.isValid && Has(row, R"(\\[DW])") && HasByteFrom(0x80, row.value);
     }},
    {R"(`\p{IsBasicLatin}` or another block in a class)",
     [](PatternRow const& row) { return Has(row, R"(\[[^\]]*\\p\{Is)"); }},
    {R"(`\I` matches the colon)",
     [](PatternRow const& row) { return row.pattern == R"(\I)" && row.value == ":"; }},
    {"carriage return read as a line feed",
     [](PatternRow const& row) { return row.value.find('\r') != std::string::npos; }},
    {"category of a character above U+FFFF, where the suite knows none",
     [](PatternRow const& row) {
       return !row.isValid && Has(row, R"(^\\p\{[LM]\w\}\*$)") && HasByteFrom(0xF0, row.value);
     }},
    {"value refused by another facet",
     [](PatternRow const& row) { return !row.isValid && row.otherFacets != "[]"; }},
    {"value refused by its base type",
     [](PatternRow const& row) { return !row.isValid && !IsHeldAsString(row.base); }},
};

constexpr Reason<PatternRow> kAccepted[] = {
    {"groups of PCRE2, `(?...)`", [](PatternRow const& row) { return Has(row, R"(\(\?)"); }},
    {"lazy and possessive quantifiers",
     [](PatternRow const& row) { return Has(row, R"([*+?}][?+])"); }},
    {"escapes of PCRE2: back references, code points, assertions",
     [](PatternRow const& row) { return Has(row, R"(\\[\dxzZbB])"); }},
    {"`]` or `[` without an escape",
     [](PatternRow const& row) { return Has(row, R"(\[\[|\[[^\]]*[^\\]\[|\[\^?\]|^[^\[]*\])"); }},
    {"hyphen between two ranges", [](PatternRow const& row) { return Has(row, R"(-\w-)"); }},
    {"parentheses that close and open the group of the translation",
     [](PatternRow const& row) { return row.pattern.starts_with(')'); }},
};

void Explain(VerdictTable& table, PatternRow const& row,
             std::span<Reason<PatternRow> const> reasons, bool isSame) {
  table.Explain(reasons, row, row.pattern + " on " + row.value, isSame);
}

enum class Outcome : std::uint8_t { Matches, Differs, PatternRefused };

Outcome Match(PatternRow const& row) {
  XsdType const* const type = FindXsdType(row.base);
  auto const rule = type ? type->rule : CWhitespaceUtils::WhitespaceRule_Collapse;
  KestVariant value;
  value.FromString(FromUtf8(row.value), ItemType_string, rule);
  CPrimitiveRestrictions const facets(FromUtf8(row.pattern).c_str(), -1, -1, u"", u"", u"", u"", -1,
                                      -1, -1);
  try {
    CheckPrimitiveRestriction(u"n", value, ItemType_string, facets);
    return Outcome::Matches;
  } catch (CKestException const& refusal) {
    bool const isOfPattern = refusal.GetMessageW().starts_with(u"Invalid Regular Expression: ");
    return isOfPattern ? Outcome::PatternRefused : Outcome::Differs;
  }
}

void JudgeValue(VerdictTable& table, PatternRow const& row) {
  Outcome const outcome = Match(row);
  bool const isSame = (outcome == Outcome::Matches) == row.isValid;
  if (outcome == Outcome::PatternRefused) {
    Explain(table, row, kRefused, isSame);
  } else if (!isSame) {
    Explain(table, row, kMisjudgedValue, isSame);
  } else {
    table.CountSame();
  }
}

void JudgePattern(VerdictTable& table, PatternRow const& row) {
  bool const isRefused = Match(row) == Outcome::PatternRefused;
  if (isRefused != row.isValid) {
    table.CountSame();
  } else if (isRefused) {
    Explain(table, row, kRefused, false);
  } else {
    Explain(table, row, kAccepted, false);
  }
}

using Fields = std::vector<std::string>;

struct PatternTable {
  char const* name;
  char const* file;
  PatternRow (*read)(Fields const& fields);
  void (*judge)(VerdictTable& table, PatternRow const& row);
};

constexpr PatternTable kTables[] = {
    {"Values", "xsd_patterns.tsv",
     [](Fields const& fields) -> PatternRow {
       return {fields.at(7), fields.at(9), fields.at(2) == "valid", fields.at(5), fields.at(8)};
     },
     JudgeValue},
    {"Syntax", "xsd_pattern_syntax.tsv",
     [](Fields const& fields) -> PatternRow {
       return {fields.at(3), "", fields.at(1) == "valid"};
     },
     JudgePattern},
    {"ValuesOfALibrary", "libxml2_regexps.tsv",
     [](Fields const& fields) -> PatternRow {
       return {fields.at(1), fields.at(2), fields.at(3) == "valid"};
     },
     JudgeValue},
};

class XsdPatternTables : public testing::TestWithParam<PatternTable> {};

TEST_P(XsdPatternTables, DifferOnlyForAReason) {
  auto const rows = ReadRows(TestDataFolder() / "values" / GetParam().file);
  if (rows.empty()) GTEST_SKIP() << "No " << GetParam().file << "; set KESTXML_DATA.";
  VerdictTable table(GetParam().file);
  for (Fields const& fields : std::span(rows).subspan(1)) {
    PatternRow const row = GetParam().read(fields);
    if (row.pattern.empty()) {
      table.LeaveOut("an empty pattern is none");
    } else {
      GetParam().judge(table, row);
    }
  }
  table.Print();
}

INSTANTIATE_TEST_SUITE_P(Data, XsdPatternTables, testing::ValuesIn(kTables), RowName());

}  // namespace
}  // namespace KestXmlLib20
