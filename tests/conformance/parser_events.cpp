#include "tests/conformance/parser_events.h"

#include <algorithm>
#include <utility>

#include "kestxml/values/unicode.h"
#include "tests/conformance/test_data.h"

namespace KestXmlLib20 {
namespace {

void CloseInnermost(std::vector<ElementEvents>& open) {
  ElementEvents element = std::move(open.back());
  open.pop_back();
  std::ranges::sort(element.attributes);
  open.back().children.push_back(std::move(element));
}

}  // namespace

ParserEvents ReadParserEvents(std::filesystem::path const& file) {
  ParserEvents events;
  std::vector<ElementEvents> open(1);  // the document, then the open elements
  for (auto const& row : ReadRows(file)) {
    std::string const& event = row.front();
    if (event == "S") {
      open.push_back({row.at(1), {}, {}, {}});
    } else if (event == "N") {
      events.namespaces.insert_or_assign(FromUtf8(row.at(1)), FromUtf8(row.at(2)));
    } else if (event == "A") {
      open.back().attributes.push_back(row.at(1) + '=' + row.at(3));
    } else if (event == "T") {
      open.back().text += row.at(1);
    } else if (event == "E") {
      CloseInnermost(open);
    }
  }
  events.root = std::move(open.front().children.at(0));
  return events;
}

}  // namespace KestXmlLib20
