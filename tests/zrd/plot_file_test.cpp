// What all commands say of documents that are no plots, and of what they leave out of a plot.

#include <string>
#include <vector>

#include "../zrd_command.h"

namespace {

using Strings = std::vector<std::string>;

class PlotFile : public ProgramTest {
 protected:
  PlotFile() {
    setProgram(ZRD_PROGRAM);
    setEnvironment("LC_ALL", "C.UTF-8");
  }
};

TEST_F(PlotFile, IsNotReadFromAnotherKindOfDocument) {
  struct {
    const char* document;
    const char* reason;  // behind the name of the file
  } constexpr others[] = {
      {"<html><body/></html>",
       "1:1: this is no plot document: its outermost element is html, "
       "not Canvas"},
      {"<jvx-model/>",
       "1:1: this is no plot document: its outermost element is jvx-model, "
       "not Canvas; zrd view shows JVX files, with names in .jvx"},
      {"\n <Canvas xmlns=\"http://www.w3.org/2000/svg\"/>",
       "2:2: this is no plot document: its outermost element is in the namespace "
       "\"http://www.w3.org/2000/svg\""},
      {"<Scene2d/>", "1:1: this is no plot document: its outermost element is Scene2d, not Canvas"},
      {"<P2>1 2</P2>", "1:1: this is no plot document: its outermost element is P2, not Canvas"},
  };
  for (const auto& [document, reason] : others) {
    write("in.zrd", document);
    const std::string line = std::string("in.zrd:") + reason;
    for (const Strings& command :
         {Strings{"show"}, Strings{"command"}, Strings{"format"}, Strings{"format", "-i"}}) {
      Strings arguments = command;
      arguments.emplace_back("in.zrd");
      const Outcome outcome = run(arguments);
      EXPECT_EQ(outcome.status, 2) << command.front();
      EXPECT_EQ(outcome.out, "") << command.front();
      EXPECT_EQ(outcome.err, "zrd: " + line + wayOut) << command.front();
    }
    const Outcome conversion = run({"convert", "in.zrd"});
    EXPECT_EQ(conversion.status, 2);
    EXPECT_EQ(conversion.err, line + "\n0 converted, 1 failed" + wayOut);
    EXPECT_EQ(read("in.zrd"), document);
    EXPECT_EQ(files(), "in.zrd");
  }
}

const std::string unknownNames = R"(<Canvas xmlns:my="http://www.example.org/notes">
  <my:author>Ada</my:author>
  <Scene2d Colour="red"><CoordinateSystem2d xml:lang="en">
    <Mesh3D><Torus/></Mesh3D><Mesh3D Colour="red"/><my:title my:of="it"/>
  </CoordinateSystem2d></Scene2d>
</Canvas>
)";

/// The warnings of the document with unknown names, with this in front of each.
std::string warnings(const std::string& prefix) {
  const std::string begin = prefix + "in.zrd:";
  const std::string end = " is left out" + wayOut;
  return begin + "2:3: warning: what is in the namespace \"http://www.example.org/notes\"" + end +
         begin + "3:3: warning: the unknown attribute Colour" + end + begin +
         "4:5: warning: the unknown element Mesh3D" + end;
}

TEST_F(PlotFile, WarnsOfWhatItLeavesOut) {
  write("in.zrd", unknownNames);
  const Outcome shown = run({"show", "in.zrd"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.out, "Canvas\n  Scene2d\n    CoordinateSystem2d\n");
  EXPECT_EQ(shown.err, warnings("zrd: "));

  const Outcome printed = run({"command", "in.zrd"});
  EXPECT_EQ(printed.status, 0);
  EXPECT_EQ(printed.err, warnings("zrd: "));

  const Outcome converted = run({"convert", "in.zrd"});
  EXPECT_EQ(converted.status, 0);
  EXPECT_EQ(converted.err, warnings("") + "1 converted\n");
}

TEST_F(PlotFile, WarnsOfTenThingsAtMost) {
  std::string elements;
  for (int i = 1; i <= 12; ++i) elements += "<E" + std::to_string(i) + "/>";
  write("in.zrd", "<Canvas>" + elements + "</Canvas>");
  const Outcome outcome = run({"show", "in.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.err.find("zrd: in.zrd:1:49: warning: the unknown element E9 is left out"),
            std::string::npos)
      << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with("\nzrd: in.zrd:1:54: warning: more is left out" + wayOut))
      << outcome.err;
}

TEST_F(PlotFile, SaysNothingOfAPlotWithoutUnknownNames) {
  write("in.zrd", "<Canvas xml:lang=\"en\"><!-- plain --><Scene2d/></Canvas>");
  EXPECT_EQ(run({"show", "in.zrd"}).err, "");
}

}  // namespace
