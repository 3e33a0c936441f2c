// The code that the documentation shows is code that is built and run.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

const std::filesystem::path source = VANTRY_SOURCE_DIR;

/// The lines of a file without the blanks before them.
std::vector<std::string> linesOf(const std::filesystem::path& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
  }
  return lines;
}

/// The lines that stand in blocks of C++.
std::vector<std::string> codeIn(const std::filesystem::path& path) {
  std::vector<std::string> code;
  bool isCode = false;
  for (const std::string& line : linesOf(path)) {
    if (line.starts_with("```")) {
      isCode = line == "```cpp";
    } else if (isCode && line != "// ...") {
      code.push_back(line);
    }
  }
  return code;
}

}  // namespace

TEST(Documentation, ShowsTheCodeOfTheExample) {
  const std::vector<std::string> lines = linesOf(source / "examples/host/host.cpp");
  const std::set<std::string> example(lines.begin(), lines.end());
  const std::vector<std::string> shown = codeIn(source / "docs/model.md");
  EXPECT_GT(shown.size(), 50U);
  for (const std::string& line : shown) EXPECT_TRUE(example.contains(line)) << line;
}
