// The pattern facet on a million short strings, with bare PCRE2 on the same strings as its floor:
// the translated pattern compiled once, the bytes ready.
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/support/measure.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/primitive_restrictions.h"
#include "kestxml/values/unicode.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

struct PatternInput {
  char const* name;
  char16_t const* pattern;
  char const* translated;
  char16_t const* valueFormat;  // of a number
};

constexpr PatternInput kInputs[] = {
    {"product_codes", u"[A-Z]{3}-[0-9]{4,6}(-[a-z]+)?", "^([A-Z]{3}-[0-9]{4,6}(-[a-z]+)?)$",
     u"ABC-%04d"},
    {"xml_names", u"\\i\\c*", "^(([^\\W\\d]|:)(\\w|\\.|-|:)*)$", u"item_%d"},
};

constexpr int kValues = 10'000;
constexpr int kRounds = 100;  // through the values, which makes a million

std::vector<std::u16string> MakeValues(PatternInput const& input) {
  std::vector<std::u16string> values;
  for (int i = 0; i < kValues; ++i) values.push_back(FormatString(input.valueFormat, i));
  return values;
}

template <typename Matches>
void Run(benchmark::State& state, std::vector<std::u16string> const& values,
         Matches const& matchesAll) {
  try {
    if (!matchesAll()) throw std::runtime_error("A value does not match.");
    for (auto _ : state) {
      for (int round = 0; round < kRounds; ++round) benchmark::DoNotOptimize(matchesAll());
    }
  } catch (...) {
    state.SkipWithError(TextOfFailure().c_str());
  }
  std::size_t length = 0;
  for (std::u16string const& value : values) length += value.size();
  state.SetBytesProcessed(state.iterations() * kRounds * static_cast<std::int64_t>(length));
}

struct FreeCode {
  void operator()(pcre2_code* code) const { pcre2_code_free(code); }
  void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
};

void RunFloor(benchmark::State& state, PatternInput const& input) {
  auto const values = MakeValues(input);
  std::vector<std::string> subjects;
  for (std::u16string const& value : values) subjects.push_back(ToUtf8(value));
  int error = 0;
  std::size_t offset = 0;
  std::unique_ptr<pcre2_code, FreeCode> const code(
      pcre2_compile(reinterpret_cast<PCRE2_SPTR>(input.translated), PCRE2_ZERO_TERMINATED,
                    PCRE2_UTF, &error, &offset, nullptr));
  std::unique_ptr<pcre2_match_data, FreeCode> const match(
      pcre2_match_data_create_from_pattern(code.get(), nullptr));
  Run(state, values, [&] {
    return std::ranges::all_of(subjects, [&](std::string const& subject) {
      return pcre2_match(code.get(), reinterpret_cast<PCRE2_SPTR>(subject.data()), subject.size(),
                         0, PCRE2_ANCHORED, match.get(), nullptr) >= 1;
    });
  });
}

void RunCheck(benchmark::State& state, PatternInput const& input) {
  auto const values = MakeValues(input);
  std::vector<KestVariant> variants(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) variants[i].SetString(values[i]);
  CPrimitiveRestrictions const facets(input.pattern, -1, -1, u"", u"", u"", u"", -1, -1, -1);
  Run(state, values, [&] {
    for (KestVariant const& variant : variants) {
      CheckPrimitiveRestriction(u"code", variant, ItemType_string, facets);
    }
    return true;
  });
}

bool Register() {
  using Measure = void (*)(benchmark::State&, PatternInput const&);
  auto const add = [](std::string const& name, Measure measure, PatternInput const& input) {
    benchmark::RegisterBenchmark((name + "/" + input.name).c_str(), [measure, &input](
                                                                        benchmark::State& state) {
      measure(state, input);
    })->Unit(benchmark::kMillisecond);
  };
  for (PatternInput const& input : kInputs) {
    add("floor", RunFloor, input);
    add("check_pattern", RunCheck, input);
  }
  return true;
}

bool const g_registered = Register();

}  // namespace
}  // namespace KestBench
