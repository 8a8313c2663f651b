// What another library takes to read the same JSON as events.
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "bench/json/orders_json.h"

namespace KestBench {
namespace {

struct CountingHandler : nlohmann::json_sax<nlohmann::json> {
  bool null() override { return Count(); }
  bool boolean(bool) override { return Count(); }
  bool number_integer(number_integer_t) override { return Count(); }
  bool number_unsigned(number_unsigned_t) override { return Count(); }
  bool number_float(number_float_t, string_t const&) override { return Count(); }
  bool string(string_t&) override { return Count(); }
  bool binary(binary_t&) override { return Count(); }
  bool start_object(std::size_t) override { return Count(); }
  bool key(string_t&) override { return Count(); }
  bool end_object() override { return Count(); }
  bool start_array(std::size_t) override { return Count(); }
  bool end_array() override { return Count(); }
  bool parse_error(std::size_t, std::string const&, nlohmann::detail::exception const&) override {
    return false;
  }

  bool Count() {
    ++events;
    return true;
  }
  std::size_t events = 0;
};

CMeasure const g_read("nlohmann_sax", [](benchmark::State& state, BenchDocument const& document) {
  std::string const& json = JsonOf(document);
  for (auto _ : state) {
    CountingHandler handler;
    if (!nlohmann::json::sax_parse(json, &handler)) throw std::runtime_error("No JSON.");
    benchmark::DoNotOptimize(handler.events);
  }
});

}  // namespace
}  // namespace KestBench
