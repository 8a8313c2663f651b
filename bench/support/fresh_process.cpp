#include "bench/support/fresh_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <stdexcept>

namespace KestBench {
namespace {

struct Declared {
  std::string name;
  CFirstMeasure::Load load;
};

std::vector<Declared>& DeclaredMeasures() {
  static std::vector<Declared> measures;
  return measures;
}

struct Order {
  std::size_t measure;
  std::size_t document;
};

struct Outcome {
  double seconds;  // of processor time
  double heldBytes;
  double peakBytes;
  char error[160];  // empty when all went well
};

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// A line of /proc/self/status, such as "VmRSS:", in bytes.
double MemoryOf(std::string const& name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  double kilobytes = 0;
  while (status >> word)
    if (word == name && status >> kilobytes) break;
  return kilobytes * 1024;
}

Outcome Measure(CFirstMeasure::Load load, BenchDocument const& document) {
  Outcome outcome{};
  double const before = MemoryOf("VmRSS:");
  double const start = ProcessorSeconds();
  std::shared_ptr<void> held = load(document);
  double const loaded = ProcessorSeconds();
  outcome.heldBytes = MemoryOf("VmRSS:") - before;
  outcome.peakBytes = MemoryOf("VmHWM:") - before;
  double const destroying = ProcessorSeconds();
  held.reset();
  outcome.seconds = loaded - start + ProcessorSeconds() - destroying;
  return outcome;
}

Outcome Carry(Order const& order) {
  try {
    return Measure(DeclaredMeasures().at(order.measure).load, BenchDocuments().at(order.document));
  } catch (...) {
    Outcome outcome{};
    std::snprintf(outcome.error, sizeof outcome.error, "%s", TextOfFailure().c_str());
    return outcome;
  }
}

// A process that forks a copy of itself for each order, and does nothing else, so that every copy
// finds the state in which the first was.
class CFreshProcesses {
 public:
  CFreshProcesses() {
    if (pipe(m_orders) != 0 || pipe(m_outcomes) != 0 || (m_process = fork()) < 0)
      throw std::runtime_error("A process for first runs can't be started.");
    if (m_process == 0) Serve();
    close(m_orders[0]);
    close(m_outcomes[1]);
  }
  CFreshProcesses(CFreshProcesses const&) = delete;
  CFreshProcesses& operator=(CFreshProcesses const&) = delete;
  ~CFreshProcesses() {
    close(m_orders[1]);  // which ends it
    close(m_outcomes[0]);
    waitpid(m_process, nullptr, 0);
  }

  Outcome Run(Order const& order) {
    Outcome outcome{};
    if (write(m_orders[1], &order, sizeof order) != sizeof order ||
        read(m_outcomes[0], &outcome, sizeof outcome) != sizeof outcome)
      throw std::runtime_error("The process for first runs is gone.");
    return outcome;
  }

 private:
  [[noreturn]] void Serve() {
    close(m_orders[1]);
    Order order{};
    bool alive = true;
    while (alive && read(m_orders[0], &order, sizeof order) == sizeof order) {
      pid_t const child = fork();
      if (child == 0) {
        Outcome const outcome = Carry(order);
        _exit(write(m_outcomes[1], &outcome, sizeof outcome) == sizeof outcome ? 0 : 1);
      }
      int status = 0;
      alive = child > 0 && waitpid(child, &status, 0) == child && status == 0;
    }
    _exit(0);
  }

  int m_orders[2];
  int m_outcomes[2];
  pid_t m_process = 0;
};

CFreshProcesses& FreshProcesses() {
  static CFreshProcesses processes;
  return processes;
}

void RunFirst(benchmark::State& state, Order const& order) {
  auto const size = static_cast<double>(BenchDocuments()[order.document].bytes.size());
  for (auto _ : state) {
    Outcome const outcome = FreshProcesses().Run(order);
    if (outcome.error[0]) {
      state.SkipWithError(outcome.error);
      break;
    }
    state.SetIterationTime(outcome.seconds);
    state.counters["held"] = outcome.heldBytes / size;
    state.counters["peak"] = outcome.peakBytes / size;
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(size));
}

}  // namespace

CFirstMeasure::CFirstMeasure(char const* name, Load load) {
  DeclaredMeasures().push_back({name, load});
}

void CFirstMeasure::RegisterAll() {
  constexpr std::size_t kSmallest = 1'000'000;
  std::vector<BenchDocument> const& documents = BenchDocuments();
  FreshProcesses();
  for (std::size_t document = 0; document < documents.size(); ++document)
    for (std::size_t measure = 0; measure < DeclaredMeasures().size(); ++measure) {
      if (documents[document].bytes.size() < kSmallest) continue;
      std::string const name = DeclaredMeasures()[measure].name + "/" + documents[document].name;
      Order const order{measure, document};
      benchmark::RegisterBenchmark(name.c_str(),
                                   [order](benchmark::State& state) { RunFirst(state, order); })
          ->UseManualTime()
          ->Iterations(1)
          ->Unit(benchmark::kMicrosecond);
    }
}

}  // namespace KestBench
