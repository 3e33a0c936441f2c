// Converts the documents of examples/ and compares with the expected files in tests/examples/,
// whose names say how the program is called:
//   NAME.jvx             the model of NAME.zrd
//   NAME@TIME.jvx        the model at that time
//   NAME.frames-F.N.jvx  file number N of the animation with F frames per second
//   NAME.jvd             the display file
//   NAME@TIME.jvd        the display file at that time
// The date line of an expected file holds the word DATE. The locale is C.UTF-8, which is everywhere
// and knows all letters.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "documents.h"
#include "program.h"

namespace {

namespace fs = std::filesystem;

const fs::path source = VANTRY_SOURCE_DIR;

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
    if (parts[2].matched) arguments.insert(arguments.end(), {"-t", parts[2]});
    if (parts[3].matched) arguments.insert(arguments.end(), {"-f", parts[3]});
    if (parts[5] == "jvd") arguments.emplace_back("-d");
    arguments.insert(arguments.end(), {"-o", "out.x", document});
    output = parts[4].matched ? "out." + parts[4].str() + ".x" : "out.x";
  }
  fs::path document;
  std::vector<std::string> arguments;
  std::string output;
};

class Example : public ProgramTest, public testing::WithParamInterface<std::string> {
 protected:
  Example() { setEnvironment("LC_ALL", "C.UTF-8"); }
};

TEST_P(Example, ConvertsToTheExpectedText) {
  const Call call(GetParam());
  ASSERT_TRUE(fs::exists(call.document)) << "no document for " << GetParam();
  const Outcome outcome = run(call.arguments);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(undated(read(call.output)), contentOf(source / "tests/examples" / GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, Example, testing::ValuesIn(expectedFiles()), [](const auto& test) {
  return std::regex_replace(test.param, std::regex("[^A-Za-z0-9]"), "_");
});

TEST(Examples, HaveAnExpectedFileEach) {
  const std::vector<std::string> expected = expectedFiles();
  for (const auto& entry : fs::directory_iterator(source / "examples")) {
    if (entry.path().extension() != ".zrd") continue;
    EXPECT_TRUE(std::any_of(expected.begin(), expected.end(), [&](const std::string& file) {
      return Call(file).document == entry.path();
    })) << entry.path();
  }
}

}  // namespace
