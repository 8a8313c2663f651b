// What another tree library takes to load the same documents.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <stdexcept>

#include "bench/support/measure.h"

namespace KestBench {
namespace {

CMeasure const g_load("libxml2_load", [](benchmark::State& state, BenchDocument const& document) {
  for (auto _ : state) {
    xmlDocPtr const tree =
        xmlReadMemory(document.bytes.data(), static_cast<int>(document.bytes.size()), nullptr,
                      nullptr, XML_PARSE_HUGE | XML_PARSE_COMPACT | XML_PARSE_NOERROR);
    if (!tree) throw std::runtime_error("libxml2 refuses the document.");
    xmlFreeDoc(tree);
  }
});

}  // namespace
}  // namespace KestBench
