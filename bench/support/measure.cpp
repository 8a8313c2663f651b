#include "bench/support/measure.h"

#include <stdexcept>

#include "bench/support/expat_floor.h"

namespace KestBench {
namespace {

struct Declared {
  std::string name;
  CMeasure::Run run;
};

std::vector<Declared>& DeclaredMeasures() {
  static std::vector<Declared> measures;
  return measures;
}

void RunOn(benchmark::State& state, CMeasure::Run run, BenchDocument const& document) {
  try {
    run(state, document);
  } catch (std::exception const& failure) {
    state.SkipWithError(failure.what());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.bytes.size()));
}

CMeasure const g_floor("floor", [](benchmark::State& state, BenchDocument const& document) {
  for (auto _ : state) ParseWithBareExpat(document.bytes);
});

}  // namespace

CMeasure::CMeasure(char const* name, Run run) {
  DeclaredMeasures().push_back({name, run});
}

void CMeasure::RegisterAll() {
  for (BenchDocument const& document : BenchDocuments())
    for (Declared const& measure : DeclaredMeasures())
      benchmark::RegisterBenchmark(
          (measure.name + "/" + document.name).c_str(),
          [run = measure.run, &document](benchmark::State& state) { RunOn(state, run, document); })
          ->Unit(benchmark::kMicrosecond);
}

}  // namespace KestBench
