// Runs a fuzz target once for each file in the directories that the command line names, where no
// fuzzer is at hand.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    for (auto const& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      std::string const bytes{std::istreambuf_iterator<char>(file), {}};
      std::printf("%s\n", entry.path().c_str());
      LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
    }
}
