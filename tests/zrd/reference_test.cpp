// zrd reference: the pages of docs/reference are what it writes.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include "../driver/program.h"

namespace {

namespace fs = std::filesystem;

const fs::path pages = fs::path(VANTRY_SOURCE_DIR) / "docs" / "reference";

std::string contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  return {std::istreambuf_iterator<char>(in), {}};
}

class ReferenceCommand : public ProgramTest {
 protected:
  ReferenceCommand() {
    setProgram(ZRD_PROGRAM);
    setEnvironment("LC_ALL", "C.UTF-8");
  }

  std::set<std::string> elements() const {
    std::set<std::string> names;
    std::istringstream lines(run({"reference"}).out);
    for (std::string line; std::getline(lines, line);) names.insert(line.substr(0, line.find(':')));
    return names;
  }
};

TEST_F(ReferenceCommand, WritesThePagesOfTheManual) {
  EXPECT_EQ(run({"reference", "--markdown"}).out, contentOf(pages / "README.md"));
  std::set<std::string> files = {"README.md"};
  for (const std::string& name : elements()) {
    if (name == "P2" || name == "P3") continue;  // they are described with the lists
    EXPECT_EQ(run({"reference", "--markdown", "--element", name}).out,
              contentOf(pages / (name + ".md")));
    files.insert(name + ".md");
  }
  std::set<std::string> found;
  for (const auto& entry : fs::directory_iterator(pages)) found.insert(entry.path().filename());
  EXPECT_EQ(found, files) << "there is a page for each element, and no other";
}

TEST_F(ReferenceCommand, SaysWhatAnElementMayHold) {
  EXPECT_EQ(run({"reference", "--element", "TimeRange"}).out, R"(TimeRange
  The span of time of the animation; a document without it stands still.

Is in
  Canvas

Attributes
  TimeBegin: a number
      The time at which the animation begins.
      Without it: 0
  TimeEnd: a number
      The time at which the animation ends.
      Without it: 10
)");
}

TEST_F(ReferenceCommand, KnowsOnlyElements) {
  const Outcome outcome = run({"reference", "--element", "Mesh3D"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "zrd: there is no element Mesh3D; did you mean Mesh3d?\n");
}

}  // namespace
