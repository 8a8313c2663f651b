// How benchmarks are declared, and which documents they run on.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace KestBench {

/// A document that is measured.
struct BenchDocument {
  std::string name;   ///< without a slash, such as "orders_30MB"
  std::string bytes;  ///< as they would stand in a file
};

/// The documents of this run: the file that the command line names, or else the two of
/// orders_document.h. Valid until the process ends.
std::vector<BenchDocument> const& BenchDocuments();

/// What the exception that is being handled says.
std::string TextOfFailure();

/// Declares a benchmark that runs on each document. One object of namespace scope for each:
///
///     CMeasure const g_load("load", [](benchmark::State& state, BenchDocument const& document) {
///       CheckTree(Load(document));                      // once
///       for (auto _ : state) Load(document);
///     });
///
/// Bytes a second follow from the document's size. The benchmark is named "load/orders_30MB".
/// In the table that ends a run, every benchmark `measure/input` is compared with `floor/input`;
/// a benchmark that works on other data than documents registers such a pair itself.
class CMeasure {
 public:
  using Run = void (*)(benchmark::State& state, BenchDocument const& document);
  CMeasure(char const* name, Run run);

  /// Registers every measure declared so far for every document.
  static void RegisterAll();
};

}  // namespace KestBench
