// zrd command: a plot in the language of the algebra system.

#include "../zrd_command.h"

namespace {

class CommandCommand : public ZrdCommandTest {
 protected:
  CommandCommand() : ZrdCommandTest("command") {}
};

TEST_F(CommandCommand, PrintsThePlot) {
  const std::filesystem::path source = VANTRY_SOURCE_DIR;
  EXPECT_EQ(outputOf({source / "examples/arcs.zrd"}),
            contentOf(source / "tests/commands/arcs.cmd"));
}

TEST_F(CommandCommand, TakesTwoElementsWithOneId) {
  write("twins.zrd", "<Canvas id=\"a\"><Scene2d id=\"a\"/></Canvas>");
  write("plain.zrd", "<Canvas><Scene2d/></Canvas>");
  EXPECT_EQ(outputOf({"twins.zrd"}), outputOf({"plain.zrd"}));
}

TEST_F(CommandCommand, WritesNothingIfTheLocaleCannotHoldAText) {
  setEnvironment("LC_ALL", "C");
  write("angle.zrd", "<Canvas><Scene2d Name=\"30\u00b0\"/></Canvas>");
  EXPECT_EQ(errorOf({"angle.zrd"}, 2),
            "zrd: the locale's character set does not hold a text of the document: run zrd in a "
            "locale with UTF-8, such as LC_ALL=C.UTF-8\n");
}

TEST_F(CommandCommand, NamesTheWayOutOfABadDocument) {
  write("cut.zrd", "<Canvas>");
  EXPECT_EQ(errorOf({"cut.zrd"}, 2), "zrd: cut.zrd:1:9: not well-formed XML" + wayOut);
}

}  // namespace
