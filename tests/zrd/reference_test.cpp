// zrd reference: the pages of docs/reference are what it writes.

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "../zrd_command.h"

namespace {

namespace fs = std::filesystem;

const fs::path pages = fs::path(VANTRY_SOURCE_DIR) / "docs" / "reference";

class ReferenceCommand : public ZrdCommandTest {
 protected:
  ReferenceCommand() : ZrdCommandTest("reference") {}

  std::set<std::string> elements() const {
    std::set<std::string> names;
    std::istringstream lines(outputOf({}));
    for (std::string line; std::getline(lines, line);) names.insert(line.substr(0, line.find(':')));
    return names;
  }
};

TEST_F(ReferenceCommand, WritesThePagesOfTheManual) {
  EXPECT_EQ(outputOf({"--markdown"}), contentOf(pages / "README.md"));
  std::set<std::string> files = {"README.md"};
  for (const std::string& name : elements()) {
    if (name == "P2" || name == "P3") continue;  // they are described with the lists
    EXPECT_EQ(outputOf({"--markdown", "--element", name}), contentOf(pages / (name + ".md")));
    files.insert(name + ".md");
  }
  std::set<std::string> found;
  for (const auto& entry : fs::directory_iterator(pages)) found.insert(entry.path().filename());
  EXPECT_EQ(found, files) << "there is a page for each element, and no other";
}

TEST_F(ReferenceCommand, SaysWhatAnElementMayHold) {
  EXPECT_EQ(outputOf({"--element", "TimeRange"}), R"(TimeRange
  Makes the document an animation, and sets when it begins and ends.

May be in
  Canvas

Attributes
  TimeBegin: a number
      The time of the first frame.
      Default: 0
  TimeEnd: a number
      The time of the last frame.
      Default: 10
)");
}

TEST_F(ReferenceCommand, TakesTheNameAlone) {
  EXPECT_EQ(outputOf({"Mesh3d"}), outputOf({"--element", "Mesh3d"}));
  EXPECT_EQ(outputOf({"--markdown", "Mesh3d"}), contentOf(pages / "Mesh3d.md"));
  EXPECT_EQ(errorOf({"Mesh3d", "Surf3d"}, 1),
            "zrd: Surf3d is one argument too many (see zrd reference --help)\n");
}

TEST_F(ReferenceCommand, KnowsOnlyElements) {
  EXPECT_EQ(errorOf({"mesh3D"}, 1),
            "zrd: there is no element mesh3D; did you mean Mesh3d? (see zrd reference --help)\n");
  EXPECT_EQ(errorOf({"--element", "Mesh3D"}, 1),
            "zrd: there is no element Mesh3D; did you mean Mesh3d? "
            "(see zrd reference --help)\n");
  EXPECT_EQ(errorOf({"--element", "Torus"}, 1),
            "zrd: there is no element Torus; zrd reference lists those that there are "
            "(see zrd reference --help)\n");
}

}  // namespace
