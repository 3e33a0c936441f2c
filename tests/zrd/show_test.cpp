// zrd show: the tree of a document.

#include <string>
#include <vector>

#include "../driver/program.h"

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

class ShowCommand : public ProgramTest {
 protected:
  ShowCommand() {
    setProgram(ZRD_PROGRAM);
    setEnvironment("LC_ALL", "C.UTF-8");
    write("in.zrd", document);
  }

  std::string show(Strings arguments, int status = 0) const {
    arguments.insert(arguments.begin(), "show");
    arguments.emplace_back("in.zrd");
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    return outcome.out;
  }
};

TEST_F(ShowCommand, ShowsElementsWithTheirValuesAndOrigins) {
  EXPECT_EQ(show({"--path", "Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[1]"}),
            R"(Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[1]
  @LineWidth = 0.35  (style Canvas/ObjStyle[1])
  @Type = A
  Img2d
    Poly2d: 2 points, x from 0 to 2, y from -3.5 to 1
      @LineWidth = 0.35  (style Canvas/ObjStyle[1])
)");
}

TEST_F(ShowCommand, ShowsAsMuchAsIsWanted) {
  EXPECT_EQ(show({"--depth", "1"}), R"(Canvas
  ObjStyle
    @LineWidth = 0.35
    @Type = Default
  Scene2d
)");
  EXPECT_EQ(show({"--element", "Title"}),
            "Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[2]/Title[1] \"a title\"\n");
  EXPECT_EQ(show({"--element", "Sphere"}, 2), "");
}

TEST_F(ShowCommand, ShowsDefaultsIfTheyAreWanted) {
  const std::string text = show({"--all", "--element", "Poly2d"});
  EXPECT_NE(text.find("  @LineColor = #000000  (default)\n"), std::string::npos) << text;
}

TEST_F(ShowCommand, WritesJson) {
  EXPECT_EQ(show({"--json", "--element", "Poly2d"}),
            R"({"element":"Poly2d","path":"Canvas/Scene2d[1]/CoordinateSystem2d[1]/Obj2d[1]/)"
            R"(Img2d[1]/Poly2d[1]","attributes":{"LineWidth":{"value":"0.35","from":"style",)"
            R"("style":"Canvas/ObjStyle[1]"}},"count":2,"ranges":{"x":[0.0,2.0],"y":[-3.5,1.0]}})"
            "\n");
}

}  // namespace
