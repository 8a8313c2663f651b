#include "examples/demo/line_diff.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace KestDemo {
namespace {

using Lines = std::vector<std::string_view>;

Lines SplitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

/// How many lines the texts from line i and line j on have in common, at [i][j].
std::vector<std::vector<std::size_t>> CommonLines(Lines const& before, Lines const& after) {
  std::vector common(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
  for (std::size_t i = before.size(); i-- > 0;)
    for (std::size_t j = after.size(); j-- > 0;)
      common[i][j] = before[i] == after[j] ? common[i + 1][j + 1] + 1
                                           : std::max(common[i + 1][j], common[i][j + 1]);
  return common;
}

}  // namespace

void PrintChangedLines(std::ostream& out, std::string_view before, std::string_view after) {
  Lines const old = SplitLines(before);
  Lines const now = SplitLines(after);
  auto const common = CommonLines(old, now);
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < old.size() || j < now.size()) {
    if (i < old.size() && j < now.size() && old[i] == now[j]) {
      ++i;
      ++j;
    } else if (j == now.size() || (i < old.size() && common[i + 1][j] >= common[i][j + 1])) {
      out << "  - " << old[i++] << '\n';
    } else {
      out << "  + " << now[j++] << '\n';
    }
  }
}

}  // namespace KestDemo
