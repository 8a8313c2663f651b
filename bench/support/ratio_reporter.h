// The table of ratios at the end of a run.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace KestBench {

/// Collects the time of each benchmark in each round, and shows the usual output of the first.
/// A benchmark named `measure/input` is compared with `floor/input` of the same round, so that a
/// slow spell of the machine, which meets both, falls out.
class CRatioReporter : public benchmark::ConsoleReporter {
 public:
  CRatioReporter();

  bool ReportContext(Context const& context) override;
  void ReportRuns(std::vector<Run> const& runs) override;

  bool IsEmpty() const { return m_inputs.empty(); }

  /// One block for each input: the median time, the median of the rounds' ratios to the floor, and
  /// the ratio of the best times. The measures are in the order of their time.
  void PrintRatios(std::ostream& out) const;

 private:
  struct Samples {
    std::vector<double> seconds;  // CPU time an iteration, one for each round
    double bytes = 0;             // that an iteration went through; 0 when not told
    std::string memory;           // the counters "held" and "peak", when there are any
  };
  using Measures = std::map<std::string, Samples>;

  static void PrintInput(std::ostream& out, std::string const& input, Measures const& measures);

  std::map<std::string, Measures> m_inputs;
  bool m_isFirstRound = true;
};

}  // namespace KestBench
