// What another tree library takes to load and to save the same documents.
#include <pugixml.hpp>
#include <stdexcept>

#include "bench/support/measure.h"

namespace KestBench {
namespace {

void Load(pugi::xml_document& tree, std::string const& bytes) {
  pugi::xml_parse_result const result = tree.load_buffer(bytes.data(), bytes.size());
  if (!result) throw std::runtime_error(result.description());
}

struct CountingWriter : pugi::xml_writer {
  void write(void const*, std::size_t size) override { written += size; }
  std::size_t written = 0;
};

CMeasure const g_load("pugixml_load", [](benchmark::State& state, BenchDocument const& document) {
  for (auto _ : state) {
    pugi::xml_document tree;
    Load(tree, document.bytes);
  }
});

CMeasure const g_save("pugixml_save", [](benchmark::State& state, BenchDocument const& document) {
  pugi::xml_document tree;
  Load(tree, document.bytes);
  for (auto _ : state) {
    CountingWriter writer;
    tree.save(writer, "  ");
    benchmark::DoNotOptimize(writer.written);
  }
});

}  // namespace
}  // namespace KestBench
