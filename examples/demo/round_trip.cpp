#include "examples/demo/round_trip.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "examples/demo/columns.h"

namespace KestDemo {

CTemporaryDirectory::CTemporaryDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "kestxml-demo-XXXXXX").string();
  if (!mkdtemp(name.data()))
    throw std::filesystem::filesystem_error(name,
                                            std::make_error_code(std::errc::permission_denied));
  m_path = name;
}

CTemporaryDirectory::~CTemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

double Milliseconds(std::function<void()> const& work) {
  auto const start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

void WriteBroken(std::filesystem::path const& file, std::filesystem::path const& broken) {
  std::ifstream in(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), {}};
  std::size_t const tag = std::min(text.find('<', text.size() / 2), text.rfind('<'));
  text.insert(tag, 1, '<');
  std::ofstream(broken, std::ios::binary) << text;
}

void PrintRow(std::ostream& out, char const* kind, std::filesystem::path const& file,
              double written, double read, bool isEqual) {
  char times[96];
  std::snprintf(times, sizeof times, "   written in %.1f ms   read again in %.1f ms   %s\n",
                written, read, isEqual ? "equal" : "NOT EQUAL");
  out << "  " << kind << Grouped(std::filesystem::file_size(file), 14) << " bytes" << times;
}

}  // namespace KestDemo
