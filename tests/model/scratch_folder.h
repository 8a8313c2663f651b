// A folder of a test's own for the files that it makes.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace KestXmlLib20 {

/// Made empty under a name that no other running test has; removed with all it holds.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "kestxml_XXXXXX").string();
    if (!mkdtemp(name.data())) ADD_FAILURE() << "no folder " << name;
    m_path = name;
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;
  ~ScratchFolder() { std::filesystem::remove_all(m_path); }

  std::string Path(std::string const& name) const { return (m_path / name).string(); }

  std::string MakeFile(std::string const& name, std::string const& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

 private:
  std::filesystem::path m_path;
};

inline std::string BytesOfFile(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace KestXmlLib20
