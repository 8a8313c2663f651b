// The facets of others, for the kinds of value that exist.
#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/primitive_restrictions.h"
#include "kestxml/values/unicode.h"
#include "tests/conformance/test_data.h"
#include "tests/conformance/verdict_table.h"
#include "tests/conformance/xsd_types.h"

namespace KestXmlLib20 {
namespace {

struct Facet {
  std::string name;
  std::string value;
};

// From [["minLength", "3", 1], ["maxLength", "10", 2]]: what stands between quotes. The numbers
// count steps of derivation.
std::vector<Facet> ReadFacets(std::string const& json) {
  std::istringstream rest(json);
  auto const read = [&](std::string& text) { return !!std::getline(rest, text, '"'); };
  std::vector<Facet> facets;
  Facet facet;
  std::string between;
  while (read(between) && read(facet.name) && read(between) && read(facet.value)) {
    facets.push_back(facet);
  }
  return facets;
}

// Restrictions with that facet alone.
CPrimitiveRestrictions Restrict(Facet const& facet) {
  std::u16string const text = FromUtf8(facet.value);
  auto const textOf = [&](char const* name) { return facet.name == name ? text.c_str() : nullptr; };
  auto const numberOf = [&](char const* name) {
    return facet.name == name ? std::stoi(facet.value) : -1;
  };
  return {textOf("pattern"),         numberOf("minLength"),  numberOf("maxLength"),
          textOf("minInclusive"),    textOf("maxInclusive"), textOf("minExclusive"),
          textOf("maxExclusive"),    numberOf("length"),     numberOf("totalDigits"),
          numberOf("fractionDigits")};
}

struct FacetRow {
  std::string base;
  std::vector<Facet> facets;
  std::string value;
  bool isValid;
  bool isDoubted;  // another validator says the contrary

  auto Count(std::string_view facet) const {
    return std::ranges::count(facets, facet, &Facet::name);
  }
};

// Whether the value is one of its type and every facet allows it.
bool IsAllowed(FacetRow const& row, XsdType const& type) {
  try {
    KestVariant const value = ReadValue(type, row.value);
    for (Facet const& facet : row.facets) {
      if (facet.name == "whiteSpace") continue;  // collapse is the only one, and changes no verdict
      CheckPrimitiveRestriction(u"n", value, type.kind, Restrict(facet));
    }
    return true;
  } catch (CKestException const&) {
    return false;
  }
}

bool IsMonthOrDay(FacetRow const& row) {
  return row.base == "gMonth" || row.base == "gDay";
}

constexpr Reason<FacetRow> kReasons[] = {
    {"length of a QName",  // any length is valid
     [](FacetRow const& row) { return row.isValid && row.base == "QName"; }},
    {"minus sign counted as a digit",
     [](FacetRow const& row) {
       return row.isValid && row.value.starts_with('-') && row.Count("totalDigits") > 0 &&
              FindXsdType(row.base)->kind == ItemType_integer;
     }},
    {"malformed base64, which is no error",
     [](FacetRow const& row) {
       return !row.isValid && row.base == "base64Binary" && row.value.size() % 4 != 0;
     }},
    {"durations that differ by less than a day, which are equal",
     [](FacetRow const& row) {
       return row.base == "duration" && row.value.find('T') != std::string::npos;
     }},
    {"mistake of the suite: the value is clearly on the other side of the bound",
     [](FacetRow const& row) { return row.isDoubted && IsMonthOrDay(row); }},
};

char const* WhyLeftOut(FacetRow const& row, std::string_view variety) {
  if (variety != "atomic") return "of lists, which are no kind of value";
  if (!FindXsdType(row.base)) return "of kinds that do not exist";
  if (row.Count("enumeration") > 0) return "with enumerations, which are not checked here";
  if (row.Count("pattern") > 1) return "with several patterns, which are alternatives";
  return nullptr;
}

void Judge(VerdictTable& table, FacetRow const& row) {
  if (IsAllowed(row, *FindXsdType(row.base)) == row.isValid) return table.CountSame();
  Facet const& facet = row.facets.front();
  table.Explain<FacetRow>(kReasons, row,
                          row.base + ' ' + facet.name + ' ' + facet.value + " on " + row.value);
}

TEST(XsdFacetTable, DiffersOnlyForAReason) {
  auto const rows = ReadRows(TestDataFolder() / "values" / "xsd_facets.tsv");
  if (rows.empty()) GTEST_SKIP() << "No xsd_facets.tsv; set KESTXML_DATA.";
  VerdictTable table("xsd_facets.tsv");
  for (auto const& fields : std::span(rows).subspan(1)) {
    FacetRow const row = {fields.at(5), ReadFacets(fields.at(7)), fields.at(8),
                          fields.at(2) == "valid",
                          !fields.at(6).empty() && fields.at(6) != fields.at(2)};
    if (char const* const why = WhyLeftOut(row, fields.at(4))) {
      table.LeaveOut(why);
    } else {
      Judge(table, row);
    }
  }
  table.Print();
}

}  // namespace
}  // namespace KestXmlLib20
