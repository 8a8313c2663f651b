#include "bench/support/expat_floor.h"

#define XML_UNICODE
#include <expat.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace KestBench {
namespace {

void OnStartElement(void*, XML_Char const*, XML_Char const**) {}
void OnEndElement(void*, XML_Char const*) {}
void OnStartNamespace(void*, XML_Char const*, XML_Char const*) {}
void OnEndNamespace(void*, XML_Char const*) {}
void OnText(void*, XML_Char const*, int) {}

struct ParserFree {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using OwnedParser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserFree>;

}  // namespace

void ParseWithBareExpat(std::string_view document) {
  constexpr XML_Char kNamespaceSeparator = 1;
  OwnedParser const parser(XML_ParserCreateNS(nullptr, kNamespaceSeparator));
  XML_SetElementHandler(parser.get(), OnStartElement, OnEndElement);
  XML_SetNamespaceDeclHandler(parser.get(), OnStartNamespace, OnEndNamespace);
  XML_SetCharacterDataHandler(parser.get(), OnText);
  if (XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE) ==
      XML_STATUS_OK)
    return;
  throw std::runtime_error("Expat refuses the document in line " +
                           std::to_string(XML_GetCurrentLineNumber(parser.get())) + ": " +
                           XML_ErrorString(XML_GetErrorCode(parser.get())));
}

}  // namespace KestBench
