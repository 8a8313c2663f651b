// kestxml_bench [FILE] [--rounds=N] [--benchmark_...]: runs every benchmark on FILE, or on the
// generated documents, and ends with a table of ratios to the bare parser.
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "bench/support/fresh_process.h"
#include "bench/support/measure.h"
#include "bench/support/orders_document.h"
#include "bench/support/ratio_reporter.h"

namespace KestBench {
namespace {

struct CommandLine {
  std::string fileName;
  int rounds = 15;
};

CommandLine g_commandLine;

// In a round each benchmark runs once, in random order. What the user gives comes later on the line
// and wins.
std::vector<char*> WithDefaults(int argc, char** argv) {
  static std::string defaults[] = {"--benchmark_enable_random_interleaving=true",
                                   "--benchmark_min_time=0.05"};
  std::vector<char*> arguments = {argv[0]};
  for (std::string& flag : defaults) arguments.push_back(flag.data());
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  return arguments;
}

// Takes what is ours out of @p arguments.
CommandLine TakeOwn(std::vector<char*>& arguments) {
  CommandLine own;
  std::erase_if(arguments, [&, isName = true](std::string_view argument) mutable {
    constexpr std::string_view kRounds = "--rounds=";
    if (std::exchange(isName, false)) return false;
    if (argument.starts_with(kRounds))
      own.rounds = std::stoi(std::string(argument.substr(kRounds.size())));
    else if (!argument.starts_with('-') && own.fileName.empty())
      own.fileName = argument;
    else
      return false;
    return true;
  });
  return own;
}

std::string ReadFile(std::string const& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file) throw std::runtime_error("The file " + name + " can't be read.");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<BenchDocument> MakeDocuments() {
  std::string const& file = g_commandLine.fileName;
  if (!file.empty()) return {{file.substr(file.rfind('/') + 1), ReadFile(file)}};
  return {{"orders_30MB", MakeOrders()}, {"order_4KB", MakeSmallOrder()}};
}

int RunBenchmarks(int argc, char** argv) {
  std::vector<char*> arguments = WithDefaults(argc, argv);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  arguments.resize(static_cast<std::size_t>(count));
  g_commandLine = TakeOwn(arguments);
  count = static_cast<int>(arguments.size());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;

  CFirstMeasure::RegisterAll();
  CMeasure::RegisterAll();
  CRatioReporter reporter;
  for (int round = 0; round < g_commandLine.rounds; ++round) {
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (reporter.IsEmpty()) break;  // they were only listed
  }
  reporter.PrintRatios(std::cout);
  return 0;
}

}  // namespace

std::vector<BenchDocument> const& BenchDocuments() {
  static std::vector<BenchDocument> const documents = MakeDocuments();
  return documents;
}

}  // namespace KestBench

int main(int argc, char** argv) {
  try {
    return KestBench::RunBenchmarks(argc, argv);
  } catch (std::exception const& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
