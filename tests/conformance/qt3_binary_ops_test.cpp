// Comparison and arithmetic of dates, spans and numbers, from the tests of others for XPath.
#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/kest_exception.h"
#include "tests/conformance/test_data.h"
#include "tests/conformance/verdict_table.h"
#include "tests/conformance/xsd_types.h"

namespace KestXmlLib20 {
namespace {

struct OperationRow {
  std::string leftType, left;
  std::string sign;
  std::string rightType, right;
  std::string expectation, expected;
};

bool IsInteger(ItemType kind) {
  return (kind >= ItemType_i1 && kind <= ItemType_ui8) || kind == ItemType_integer;
}

bool IsDate(ItemType kind) {
  return (kind >= ItemType_yearMonth && kind <= ItemType_time);
}

ItemType KindOf(std::string_view type) {
  XsdType const* const found = FindXsdType(type);
  return found ? found->kind : ItemType_Invalid;
}

constexpr Reason<OperationRow> kReasons[] = {
    {"difference of two dates, which is always nothing",
     [](OperationRow const& row) { return row.sign == "-" && IsDate(KindOf(row.rightType)); }},
    {"durations that differ by less than a day, which are equal",
     [](OperationRow const& row) { return KindOf(row.leftType) == ItemType_duration; }},
    {"dates in different zones, whose days in UTC are compared without their hours",
     [](OperationRow const& row) {
       return (row.leftType == "date" || row.leftType == "gYearMonth") &&
              row.left.back() != row.right.back();
     }},
};

// Of each kind, years, months and days with their zones included.
CDateTime ReadDate(ItemType kind, std::string const& text) {
  std::u16string const trimmed = CWhitespaceUtils::Collapse(FromUtf8(text));
  CDateTime value;
  if (kind == ItemType_datetime) {
    value.ParseXSDDateTime(trimmed);
  } else if (kind == ItemType_time) {
    value.ParseXSDTime(trimmed);
  } else {
    value.ParseXSDDate(trimmed);
  }
  return value;
}

using Result = std::optional<std::u16string>;  // nothing where there is no such operation

std::u16string ToText(bool value) {
  return value ? u"true" : u"false";
}

// @p order is that of the left value to the right, as a CompareTo gives it.
Result Compare(std::string_view sign, CDateTime::DTCompareResult order) {
  bool const isEqual = order == CDateTime::DTCompareResult_Equal;
  bool const isLess = order == CDateTime::DTCompareResult_LessThan;
  bool const isGreater = order == CDateTime::DTCompareResult_GreaterThan;
  if (sign == "eq") return ToText(isEqual);
  if (sign == "ne") return ToText(!isEqual);
  if (sign == "lt") return ToText(isLess);
  if (sign == "le") return ToText(isLess || isEqual);
  if (sign == "gt") return ToText(isGreater);
  if (sign == "ge") return ToText(isGreater || isEqual);
  return std::nullopt;
}

template <typename Number>
Result CompareNumbers(std::string_view sign, Number const& left, Number const& right) {
  return Compare(sign, left == right  ? CDateTime::DTCompareResult_Equal
                       : left < right ? CDateTime::DTCompareResult_LessThan
                                      : CDateTime::DTCompareResult_GreaterThan);
}

template <typename Number>
Result Calculate(std::string_view sign, Number const& left, Number const& right) {
  if (sign == "+") return (left + right).ToString();
  if (sign == "-") return (left - right).ToString();
  if (sign == "*") return (left * right).ToString();
  return CompareNumbers(sign, left, right);
}

Result OfIntegers(OperationRow const& row) {
  auto const left = CBigInteger(FromUtf8(row.left).c_str());
  auto const right = CBigInteger(FromUtf8(row.right).c_str());
  if (row.sign == "idiv") return (left / right).ToString();
  if (row.sign == "mod") return (left % right).ToString();
  if (row.sign == "div") return (CDecimal(left) / CDecimal(right)).ToString();
  return Calculate(row.sign, left, right);
}

Result OfDecimals(OperationRow const& row) {
  auto const left = CDecimal(FromUtf8(row.left));
  auto const right = CDecimal(FromUtf8(row.right));
  if (row.sign == "div") return (left / right).ToString();
  return Calculate(row.sign, left, right);
}

CDateTimeSpan ReadSpan(std::string const& text) {
  CDateTimeSpan span;
  span.ParseXSDDuration(FromUtf8(text));
  return span;
}

Result OfDates(OperationRow const& row) {
  CDateTime const left = ReadDate(KindOf(row.leftType), row.left);
  if (KindOf(row.rightType) == ItemType_duration) {
    CDateTimeSpan const span = ReadSpan(row.right);
    if (row.sign == "+") return (left + span).ToString();
    if (row.sign == "-") return (left - span).ToString();
    return std::nullopt;
  }
  CDateTime const right = ReadDate(KindOf(row.rightType), row.right);
  if (row.sign == "-") return (left - right).ToString();
  return Compare(row.sign, left.CompareTo(right));
}

bool IsExact(ItemType kind) {
  return IsInteger(kind) || kind == ItemType_decimal;
}

Result Evaluate(OperationRow const& row) {
  ItemType const left = KindOf(row.leftType);
  ItemType const right = KindOf(row.rightType);
  if (IsInteger(left) && IsInteger(right)) return OfIntegers(row);
  if (IsExact(left) && IsExact(right)) return OfDecimals(row);
  if (IsDate(left) && (IsDate(right) || right == ItemType_duration)) return OfDates(row);
  if (left != ItemType_duration || right != ItemType_duration) return std::nullopt;
  return Compare(row.sign, ReadSpan(row.left).CompareTo(ReadSpan(row.right)));
}

bool IsAsExpected(OperationRow const& row, std::u16string const& result) {
  if (row.expectation == "assert-true") return result == u"true";
  if (row.expectation == "assert-false") return result == u"false";
  std::u16string const expected = FromUtf8(row.expected);
  if (row.expectation == "assert-string-value") return result == expected;
  return CDecimal(result) == CDecimal(expected);
}

bool IsInOneZoneAlone(OperationRow const& row) {
  ItemType const left = KindOf(row.leftType);
  ItemType const right = KindOf(row.rightType);
  return IsDate(left) && IsDate(right) &&
         ReadDate(left, row.left).IsUTC() != ReadDate(right, row.right).IsUTC();
}

void Judge(VerdictTable& table, OperationRow const& row) {
  if (!row.expectation.starts_with("assert-")) {
    return table.LeaveOut("with an error or an expression as expectation");
  }
  if (IsInOneZoneAlone(row)) return table.LeaveOut("of two dates, one of them in an implicit zone");
  Result result;
  try {
    result = Evaluate(row);
  } catch (CKestException const& refusal) {
    result = refusal.GetMessageW();
  }
  if (!result) return table.LeaveOut("operations that no class has");
  if (IsAsExpected(row, *result)) return table.CountSame();
  table.Explain<OperationRow>(kReasons, row,
                              row.leftType + ' ' + row.left + ' ' + row.sign + ' ' + row.right +
                                  ": " + row.expectation + ' ' + row.expected + ", not " +
                                  ToUtf8(*result));
}

TEST(Qt3OperationTable, DiffersOnlyForAReason) {
  auto const rows = ReadRows(TestDataFolder() / "values" / "qt3_binary_ops.tsv");
  if (rows.empty()) GTEST_SKIP() << "No qt3_binary_ops.tsv; set KESTXML_DATA.";
  VerdictTable table("qt3_binary_ops.tsv");
  for (auto const& fields : std::span(rows).subspan(1)) {
    Judge(table, {fields.at(2), fields.at(3), fields.at(4), fields.at(5), fields.at(6),
                  fields.at(7), fields.at(8)});
  }
  table.Print();
}

}  // namespace
}  // namespace KestXmlLib20
