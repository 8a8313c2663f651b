// xmlconf FOLDER: loads every file of the W3C XML conformance suite that lies in FOLDER, and
// compares with what Expat says of it, and with what Expat's own tool says of those in the table of
// the test data. Fails on a difference that no reason explains, and when there is nothing to load.
#define XML_UNICODE
#include <expat.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/document/xml_document.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"
#include "tests/conformance/test_data.h"

namespace KestXmlLib20 {
namespace {

using std::filesystem::path;

constexpr std::string_view kAccepted = "ok";
constexpr std::string_view kLine = " at line ";

// Verdicts that rightly differ.
struct Reason {
  std::string_view expat;
  std::string_view here;
  std::string_view why;
};
constexpr Reason kReasons[] = {
    {"err:no element found at line 1", "err:XML Stream is empty!",
     "an empty stream has a message of its own"},
    {"err:no element found", "err:XML Stream is empty!",
     "an empty stream has a message of its own"},
    {"err:prefix must not be bound to one of the reserved namespace na",
     "err:prefix must not be bound to one of the reserved namespace names",
     "the table keeps 60 characters of a message"},
};

// By the path from the suite's folder: "ok", or "err:" and the message.
using Verdicts = std::map<std::string, std::string>;

std::string VerdictHere(std::string const& bytes) try {
  CXmlDocument document;
  document.LoadXmlStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                         static_cast<std::uint32_t>(bytes.size()));
  return std::string(kAccepted);
} catch (CKestException const& exception) {
  return "err:" + ToUtf8(exception.GetMessageW());
} catch (std::exception const& exception) {
  return std::string("not an exception of the library: ") + exception.what();
}

std::string VerdictOfExpat(std::string const& bytes) {
  constexpr XML_Char kSeparator = 1;
  std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> const parser(
      XML_ParserCreateNS(nullptr, kSeparator), XML_ParserFree);
  auto const length = static_cast<int>(bytes.size());
  if (XML_Parse(parser.get(), bytes.data(), length, XML_TRUE) == XML_STATUS_OK) {
    return std::string(kAccepted);
  }
  return std::string("err:") + XML_ErrorString(XML_GetErrorCode(parser.get())) +
         std::string(kLine) + std::to_string(XML_GetCurrentLineNumber(parser.get()));
}

Verdicts LoadAll(path const& folder, std::string (*verdict)(std::string const& bytes)) {
  Verdicts verdicts;
  for (path const& file : FilesBelow(folder)) {
    verdicts.emplace(file.generic_string(), verdict(ReadBytes(folder / file)));
  }
  return verdicts;
}

Verdicts WithoutLines(Verdicts verdicts) {
  for (auto& [file, verdict] : verdicts)
    verdict.resize(std::min(verdict.find(kLine), verdict.size()));
  return verdicts;
}

// The table of the test data: a line for each test that it lists, the first names the columns.
class Table {
 public:
  explicit Table(path const& file) : m_rows(ReadRows(file)) {}

  bool IsEmpty() const { return m_rows.empty(); }

  /// What Expat's tool says with namespaces.
  Verdicts ToolVerdicts() const {
    Verdicts verdicts;
    ForEach({"uri", "expat_ns"}, [&](auto const& row) { verdicts.emplace(row[0], row[1]); });
    return verdicts;
  }

  /// The tests that the verdicts here contradict, counted by kind.
  std::map<std::string, std::size_t> Departures(Verdicts const& here) const {
    std::map<std::string, std::size_t> departures;
    ForEach({"uri", "type", "recommendation", "entities"}, [&](auto const& row) {
      auto const found = here.find(row[0]);
      if (found == here.end() || row[1] == "error") return;  // an error may be reported or not
      bool const accepted = found->second == kAccepted;
      if (accepted != (row[1] == "not-wf")) return;
      ++departures[row[1] + (accepted ? " accepted, " : " refused, ") + row[2] +
                   ", external entities: " + row[3]];
    });
    return departures;
  }

 private:
  // Calls @p use with the fields of these columns in each row.
  template <typename Use>
  void ForEach(std::vector<std::string> const& columns, Use use) const {
    for (std::size_t row = 1; row < m_rows.size(); ++row) {
      std::vector<std::string> fields;
      for (std::string const& column : columns) {
        auto const at = std::ranges::find(m_rows[0], column) - m_rows[0].begin();
        fields.push_back(m_rows[row].at(static_cast<std::size_t>(at)));
      }
      use(fields);
    }
  }

  std::vector<std::vector<std::string>> m_rows;
};

struct Counts {
  std::size_t absent = 0;
  std::size_t same = 0;
  std::map<std::string_view, std::size_t> explained;
  std::size_t unexplained = 0;
};

// Empty without one.
std::string_view ReasonFor(std::string_view expat, std::string_view here) {
  for (Reason const& reason : kReasons) {
    if (reason.expat == expat && reason.here == here) return reason.why;
  }
  return {};
}

Counts Compare(Verdicts const& here, Verdicts const& expats) {
  Counts counts;
  for (auto const& [file, expat] : expats) {
    auto const found = here.find(file);
    if (found == here.end()) {
      ++counts.absent;
    } else if (found->second == expat) {
      ++counts.same;
    } else if (auto const why = ReasonFor(expat, found->second); !why.empty()) {
      ++counts.explained[why];
    } else {
      ++counts.unexplained;
      std::cout << file << ": Expat " << expat << ", here " << found->second << '\n';
    }
  }
  return counts;
}

// Prints the counts; true when every difference is explained.
bool IsSame(std::string_view title, Verdicts const& here, Verdicts const& expats) {
  Counts const counts = Compare(here, expats);
  std::cout << title << ": " << expats.size() << " verdicts, " << counts.absent
            << " of absent files, " << counts.same << " the same";
  for (auto const& [why, count] : counts.explained) {
    std::cout << ", " << count << " different (" << why << ")";
  }
  std::cout << ", " << counts.unexplained << " different without a reason\n";
  return counts.unexplained == 0;
}

bool CheckTable(Verdicts const& here) {
  path const file = TestDataFolder() / "xml" / "xmlconf.tsv";
  Table const table(file);
  if (table.IsEmpty()) {
    std::cout << "Expat's tool: skipped, there is no " << file << "; set KESTXML_DATA\n";
    return true;
  }
  std::cout << "The suite's own judgement, where Expat departs from it:\n";
  for (auto const& [kind, count] : table.Departures(here)) {
    std::cout << "  " << count << ' ' << kind << '\n';
  }
  return IsSame("Expat's tool", WithoutLines(here), table.ToolVerdicts());
}

bool Check(path const& folder) {
  Verdicts const here = LoadAll(folder, VerdictHere);
  auto const accepted =
      static_cast<std::size_t>(std::ranges::count(here, kAccepted, &Verdicts::value_type::second));
  std::cout << "Files: " << here.size() << " loaded, " << accepted << " accepted, "
            << here.size() - accepted << " refused\n";
  bool const same = IsSame("Expat, with the line", here, LoadAll(folder, VerdictOfExpat));
  return CheckTable(here) && same && !here.empty();
}

}  // namespace
}  // namespace KestXmlLib20

int main(int argc, char** argv) {
  if (argc == 2) return KestXmlLib20::Check(argv[1]) ? 0 : 1;
  std::cerr << "usage: xmlconf FOLDER\n";
  return 2;
}
