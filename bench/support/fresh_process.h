// Benchmarks of the first thing that a process does.
#pragma once

#include <memory>

#include "bench/support/measure.h"

namespace KestBench {

/// Declares a benchmark whose every run is the first work of a new process, whose memory has not
/// been touched: no pool is filled, no page is mapped. One object of namespace scope for each.
///
/// Beside the time, which includes destroying what @p load returns, it reports `held`, what the
/// process grew by while it held that, and `peak`, both in bytes for a byte of the document.
/// It runs on documents of a megabyte and more.
class CFirstMeasure {
 public:
  using Load = std::shared_ptr<void> (*)(BenchDocument const& document);
  CFirstMeasure(char const* name, Load load);

  /// Registers every benchmark declared so far, and starts the process that the new ones are copies
  /// of. To be called before any benchmark has run.
  static void RegisterAll();
};

}  // namespace KestBench
