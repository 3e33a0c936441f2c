// The documents of examples/.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

inline const std::filesystem::path sourceFolder = VANTRY_SOURCE_DIR;

inline std::vector<std::string> exampleNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(sourceFolder / "examples")) {
    if (entry.path().extension() == ".zrd") names.push_back(entry.path().stem());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Empty for a file that is not there.
inline std::string contentOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline std::string exampleNamed(const std::string& name) {
  return contentOf(sourceFolder / "examples" / (name + ".zrd"));
}

/// The tests run in a locale that knows all letters.
class AllLettersTest : public testing::Test {
 protected:
  AllLettersTest() : localeBefore_(std::setlocale(LC_CTYPE, nullptr)) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
  }
  ~AllLettersTest() override { std::setlocale(LC_CTYPE, localeBefore_.c_str()); }

 private:
  std::string localeBefore_;
};
