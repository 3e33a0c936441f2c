// Stands in for the fuzzer: runs each file that is named, and each file of a folder that is named.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz_input.h"

namespace {

namespace fs = std::filesystem;

void run(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
  std::printf("%s\n", file.c_str());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (!fs::is_directory(argv[i])) {
      run(argv[i]);
      continue;
    }
    for (const auto& entry : fs::directory_iterator(argv[i])) {
      if (entry.is_regular_file()) run(entry.path());
    }
  }
}
