// Counts of a comparison with a table of verdicts by others.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace KestXmlLib20 {

/// Why rows of one sort may differ.
template <typename Row>
struct Reason {
  char const* text;
  bool (*explains)(Row const& row);
};

/// Every row of the table is told to one of the three operations, and Print shows the counts. A row
/// that differs, or that only a fault of ours makes the same, needs its reason.
class VerdictTable {
 public:
  explicit VerdictTable(std::string title) : m_title(std::move(title)) {}

  /// The row is not about what is checked, or about nothing that exists here.
  void LeaveOut(std::string_view why) { ++m_leftOut[why]; }
  void CountSame() { ++m_same; }
  /// The row differs for the first reason that explains it; without one the test fails.
  /// @param isSame whether the verdict is that of the others for all that.
  template <typename Row>
  void Explain(std::span<Reason<Row> const> reasons, Row const& row, std::string const& description,
               bool isSame = false) {
    auto const reason =
        std::ranges::find_if(reasons, [&](Reason<Row> const& each) { return each.explains(row); });
    if (reason == reasons.end()) {
      FailToExplain(description);
    } else {
      CountExplained(reason->text, isSame);
    }
  }

  /// As a table of Markdown. Fails the test when no row was compared.
  void Print() const;

 private:
  void CountExplained(std::string_view reason, bool isSame);
  void FailToExplain(std::string_view row);

  struct Explained {
    std::size_t same = 0;
    std::size_t different = 0;
  };

  std::string m_title;
  std::size_t m_same = 0;
  std::size_t m_unexplained = 0;
  std::map<std::string_view, Explained> m_explained;
  std::map<std::string_view, std::size_t> m_leftOut;
};

}  // namespace KestXmlLib20
