// What the arguments mean, and what is said of those that are wrong.

#include <string>
#include <vector>

#include "documents.h"
#include "program.h"

namespace {

const std::string usage =
    "usage: vantry [-d] [-h] [-v] [-t #] [-o #] <in-file>\n"
    "         -d   ouput JVD file instead of JVX\n"
    "         -t # time\n"
    "         -f # frames per second\n"
    "         -o # output file name\n"
    "         -v   version info\n"
    "         -h   this help\n"
    "\n";

const std::string noInput = "Error: Can not open input file. (exiting)\n";

class CommandLine : public ProgramTest {
 protected:
  void expectUsage(const std::vector<std::string>& arguments) const {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 1) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.err, usage) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.out, "") << testing::PrintToString(arguments);
  }

  void expectError(const std::vector<std::string>& arguments, const std::string& text) const {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.err, text) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.out, "") << testing::PrintToString(arguments);
  }
};

}  // namespace

TEST_F(CommandLine, NoArgumentsPrintTheUsage) { expectUsage({}); }

TEST_F(CommandLine, HelpPrintsTheUsageAndIsNoSuccess) {
  expectUsage({"-h"});
  expectUsage({"in.zrd", "-h"});
}

TEST_F(CommandLine, OptionsWithoutAnInputFilePrintTheUsage) {
  expectUsage({"-d"});
  expectUsage({"-o", "out.jvx"});
  expectUsage({"-t", "1", "-f", "2"});
}

TEST_F(CommandLine, VersionGoesToStandardOutput) {
  const Outcome outcome = run({"-v"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "vantry version 1.5\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CommandLine, FirstArgumentThatStopsTheRunDecides) {
  EXPECT_EQ(run({"-v", "-h"}).out, "vantry version 1.5\n");
  expectUsage({"-h", "-v"});
  expectUsage({"-t", "abc", "-v"});
  EXPECT_EQ(run({"in.zrd", "-v", "other.zrd"}).status, 0);
}

TEST_F(CommandLine, VersionAfterAnOutputNameCreatesNoFile) {
  EXPECT_EQ(run({"-o", "out.jvx", "in.zrd", "-v"}).status, 0);
  EXPECT_EQ(files(), "");
}

TEST_F(CommandLine, DisplayModeMayBeRepeated) { expectError({"-d", "-d", "none.zrd"}, noInput); }

TEST_F(CommandLine, TimeNeedsANumber) {
  expectUsage({"in.zrd", "-t"});
  expectUsage({"in.zrd", "-t", "abc"});
  expectUsage({"in.zrd", "-t", ""});
}

TEST_F(CommandLine, TimeIsWhatScansAsANumber) {
  for (const char* time : {"1", "-2.5e3", " 7", "0x1p3", "nan", "inf", "3rest"}) {
    expectError({"-t", time, "none.zrd"}, noInput);
  }
}

TEST_F(CommandLine, LastTimeWins) {
  write("in.zrd", staticDocument);
  EXPECT_EQ(run({"-t", "nan", "-t", "1", "in.zrd"}).err, "Warning: not an animation\n");
  EXPECT_EQ(run({"-t", "1", "-t", "nan", "in.zrd"}).err, "");
}

TEST_F(CommandLine, FramesNeedAPositiveInteger) {
  expectUsage({"in.zrd", "-f"});
  for (const char* frames : {"0", "-3", "x", "", ".5"}) expectUsage({"in.zrd", "-f", frames});
}

TEST_F(CommandLine, FramesAreWhatScansAsAnInteger) {
  for (const char* frames : {"5", "+5", " 5", "5.9", "5x"}) {
    expectError({"-f", frames, "-o", "out.jvx", "none.zrd"}, noInput);
  }
}

TEST_F(CommandLine, LastFramesWin) {
  write("in.zrd", animatedDocument);
  EXPECT_EQ(run({"-f", "9", "-f", "1", "-o", "out.jvx", "in.zrd"}).status, 0);
  EXPECT_EQ(files(), "in.zrd out.1.jvx out.2.jvx");
}

TEST_F(CommandLine, WrongFramesStopEvenBeforeGoodOnes) {
  expectUsage({"-f", "0", "-f", "5", "in.zrd"});
}

TEST_F(CommandLine, OutputNameIsGivenOnce) {
  expectUsage({"in.zrd", "-o"});
  expectUsage({"-o", "a", "-o", "b"});
  expectUsage({"-o", "a", "-o", "a", "in.zrd"});
  EXPECT_EQ(files(), "");
}

TEST_F(CommandLine, OperandIsTakenWhateverItLooksLike) {
  write("in.zrd", staticDocument);
  EXPECT_EQ(run({"-o", "-d", "in.zrd"}).status, 0);
  EXPECT_EQ(undated(read("-d")), emptyJvx);
  expectUsage({"-t", "-h", "in.zrd"});
}

TEST_F(CommandLine, SecondInputNamePrintsTheUsage) {
  expectUsage({"in1", "in2"});
  expectUsage({"in", "-x"});
}

TEST_F(CommandLine, WhatIsNoOptionIsTheInputName) {
  for (const char* name : {"-x", "-dv", "-t5", "-", "--", "--help", "-D", ""}) {
    expectError({name}, noInput);
  }
  write("-x", staticDocument);
  EXPECT_EQ(undated(run({"-x"}).out), emptyJvx);
}

TEST_F(CommandLine, OptionsMayFollowTheInputName) {
  write("in.zrd", staticDocument);
  EXPECT_EQ(run({"in.zrd", "-o", "out.jvx"}).status, 0);
  EXPECT_EQ(undated(read("out.jvx")), emptyJvx);
}
