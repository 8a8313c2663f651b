// Loading a document into the tree and destroying it.
#include <memory>
#include <stdexcept>

#include "bench/support/fresh_process.h"
#include "bench/support/measure.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

void Load(CXmlDocument& tree, BenchDocument const& document) {
  tree.LoadXmlStream(reinterpret_cast<unsigned char const*>(document.bytes.data()),
                     static_cast<std::uint32_t>(document.bytes.size()));
}

// An element has at most one end tag, so the tree can't have fewer elements than the bytes have.
void CheckTree(CXmlDocument& tree, BenchDocument const& document) {
  Load(tree, document);
  std::size_t endTags = 0;
  for (std::size_t at = 0; (at = document.bytes.find("</", at)) != std::string::npos; at += 2)
    ++endTags;
  std::size_t elements = 0;
  CXmlElement const* element = tree.GetDocumentElement();
  while (element) {
    ++elements;
    CXmlElement const* next = element->GetFirstElement();
    for (; !next && element; element = element->GetParentElm())
      next = element->GetNextSiblingElement();
    element = next;
  }
  if (elements < endTags) throw std::runtime_error("The tree has too few elements.");
}

CMeasure const g_load("load", [](benchmark::State& state, BenchDocument const& document) {
  {
    CXmlDocument tree;
    CheckTree(tree, document);
  }
  for (auto _ : state) {
    CXmlDocument tree;
    Load(tree, document);
  }
});

CMeasure const g_loadAgain("load_again",
                           [](benchmark::State& state, BenchDocument const& document) {
                             CXmlDocument tree;
                             CheckTree(tree, document);
                             for (auto _ : state) Load(tree, document);
                           });

CFirstMeasure const g_first("load_first", [](BenchDocument const& document) {
  auto tree = std::make_shared<CXmlDocument>();
  Load(*tree, document);
  return std::shared_ptr<void>(tree);
});

}  // namespace
}  // namespace KestBench
