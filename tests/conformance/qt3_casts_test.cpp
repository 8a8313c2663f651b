// Casts of text to a type, from the tests of others for XPath.
#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kestxml/values/kest_exception.h"
#include "tests/conformance/test_data.h"
#include "tests/conformance/verdict_table.h"
#include "tests/conformance/xsd_types.h"

namespace KestXmlLib20 {
namespace {

struct CastRow {
  std::string type;
  std::string literal;
  std::string expectation;  // what kind of one
  std::string expected;

  bool IsError() const { return expectation == "error" || expectation == "castable-assert-false"; }
  ItemType Kind() const { return FindXsdType(type)->kind; }
  bool IsExact() const { return Kind() == ItemType_decimal || Kind() == ItemType_integer; }
  bool LiteralHas(char const* anyOf) const { return literal.find_first_of(anyOf) != literal.npos; }
};

constexpr Reason<CastRow> kReasons[] = {
    {"text types take any text: names, languages and URIs have no form of their own",
     [](CastRow const& row) { return row.IsError() && row.Kind() == ItemType_string; }},
    {"reference or white space that the table has lost",
     [](CastRow const& row) { return row.type == "normalizedString" && row.expected.empty(); }},
    {"malformed base64, which is no error",
     [](CastRow const& row) { return row.IsError() && row.type == "base64Binary"; }},
    {"numbers of C, with seven or sixteen digits and another exponent",
     [](CastRow const& row) {
       bool const isReal = row.Kind() == ItemType_r4 || row.Kind() == ItemType_r8;
       return isReal && row.expectation == "assert-string-value";
     }},
    {"exponent of a decimal or an integer",
     [](CastRow const& row) { return row.IsError() && row.IsExact() && row.LiteralHas("eE"); }},
    {"signs, blanks and a fraction in an integer",
     [](CastRow const& row) {
       return row.IsError() && row.Kind() == ItemType_integer && row.LiteralHas("+-. ");
     }},
    {"an integer -0, which is less than 0",
     [](CastRow const& row) { return row.type == "nonNegativeInteger" && row.literal == "-0"; }},
    {"years of a duration, which wrap at 16 bits",
     [](CastRow const& row) {
       return row.IsError() && row.literal.ends_with("P768614336404564651Y");
     }},
    {"subtype of duration, which holds any duration as it was written",
     [](CastRow const& row) { return row.type.ends_with("Duration"); }},
    {"point without digits in a duration",
     [](CastRow const& row) { return row.IsError() && row.literal == "PT30.S"; }},
    {"year -0000", [](CastRow const& row) { return row.literal.starts_with("-0000"); }},
    {"zone beyond 14:00",
     [](CastRow const& row) { return row.IsError() && row.literal.ends_with("15:00"); }},
    {"year, month and day, which are numbers without a zone or a sign",
     [](CastRow const& row) {
       return row.type == "gYear" || row.type == "gMonth" || row.type == "gDay";
     }},
    {"sign of a zone with hour 0",
     [](CastRow const& row) { return row.literal.ends_with("-00:30"); }},
    {"text behind a time, which is passed over",
     [](CastRow const& row) { return row.IsError() && row.literal == "11:11:111"; }},
};

// Nothing where the text is refused.
std::optional<std::string> Cast(XsdType const& type, std::string_view text) {
  try {
    return ToUtf8(ReadValue(type, text).ToString());
  } catch (CKestException const&) {
    return std::nullopt;
  }
}

bool IsAsExpected(CastRow const& row, XsdType const& type) {
  auto const result = Cast(type, row.literal);
  if (row.IsError()) return !result;
  if (!result) return false;
  if (row.expectation == "assert-string-value") return *result == row.expected;
  if (row.expectation == "assert-eq") return result == Cast(type, row.expected);
  if (row.expectation == "assert-false") return *result == "false";
  return true;  // castable, and no more is said
}

char const* WhyLeftOut(CastRow const& row) {
  if (!FindXsdType(row.type)) return "to types that are no kind of value";
  if (row.expectation.ends_with("any-of") ||
      row.expected.find_first_of("\"(") != row.expected.npos) {
    return "with an expression as expectation";
  }
  return nullptr;
}

void Judge(VerdictTable& table, CastRow const& row) {
  if (IsAsExpected(row, *FindXsdType(row.type))) return table.CountSame();
  auto const result = Cast(*FindXsdType(row.type), row.literal);
  table.Explain<CastRow>(kReasons, row,
                         row.type + " of " + row.literal + ": " + row.expectation + ' ' +
                             row.expected + ", not " + result.value_or("refused"));
}

TEST(Qt3CastTable, DiffersOnlyForAReason) {
  auto const rows = ReadRows(TestDataFolder() / "values" / "qt3_casts.tsv");
  if (rows.empty()) GTEST_SKIP() << "No qt3_casts.tsv; set KESTXML_DATA.";
  VerdictTable table("qt3_casts.tsv");
  for (auto const& fields : std::span(rows).subspan(1)) {
    CastRow const row = {fields.at(2), fields.at(3), fields.at(4), fields.at(5)};
    if (char const* const why = WhyLeftOut(row)) {
      table.LeaveOut(why);
    } else {
      Judge(table, row);
    }
  }
  table.Print();
}

}  // namespace
}  // namespace KestXmlLib20
