// Numbers from text and back to it, with std::from_chars and std::to_chars of the same digits as
// the floor: those of a decimal and an integer as a 64-bit integer, without the point.
#include <charconv>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/support/measure.h"
#include "kestxml/values/big_integer.h"
#include "kestxml/values/conversions.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/unicode.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

constexpr int kValues = 10'000;

// Digits that do not begin with a zero or end in one.
std::vector<std::string> MakeDigits(int count, std::size_t point, int values = kValues) {
  std::mt19937 random(7);
  std::vector<std::string> texts(static_cast<std::size_t>(values));
  for (std::string& text : texts) {
    while (text.size() < static_cast<std::size_t>(count)) text += "123456789"[random() % 9];
    if (point != 0) text.insert(point, 1, '.');
  }
  return texts;
}

std::vector<std::string> Without(std::vector<std::string> texts, char unit) {
  for (std::string& text : texts) std::erase(text, unit);
  return texts;
}

std::vector<std::u16string> Widen(std::vector<std::string> const& texts) {
  std::vector<std::u16string> wide;
  for (std::string const& text : texts) wide.push_back(FromUtf8(text));
  return wide;
}

template <typename Texts, typename RoundTrip>
void Run(benchmark::State& state, Texts const& texts, RoundTrip const& roundTrip) {
  try {
    for (auto const& text : texts) {
      if (roundTrip(text) != text) throw std::runtime_error("A number has changed.");
    }
    for (auto _ : state) {
      for (auto const& text : texts) benchmark::DoNotOptimize(roundTrip(text));
    }
  } catch (...) {
    state.SkipWithError(TextOfFailure().c_str());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()) *
                          static_cast<std::int64_t>(texts[0].size()));
}

template <typename T>
std::string_view StandardRoundTrip(std::string const& text) {
  static char printed[32];
  T value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  char* const end = std::to_chars(printed, std::end(printed), value).ptr;
  return {printed, static_cast<std::size_t>(end - printed)};
}

template <typename T>
std::u16string ClassRoundTrip(std::u16string const& text) {
  return T(text.c_str()).ToString();
}

constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

std::u16string I4RoundTrip(std::u16string const& text) {
  return CConversions::i4ToString(CConversions::i4FromString(text, kCollapse));
}

std::u16string R8RoundTrip(std::u16string const& text) {
  return CConversions::r8ToString(CConversions::r8FromString(text, kCollapse));
}

struct NumberInput {
  char const* name;
  int digits;
  std::size_t point;  // 0: none
  std::string_view (*standard)(std::string const& text);
  bool isStandardWithPoint;
  std::u16string (*own)(std::u16string const& text);
};

// clang-format off
constexpr NumberInput kInputs[] = {
    {"decimal_8_digits",   8, 5, StandardRoundTrip<std::int64_t>, false, ClassRoundTrip<CDecimal>},
    {"decimal_as_double",  8, 5, StandardRoundTrip<double>,       true,  ClassRoundTrip<CDecimal>},
    {"integer_18_digits", 18, 0, StandardRoundTrip<std::int64_t>, false, ClassRoundTrip<CBigInteger>},
    {"i4_6_digits",        6, 0, StandardRoundTrip<std::int32_t>, false, I4RoundTrip},
    {"i4_9_digits",        9, 0, StandardRoundTrip<std::int32_t>, false, I4RoundTrip},
    {"r8_6_digits",        6, 3, StandardRoundTrip<double>,       true,  R8RoundTrip},
};
// clang-format on

// Sixteen digits of a double are not always those that it was read from.
std::vector<std::string> MakeTexts(NumberInput const& input) {
  auto texts = MakeDigits(input.digits, input.point);
  std::erase_if(texts, [&](std::string const& text) {
    return input.own == R8RoundTrip && ToUtf8(R8RoundTrip(FromUtf8(text))) != text;
  });
  return texts;
}

void RunFloor(benchmark::State& state, NumberInput const& input) {
  auto const texts = MakeTexts(input);
  Run(state, input.isStandardWithPoint ? texts : Without(texts, '.'), input.standard);
}

void RunOwn(benchmark::State& state, NumberInput const& input) {
  Run(state, Widen(MakeTexts(input)), input.own);
}

CBigInteger MakeNumber(int digits) {
  return Widen(MakeDigits(digits, 0, 1)).front().c_str();
}

void RunMultiply(benchmark::State& state) {
  CBigInteger const factor = MakeNumber(10'000);
  for (auto _ : state) benchmark::DoNotOptimize(factor * factor);
}

void RunDivide(benchmark::State& state) {
  CBigInteger const divisor = MakeNumber(10'000);
  CBigInteger const dividend = divisor * divisor;
  for (auto _ : state) benchmark::DoNotOptimize(dividend / divisor);
}

bool Register() {
  using Measure = void (*)(benchmark::State&, NumberInput const&);
  auto const add = [](char const* name, Measure measure, NumberInput const& input) {
    std::string const title = std::string(name) + "/" + input.name;
    benchmark::RegisterBenchmark(title.c_str(), [measure, &input](benchmark::State& state) {
      measure(state, input);
    })->Unit(benchmark::kMicrosecond);
  };
  for (NumberInput const& input : kInputs) {
    add("floor", RunFloor, input);
    add("parse_and_print", RunOwn, input);
  }
  benchmark::RegisterBenchmark("multiply_10000_digits", RunMultiply)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("divide_20000_digits_by_10000", RunDivide)
      ->Unit(benchmark::kMillisecond);
  return true;
}

bool const g_registered = Register();

}  // namespace
}  // namespace KestBench
