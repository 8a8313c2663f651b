// The values of others without facets, for the kinds of value that exist.
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>

#include "kestxml/values/kest_exception.h"
#include "tests/conformance/test_data.h"
#include "tests/conformance/verdict_table.h"
#include "tests/conformance/xsd_types.h"

namespace KestXmlLib20 {
namespace {

struct LiteralRow {
  std::string base;
  std::string value;
  bool isValid;
};

constexpr Reason<LiteralRow> kReasons[] = {
    {"empty element, which has the default of its declaration as value",
     [](LiteralRow const& row) { return row.isValid && row.value.empty(); }},
    {"number that its document has in a wrong place",
     [](LiteralRow const& row) {
       return !row.isValid && row.value.find_first_not_of("-.0123456789") == std::string::npos;
     }},
};

bool IsAccepted(LiteralRow const& row, XsdType const& type) {
  try {
    ReadValue(type, row.value);
    return true;
  } catch (CKestException const&) {
    return false;
  }
}

void Judge(VerdictTable& table, LiteralRow const& row, XsdType const& type) {
  if (IsAccepted(row, type) == row.isValid) return table.CountSame();
  table.Explain<LiteralRow>(kReasons, row, row.base + ' ' + row.value);
}

TEST(XsdLiteralTable, DiffersOnlyForAReason) {
  auto const rows = ReadRows(TestDataFolder() / "values" / "xsd_literals.tsv");
  if (rows.empty()) GTEST_SKIP() << "No xsd_literals.tsv; set KESTXML_DATA.";
  VerdictTable table("xsd_literals.tsv");
  for (auto const& fields : std::span(rows).subspan(1)) {
    LiteralRow const row = {fields.at(5), fields.at(7), fields.at(2) == "valid"};
    XsdType const* const type = FindXsdType(row.base);
    if (fields.at(4) != "atomic") {
      table.LeaveOut("of lists, which are no kind of value");
    } else if (!type) {
      table.LeaveOut("of kinds that do not exist");
    } else {
      Judge(table, row, *type);
    }
  }
  table.Print();
}

}  // namespace
}  // namespace KestXmlLib20
