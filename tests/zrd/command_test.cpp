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

TEST_F(CommandCommand, NamesTheWayOutOfABadDocument) {
  write("cut.zrd", "<Canvas>");
  EXPECT_EQ(errorOf({"cut.zrd"}, 2), "zrd: cut.zrd:1:9: not well-formed XML" + wayOut);
}

}  // namespace
