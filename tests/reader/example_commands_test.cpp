// The command of the algebra system for each document of examples/ is that of the file with its
// name in tests/commands/.
#include <sstream>

#include "examples.h"
#include "reading.h"

namespace {

class ExampleCommand : public AllLettersTest, public testing::WithParamInterface<std::string> {};

TEST_P(ExampleCommand, IsTheExpectedText) {
  Reading reading(exampleNamed(GetParam()));
  std::ostringstream commands;
  reading.document().printCommands(commands, false);
  EXPECT_EQ(commands.str() + "\n",
            contentOf(sourceFolder / "tests/commands" / (GetParam() + ".cmd")));
}

INSTANTIATE_TEST_SUITE_P(All, ExampleCommand, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
