#include "tests/conformance/test_data.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>

namespace KestXmlLib20 {
namespace {

std::string Unescape(std::string_view field) {
  static constexpr std::string_view kLetters = "tnr\\";
  static constexpr std::string_view kMeanings = "\t\n\r\\";
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    std::size_t const letter =
        field[i] == '\\' && i + 1 < field.size() ? kLetters.find(field[i + 1]) : kLetters.npos;
    text += letter == kLetters.npos ? field[i] : kMeanings[letter];
    if (letter != kLetters.npos) ++i;
  }
  return text;
}

std::vector<std::string> SplitAtTabs(std::string_view line) {
  std::vector<std::string> fields;
  for (std::size_t tab; (tab = line.find('\t')) != line.npos; line.remove_prefix(tab + 1)) {
    fields.push_back(Unescape(line.substr(0, tab)));
  }
  fields.push_back(Unescape(line));
  return fields;
}

}  // namespace

std::filesystem::path TestDataFolder() {
  char const* const named = std::getenv("KESTXML_DATA");
  return std::filesystem::path(KESTXML_PROJECT_FOLDER) / (named ? named : "../shared/data");
}

std::string ReadBytes(std::filesystem::path const& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::filesystem::path> FilesBelow(std::filesystem::path const& folder) {
  std::vector<std::filesystem::path> files;
  if (!std::filesystem::is_directory(folder)) return files;
  for (auto const& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path().lexically_relative(folder));
  }
  std::ranges::sort(files);
  return files;
}

std::vector<std::vector<std::string>> ReadRows(std::filesystem::path const& file) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(ReadBytes(file));
  for (std::string line; std::getline(lines, line);) rows.push_back(SplitAtTabs(line));
  return rows;
}

}  // namespace KestXmlLib20
