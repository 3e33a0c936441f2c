// zrd format: the same document, for people.

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "../driver/documents.h"
#include "../zrd_command.h"

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const std::string document = R"(<Canvas Width="80.1" Spacing="0"><ObjStyle LineWidth="0.35"
 Type="Default"/><Scene2d><CoordinateSystem2d><Obj2d Type="Curve2d" Visible="1"><Title> a &lt; b</Title><Img2d>
<Poly2d LineWidth="0.35" LinesVisible="1"><P2>0.1 1e-20</P2><P2>2 3.25</P2></Poly2d>
<Poly2d/><DensityArray2d XMesh="2" YMesh="2">1 2 3 0.3</DensityArray2d>
</Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>)";

const std::string formatted = R"(<?xml version="1.0" encoding="UTF-8"?>
<Canvas xmlns="http://www.example.org/xml/Corvane" Spacing="0" Width="80.1">
  <ObjStyle LineWidth="0.35" Type="Default"/>
  <Scene2d>
    <CoordinateSystem2d>
      <Obj2d Type="Curve2d" Visible="1">
        <Title> a &lt; b</Title>
        <Img2d>
          <Poly2d LineWidth="0.35" LinesVisible="1">
            <P2>0.1 1e-20</P2>
            <P2>2 3.25</P2>
          </Poly2d>
          <Poly2d/>
          <DensityArray2d XMesh="2" YMesh="2">
            1 2
            3 0.3
          </DensityArray2d>
        </Img2d>
      </Obj2d>
    </CoordinateSystem2d>
  </Scene2d>
</Canvas>
)";

class FormatCommand : public ZrdCommandTest {
 protected:
  FormatCommand() : ZrdCommandTest("format") { write("in.zrd", document); }

  std::string converted(const std::string& name) {
    setProgram(VANTRY_PROGRAM);
    const Outcome outcome = run({name});
    EXPECT_EQ(outcome.status, 0) << name;
    setProgram(ZRD_PROGRAM);
    return undated(outcome.out);
  }
};

TEST_F(FormatCommand, WritesEachPartOnALineOfItsOwn) {
  const Outcome outcome = command({"in.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, formatted);
}

TEST_F(FormatCommand, ChangesNothingTheSecondTime) {
  write("formatted.zrd", formatted);
  EXPECT_EQ(command({"formatted.zrd"}).out, formatted);
}

TEST_F(FormatCommand, KeepsLineBreaksAndTabsOfValues) {
  const std::string object = "<Obj2d Name=\"a&#10;b&#9;c&#13;d\" Type=\"Curve2d\"/>";
  write("named.zrd", "<Canvas><Scene2d><CoordinateSystem2d>" + object +
                         "</CoordinateSystem2d></Scene2d></Canvas>");
  const std::string once = outputOf({"named.zrd"});
  EXPECT_NE(once.find(object), std::string::npos) << once;
  write("once.zrd", once);
  EXPECT_EQ(outputOf({"once.zrd"}), once);
}

TEST_F(FormatCommand, WritesToAFile) {
  EXPECT_EQ(command({"-o", "out.zrd", "in.zrd"}).out, "");
  EXPECT_EQ(read("out.zrd"), formatted);
  EXPECT_EQ(command({"-i", "in.zrd"}).out, "");
  EXPECT_EQ(read("in.zrd"), formatted);
  EXPECT_EQ(files(), "in.zrd out.zrd");
}

TEST_F(FormatCommand, KeepsThePermissionsOfAFile) {
  fs::permissions(folder_.path() / "in.zrd", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(command({"-i", "in.zrd"}).err, "");
  EXPECT_EQ(fs::status(folder_.path() / "in.zrd").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FormatCommand, WritesTheFileThatALinkNames) {
  fs::create_symlink("in.zrd", folder_.path() / "link.zrd");
  EXPECT_EQ(command({"-i", "link.zrd"}).err, "");
  EXPECT_TRUE(fs::is_symlink(folder_.path() / "link.zrd"));
  EXPECT_EQ(read("in.zrd"), formatted);
}

TEST_F(FormatCommand, PutsNoFileInThePlaceOfSomethingElse) {
  const Outcome outcome = command({"-o", "/dev/null", "in.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "zrd: /dev/null cannot be written: it is not a regular file\n");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FormatCommand, MakesNoFolder) {
  EXPECT_EQ(errorOf({"-o", "missing/folder/out.zrd", "in.zrd"}, 2),
            "zrd: missing/folder/out.zrd cannot be written: there is no folder missing/folder\n");
  EXPECT_EQ(files(), "in.zrd");
}

TEST_F(FormatCommand, LeavesAFileAloneThatItCannotRead) {
  write("in.zrd", "<Canvas>");
  EXPECT_EQ(command({"-i", "in.zrd"}).status, 2);
  EXPECT_EQ(read("in.zrd"), "<Canvas>");
}

/// A document of which something would be lost, and how it is refused.
struct Loss {
  std::string document;
  std::string reason;  ///< behind the name of the file
};

const std::string begin = "<Canvas>\n<Scene3d><CoordinateSystem3d><Obj3d Type=\"A\"><Img3d>\n";
const std::string end = "\n</Img3d></Obj3d></CoordinateSystem3d></Scene3d>\n</Canvas>";

const Loss losses[] = {
    {"<jvx-model/>",
     "1:1: this is no plot document: its outermost element is jvx-model, not Canvas; "
     "zrd view shows JVX files, with names in .jvx"},
    {"<Canvas><Scene2d xmlns=\"http://www.w3.org/2000/svg\"/></Canvas>",
     "1:25: cannot be written back: the namespace \"http://www.w3.org/2000/svg\" is not that of "
     "plot documents"},
    {"<Canvas><Canvas/></Canvas>", "1:10: cannot be written back: a document has one Canvas"},
    {begin + "<Mesh3D/>" + end, "3:2: cannot be written back: there is no element Mesh3D"},
    {begin + "<Line3d LineWidht=\"1\"/>" + end,
     "3:9: cannot be written back: there is no attribute LineWidht"},
    {begin + "<Line3d xmlns:a=\"a\" a:b=\"1\"/>" + end,
     "3:21: cannot be written back: the namespace \"a\" is not that of plot documents"},
    {begin + "<Poly3d>1 2 3</Poly3d>" + end,
     "3:9: cannot be written back: Poly3d holds no text, so this is ignored"},
    {"<Canvas><Scene2d/><Header>a</Header><Header>b</Header></Canvas>",
     "1:38: cannot be written back: this Header takes the place of the one before it"},
    {begin + "<Line3d LineWidth=\"1 or 2\"/>" + end,
     "3:22: cannot be written back: \"or 2\" behind the value of LineWidth is ignored"},
    {begin + "<Surf3d><P3>0 0 0</P3><P3>1 0 0</P3><P3>1 1 0</P3></Surf3d>" + end,
     "3:2: cannot be written back: a Surf3d needs a Type that says how its points become faces"},
};

TEST_F(FormatCommand, LosesNothing) {
  for (const auto& [text, reason] : losses) {
    write("in.zrd", text);
    for (const Strings& arguments : {Strings{"-i", "in.zrd"}, Strings{"-o", "out.zrd", "in.zrd"},
                                     Strings{"--minimal", "in.zrd"}}) {
      EXPECT_EQ(errorOf(arguments, 2), "zrd: in.zrd:" + reason + wayOut) << text;
    }
    EXPECT_EQ(read("in.zrd"), text);
    EXPECT_EQ(files(), "in.zrd");
  }
}

TEST_F(FormatCommand, WritesADocumentThatIsNotFinished) {
  write("in.zrd", "<Canvas><Scene2d/></Canvas>");
  EXPECT_EQ(outputOf({"in.zrd"}), R"(<?xml version="1.0" encoding="UTF-8"?>
<Canvas xmlns="http://www.example.org/xml/Corvane">
  <Scene2d/>
</Canvas>
)");
}

TEST_F(FormatCommand, ReadsStandardInput) {
  setWrapper({"/bin/sh", "-c", "exec \"$@\" < in.zrd", "sh"});
  EXPECT_EQ(outputOf({"-"}), formatted);
}

TEST_F(FormatCommand, DropsWhatMeansNothing) {
  const std::string minimal = command({"--minimal", "in.zrd"}).out;
  EXPECT_EQ(minimal.find("Spacing"), std::string::npos) << "a default";
  EXPECT_EQ(minimal.find("Visible=\"1\">\n        <Title"), std::string::npos) << "a default";
  EXPECT_NE(minimal.find("<Poly2d LinesVisible=\"1\">"), std::string::npos)
      << "the width is that of the style";
}

// Without the value of the first style the object would have that of the group; and the second
// style comes too late for the primitives, so they have the value of the object.
TEST_F(FormatCommand, DropsNothingThatAStyleHides) {
  write("in.zrd",
        R"(<Canvas><ObjStyle Type="A" LineWidth="1"/><ObjStyle Type="Default" LineWidth="1"/>
<Scene2d><CoordinateSystem2d><Group2d><ObjStyle Type="Default" LineWidth="2"/>
<Obj2d Type="A"><Img2d><Line2d/></Img2d></Obj2d></Group2d>
<Obj2d Type="B" PointSize="3"><Img2d><Pt2d/></Img2d></Obj2d><ObjStyle Type="B" PointSize="3"/>
</CoordinateSystem2d></Scene2d></Canvas>)");
  const std::string minimal = command({"--minimal", "in.zrd"}).out;
  EXPECT_EQ(countOf("LineWidth=\"1\"", minimal), 2U) << minimal;
  EXPECT_EQ(countOf("PointSize=\"3\"", minimal), 2U) << minimal;
}

/// The examples that show what becomes of a value that is not kept, and why they are refused.
const std::map<std::string, std::string> unkept = {
    {"annotations2d.zrd",
     "37:27: cannot be written back: this Title takes the place of the one before it"},
    {"annotations3d.zrd",
     "3:109: cannot be written back: the value -1 is outside of the range of Spacing and is moved "
     "into it"},
    {"lights_explicit.zrd",
     "20:110: cannot be written back: the value 2 is outside of the range of LightIntensity and is "
     "moved into it"},
};

TEST_F(FormatCommand, KeepsTheDrawingOfEachExample) {
  for (const auto& entry : fs::directory_iterator(fs::path(VANTRY_SOURCE_DIR) / "examples")) {
    if (entry.path().extension() != ".zrd") continue;
    const auto reason = unkept.find(entry.path().filename());
    if (reason != unkept.end()) {
      EXPECT_EQ(errorOf({entry.path()}, 2),
                "zrd: " + entry.path().string() + ':' + reason->second + wayOut);
      continue;
    }
    const std::string drawing = converted(entry.path());
    for (const Strings& options : {Strings{}, Strings{"--minimal"}}) {
      Strings arguments = options;
      arguments.insert(arguments.end(), {"-o", "out.zrd", entry.path()});
      EXPECT_EQ(command(arguments).status, 0) << entry.path();
      EXPECT_EQ(converted("out.zrd"), drawing) << entry.path();
    }
  }
}

}  // namespace
