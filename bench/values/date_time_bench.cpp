// Dates from text and back to it, with std::from_chars and std::to_chars of the same digits as the
// floor: as one integer, and as six. And sums, which must not take longer for longer spans.
#include <charconv>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/support/measure.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/unicode.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

constexpr int kValues = 10'000;

// The same dates in each format, which takes six numbers.
std::vector<std::u16string> MakeDates(char16_t const* format) {
  std::mt19937 random(7);
  auto const pick = [&random](unsigned first, unsigned count) {
    return static_cast<unsigned>(first + random() % count);
  };
  std::vector<std::u16string> texts;
  for (int i = 0; i < kValues; ++i) {
    unsigned const fields[] = {pick(1900, 200), pick(1, 12), pick(1, 28),
                               pick(0, 24),     pick(0, 60), pick(0, 60)};
    texts.push_back(
        FormatString(format, fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]));
  }
  return texts;
}

std::vector<std::string> Narrow(std::vector<std::u16string> const& texts) {
  std::vector<std::string> narrow;
  for (std::u16string const& text : texts) narrow.push_back(ToUtf8(text));
  return narrow;
}

template <typename Text, typename RoundTrip>
void Run(benchmark::State& state, std::vector<Text> const& texts, RoundTrip const& roundTrip) {
  try {
    for (Text const& text : texts) {
      if (roundTrip(text) != text) throw std::runtime_error("A date has changed.");
    }
    for (auto _ : state) {
      for (Text const& text : texts) benchmark::DoNotOptimize(roundTrip(text));
    }
  } catch (...) {
    state.SkipWithError(TextOfFailure().c_str());
  }
  state.SetBytesProcessed(state.iterations() * kValues *
                          static_cast<std::int64_t>(texts[0].size()));
}

// Numbers and the marks between them.
std::string_view RoundTripNumbers(std::string const& text) {
  static char printed[32];
  char* out = printed;
  char const* const end = text.data() + text.size();
  for (char const* at = text.data(); at != end;) {
    std::int64_t number = 0;
    at = std::from_chars(at, end, number).ptr;
    out = std::to_chars(out, std::end(printed), number).ptr;
    if (at != end) *out++ = *at++;
  }
  return {printed, static_cast<std::size_t>(out - printed)};
}

std::u16string RoundTripDate(std::u16string const& text) {
  return CDateTime(text.c_str()).ToString();
}

struct DateInput {
  char const* name;
  char16_t const* floorFormat;  // of what the floor goes through
};

constexpr DateInput kInputs[] = {
    {"date_time_as_14_digits", u"%d%02d%02d%02d%02d%02d"},
    {"date_time_as_6_numbers", u"%d-%d-%dT%d:%d:%d"},
};

void RunFloor(benchmark::State& state, DateInput const& input) {
  Run(state, Narrow(MakeDates(input.floorFormat)), RoundTripNumbers);
}

void RunOwn(benchmark::State& state, DateInput const& /*input*/) {
  Run(state, MakeDates(u"%d-%02d-%02dT%02d:%02d:%02d"), RoundTripDate);
}

void RunAdd(benchmark::State& state, CDateTimeSpan const& span) {
  CDateTime date(2000, 1, 31, 12, 0, 0);
  for (auto _ : state) benchmark::DoNotOptimize(date + span);
}

void RunCompare(benchmark::State& state, CDateTimeSpan const& span) {
  CDateTimeSpan const other(0, 0, 1, 0, 0, 0);
  for (auto _ : state) benchmark::DoNotOptimize(span.CompareTo(other));
}

bool Register() {
  using Measure = void (*)(benchmark::State&, DateInput const&);
  auto const add = [](std::string const& name, Measure measure, DateInput const& input) {
    benchmark::RegisterBenchmark((name + "/" + input.name).c_str(), [measure, &input](
                                                                        benchmark::State& state) {
      measure(state, input);
    })->Unit(benchmark::kMicrosecond);
  };
  for (DateInput const& input : kInputs) {
    add("floor", RunFloor, input);
    add("parse_and_print", RunOwn, input);
  }
  for (std::uint32_t const days : {1U, 4'000'000'000U}) {
    CDateTimeSpan const span(0, 0, days, 0, 0, 0);
    std::string const name = "_" + std::to_string(days) + "_days";
    benchmark::RegisterBenchmark(("add" + name).c_str(), RunAdd, span);
    benchmark::RegisterBenchmark(("compare" + name).c_str(), RunCompare, span);
  }
  return true;
}

bool const g_registered = Register();

}  // namespace
}  // namespace KestBench
