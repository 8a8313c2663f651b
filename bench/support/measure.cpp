#include "bench/support/measure.h"

#include <exception>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

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
  } catch (...) {
    state.SkipWithError(TextOfFailure().c_str());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.bytes.size()));
}

}  // namespace

std::string TextOfFailure() {
  try {
    throw;
  } catch (KestXmlLib20::CKestException const& failure) {
    return KestXmlLib20::ToUtf8(failure.GetFullMessage());
  } catch (std::exception const& failure) {
    return failure.what();
  }
}

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
