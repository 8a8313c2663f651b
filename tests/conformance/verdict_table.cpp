#include "tests/conformance/verdict_table.h"

#include <gtest/gtest.h>

#include <iostream>

namespace KestXmlLib20 {

void VerdictTable::CountExplained(std::string_view reason, bool isSame) {
  Explained& explained = m_explained[reason];
  ++(isSame ? explained.same : explained.different);
}

void VerdictTable::FailToExplain(std::string_view row) {
  ++m_unexplained;
  ADD_FAILURE() << m_title << ": nothing explains the row " << row;
}

void VerdictTable::Print() const {
  std::size_t compared = m_same + m_unexplained;
  for (auto const& [reason, rows] : m_explained) compared += rows.same + rows.different;
  EXPECT_GT(compared, 0U) << m_title;

  std::cout << '\n'
            << m_title << ": " << compared << " rows compared, " << m_same << " the same, "
            << m_unexplained << " different without a reason\n\n"
            << "| reason | different | the same by chance |\n| --- | --- | --- |\n";
  for (auto const& [reason, rows] : m_explained)
    std::cout << "| " << reason << " | " << rows.different << " | " << rows.same << " |\n";
  for (auto const& [why, rows] : m_leftOut)
    std::cout << "Left out: " << rows << ", " << why << '\n';
}

}  // namespace KestXmlLib20
