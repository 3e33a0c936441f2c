// Converts the documents of examples/ and compares with the expected files in tests/examples/,
// whose names say how the program is called:
//   NAME.jvx             the model of NAME.zrd
//   NAME@TIME.jvx        the model at that time
//   NAME.frames-F.N.jvx  file number N of the animation with F frames per second
//   NAME.jvd             the display file
//   NAME@TIME.jvd        the display file at that time
// The date line of an expected file holds the word DATE.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path source = VANTRY_SOURCE_DIR;

std::string contentOf(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

std::string withoutDate(const std::string& text) {
  return std::regex_replace(text, std::regex("<meta date=\"[^\"\n]*\"/>"), "<meta date=\"DATE\"/>",
                            std::regex_constants::format_first_only);
}

std::vector<std::string> expectedFiles() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(source / "tests/examples")) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The call that an expected file's name stands for.
struct Call {
  explicit Call(const std::string& fileName) {
    static const std::regex form(R"(([^@.]+)(?:@([^@]+?))?(?:\.frames-(\d+)\.(\d+))?\.(jvx|jvd))");
    std::smatch parts;
    if (!std::regex_match(fileName, parts, form)) return;
    document = source / "examples" / (parts[1].str() + ".zrd");
    if (parts[2].matched) options += " -t " + parts[2].str();
    if (parts[3].matched) options += " -f " + parts[3].str();
    if (parts[5] == "jvd") options += " -d";
    if (parts[4].matched) frame = "." + parts[4].str();
  }
  fs::path document;
  std::string options;
  std::string frame;
};

class Example : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    std::string pattern = fs::temp_directory_path() / "vantry-XXXXXX";
    ASSERT_TRUE(mkdtemp(pattern.data()));
    folder_ = pattern;
  }
  void TearDown() override { fs::remove_all(folder_); }

  fs::path folder_;
};

TEST_P(Example, ConvertsToTheExpectedText) {
  const Call call(GetParam());
  ASSERT_TRUE(fs::exists(call.document)) << "no document for " << GetParam();
  const std::string command = std::string("'") + VANTRY_PROGRAM + "'" + call.options + " -o '" +
                              (folder_ / "out.x").string() + "' '" + call.document.string() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
  EXPECT_EQ(withoutDate(contentOf(folder_ / ("out" + call.frame + ".x"))),
            contentOf(source / "tests/examples" / GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, Example, testing::ValuesIn(expectedFiles()), [](const auto& test) {
  return std::regex_replace(test.param, std::regex("[^A-Za-z0-9]"), "_");
});

TEST(Examples, HaveAnExpectedFileEach) {
  const std::vector<std::string> expected = expectedFiles();
  for (const auto& entry : fs::directory_iterator(source / "examples")) {
    if (entry.path().extension() != ".zrd") continue;
    const std::string name = entry.path().stem();
    EXPECT_TRUE(std::any_of(expected.begin(), expected.end(), [&](const std::string& file) {
      return file.starts_with(name);
    })) << name;
  }
}

}  // namespace
