// The floor as benchmarks: `floor` is what all others are compared with.
#include "bench/support/expat_floor.h"
#include "bench/support/fresh_process.h"
#include "bench/support/measure.h"

namespace KestBench {
namespace {

CMeasure const g_floor("floor", [](benchmark::State& state, BenchDocument const& document) {
  for (auto _ : state) ParseWithBareExpat(document.bytes);
});

CFirstMeasure const g_first("floor_first", [](BenchDocument const& document) {
  ParseWithBareExpat(document.bytes);
  return std::shared_ptr<void>();
});

}  // namespace
}  // namespace KestBench
