#include "bench/support/ratio_reporter.h"

#include <algorithm>
#include <cstdio>

namespace KestBench {
namespace {

double Median(std::vector<double> values) {
  auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double Best(std::vector<double> const& values) {
  return *std::min_element(values.begin(), values.end());
}

// A round in which a benchmark failed has no time, so the shorter list decides.
std::vector<double> Ratios(std::vector<double> const& values, std::vector<double> const& floor) {
  std::vector<double> ratios(std::min(values.size(), floor.size()));
  for (std::size_t i = 0; i < ratios.size(); ++i) ratios[i] = values[i] / floor[i];
  return ratios;
}

// Of processor time, an iteration; a benchmark that keeps its own time gives it as real time.
double SecondsOf(benchmark::BenchmarkReporter::Run const& run) {
  bool const isManual = run.run_name.time_type == "manual_time";
  return (isManual ? run.real_accumulated_time : run.cpu_accumulated_time) /
         static_cast<double>(run.iterations);
}

std::string MemoryOf(benchmark::BenchmarkReporter::Run const& run) {
  auto const held = run.counters.find("held");
  auto const peak = run.counters.find("peak");
  if (held == run.counters.end() || peak == run.counters.end()) return {};
  char text[64];
  std::snprintf(text, sizeof text, " %9.2f %9.2f", held->second.value, peak->second.value);
  return text;
}

}  // namespace

CRatioReporter::CRatioReporter() : ConsoleReporter(OO_None) {}

bool CRatioReporter::ReportContext(Context const& context) {
  m_isFirstRound = IsEmpty();
  return !m_isFirstRound || ConsoleReporter::ReportContext(context);
}

void CRatioReporter::ReportRuns(std::vector<Run> const& runs) {
  if (m_isFirstRound) ConsoleReporter::ReportRuns(runs);
  for (Run const& run : runs) {
    std::string const& name = run.run_name.function_name;
    std::size_t const slash = name.rfind('/');
    if (run.run_type != Run::RT_Iteration || run.error_occurred || slash == std::string::npos)
      continue;
    Samples& samples = m_inputs[name.substr(slash + 1)][name.substr(0, slash)];
    double const seconds = SecondsOf(run);
    samples.seconds.push_back(seconds);
    samples.memory = MemoryOf(run);
    auto const rate = run.counters.find("bytes_per_second");
    if (rate != run.counters.end()) samples.bytes = rate->second.value * seconds;
  }
}

void CRatioReporter::PrintRatios(std::ostream& out) const {
  for (auto const& [input, measures] : m_inputs)
    if (measures.count("floor")) PrintInput(out, input, measures);
}

void CRatioReporter::PrintInput(std::ostream& out, std::string const& input,
                                Measures const& measures) {
  std::vector<Measures::const_pointer> rows;
  for (auto const& row : measures) rows.push_back(&row);
  std::sort(rows.begin(), rows.end(), [](auto const* left, auto const* right) {
    return Median(left->second.seconds) < Median(right->second.seconds);
  });

  char line[160];
  std::snprintf(line, sizeof line, "\n%-34s %11s %8s %9s %9s %9s %9s\n", input.c_str(), "median ms",
                "MB/s", "x floor", "x best", "held", "peak");
  out << line;
  Samples const& floor = measures.at("floor");
  for (auto const* row : rows) {
    auto const& [measure, samples] = *row;
    double const median = Median(samples.seconds);
    std::snprintf(line, sizeof line, "  %-32s %11.4f %8.0f %9.3f %9.3f%s\n", measure.c_str(),
                  median * 1e3, samples.bytes / median / 1e6,
                  Median(Ratios(samples.seconds, floor.seconds)),
                  Best(samples.seconds) / Best(floor.seconds), samples.memory.c_str());
    out << line;
  }
}

}  // namespace KestBench
