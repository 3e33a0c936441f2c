// zrd show: the tree of a document.

#include <string>
#include <vector>

#include "../zrd_command.h"

namespace {

using Strings = std::vector<std::string>;

const std::string document = R"(<Canvas>
  <ObjStyle Type="Default" LineWidth="0.35"/>
  <Scene2d>
    <CoordinateSystem2d>
      <Obj2d Type="A"><Img2d><Poly2d><P2>0 1</P2><P2>2 -3.5</P2></Poly2d></Img2d></Obj2d>
      <Obj2d Type="B"><Title>a title</Title></Obj2d>
    </CoordinateSystem2d>
  </Scene2d>
</Canvas>
)";

class ShowCommand : public ZrdCommandTest {
 protected:
  ShowCommand() : ZrdCommandTest("show") { write("in.zrd", document); }
};

TEST_F(ShowCommand, ShowsElementsWithTheirValuesAndOrigins) {
  EXPECT_EQ(outputOf({"--path", "Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[1]", "in.zrd"}),
            R"(Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[1]
  @LineWidth = 0.35  (style Canvas/ObjStyle[1])
  @Type = A
  Img2d
    Poly2d: 2 points, x from 0 to 2, y from -3.5 to 1
      @LineWidth = 0.35  (style Canvas/ObjStyle[1])
)");
}

TEST_F(ShowCommand, ShowsAsMuchAsIsWanted) {
  EXPECT_EQ(outputOf({"--depth", "1", "in.zrd"}), R"(Canvas
  ObjStyle
    @LineWidth = 0.35
    @Type = Default
  Scene2d
)");
  EXPECT_EQ(outputOf({"--element", "Title", "in.zrd"}),
            "Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[2]/Title[1] \"a title\"\n");
}

TEST_F(ShowCommand, ShowsLevelsBelowEachElementOfAName) {
  const std::string system = "Canvas/Scene2d[1]/CoordinateSystem2d[1]/";
  EXPECT_EQ(outputOf({"--element", "Obj2d", "--depth", "1", "in.zrd"}),
            system + "Obj2d[1]\n" + R"(  @LineWidth = 0.35  (style Canvas/ObjStyle[1])
  @Type = A
  Img2d
)" + system + "Obj2d[2]\n" +
                R"(  @LineWidth = 0.35  (style Canvas/ObjStyle[1])
  @Type = B
  Title "a title"
)");
  const Strings title = {"--element", "Title", "in.zrd"};
  EXPECT_EQ(outputOf({"--depth", "0", "--element", "Title", "in.zrd"}), outputOf(title));
  EXPECT_EQ(outputOf({"--depth", "5", "--element", "Title", "in.zrd"}), outputOf(title));
}

TEST_F(ShowCommand, ShowsAnElementOnceWithinAnotherOfItsName) {
  write("in.zrd",
        "<Canvas><Scene2d><CoordinateSystem2d><Group2d><Group2d><Obj2d Type=\"A\"><Img2d/></Obj2d>"
        "</Group2d></Group2d></CoordinateSystem2d></Scene2d></Canvas>");
  const std::string group = "Canvas/Scene2d[1]/CoordinateSystem2d[1]/Group2d[1]";
  EXPECT_EQ(outputOf({"--element", "Group2d", "in.zrd"}), group + '\n' + group + "/Group2d[1]\n");
  EXPECT_EQ(outputOf({"--element", "Group2d", "--depth", "1", "in.zrd"}),
            group + "\n  Group2d\n    Obj2d\n      @Type = A\n");
}

TEST_F(ShowCommand, TakesAPathWithoutTheNumberOne) {
  EXPECT_EQ(outputOf({"--path", "Canvas/Scene2d/CoordinateSystem2d[1]/Obj2d[2]/Title", "in.zrd"}),
            "Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[2]/Title[1] \"a title\"\n");
}

TEST_F(ShowCommand, NamesTheElementThatIsMeant) {
  EXPECT_EQ(errorOf({"--element", "poly2D", "in.zrd"}, 1),
            "zrd: there is no element poly2D; did you mean Poly2d? "
            "(see zrd show --help)\n");
  EXPECT_EQ(errorOf({"--element", "Sphere", "in.zrd"}, 2),
            "zrd: in.zrd: there is no Sphere in Canvas\n");
  EXPECT_EQ(errorOf({"--path", "Canvas/Scene2d", "--element", "ObjStyle", "in.zrd"}, 2),
            "zrd: in.zrd: there is no ObjStyle in Canvas/Scene2d[1]\n");
}

TEST_F(ShowCommand, NamesTheStepThatIsMeant) {
  EXPECT_EQ(errorOf({"--path", "Canvas/Scene3d/Obj2d[1]", "in.zrd"}, 2),
            "zrd: in.zrd: there is no Scene3d[1] in Canvas; did you mean Scene2d[1]?\n");
  EXPECT_EQ(errorOf({"--path", "Canvas/Scene2d[1]/Light", "in.zrd"}, 2),
            "zrd: in.zrd: there is no Light[1] in Canvas/Scene2d[1]\n");
  EXPECT_EQ(errorOf({"--path", "Scene2d[1]", "in.zrd"}, 2),
            "zrd: in.zrd: a path begins with Canvas\n");
}

TEST_F(ShowCommand, SaysThatAMandatoryValueIsMissing) {
  write("in.zrd", R"(<Canvas><Scene3d><CoordinateSystem3d><Obj3d Type="A"><Img3d>
<Surf3d/><Surf3d Type="Quads"/></Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>)");
  const std::string image = "Canvas/Scene3d[1]/CoordinateSystem3d[1]/Obj3d[1]/Img3d[1]";
  EXPECT_EQ(outputOf({"--element", "Surf3d", "in.zrd"}),
            image + "/Surf3d[1]: 0 points\n" + "  @Type is missing\n" + image +
                "/Surf3d[2]: 0 points\n" + "  @Type = Quads\n");
  EXPECT_EQ(outputOf({"--json", "--path", image + "/Surf3d[1]", "in.zrd"}),
            R"({"element":"Surf3d","path":")" + image +
                R"(/Surf3d[1]","attributes":{"Type":{"from":"missing"}},"count":0})" + "\n");
}

TEST_F(ShowCommand, NamesTheWayOutOfABadDocument) {
  write("cut.zrd", "<Canvas>\n<Scene2d>");
  EXPECT_EQ(errorOf({"cut.zrd"}, 2), "zrd: cut.zrd:2:10: not well-formed XML" + wayOut);
  write("bad.zrd", "<Canvas Width=\"wide\"/>");
  EXPECT_EQ(
      errorOf({"bad.zrd"}, 2),
      "zrd: bad.zrd:1:1: SYNTAX_ERR: element 'Canvas', attribute 'Width', value 'wide'" + wayOut);
  EXPECT_EQ(errorOf({"none.zrd"}, 2),
            "zrd: none.zrd: cannot be opened: No such file or directory\n");
}

TEST_F(ShowCommand, ShowsDefaultsIfTheyAreWanted) {
  const std::string text = outputOf({"--all", "--element", "Poly2d", "in.zrd"});
  EXPECT_NE(text.find("  @LineColor = #000000  (default)\n"), std::string::npos) << text;
}

TEST_F(ShowCommand, WritesJson) {
  EXPECT_EQ(outputOf({"--json", "--element", "Poly2d", "in.zrd"}),
            R"({"element":"Poly2d","path":"Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[1]/)"
            R"(Img2d[1]/Poly2d[1]","attributes":{"LineWidth":{"value":"0.35","from":"style",)"
            R"("style":"Canvas/ObjStyle[1]"}},"count":2,"ranges":{"x":[0.0,2.0],"y":[-3.5,1.0]}})"
            "\n");
}

}  // namespace
