// Runs a command of zrd as a process of its own, in a folder of its own.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "driver/program.h"

/// What the commands say behind a message about a bad document.
inline const std::string wayOut = " (zrd check FILE explains it)\n";

class ZrdCommandTest : public ProgramTest {
 protected:
  explicit ZrdCommandTest(std::string command) : command_(std::move(command)) {
    setProgram(ZRD_PROGRAM);
    setEnvironment("LC_ALL", "C.UTF-8");
  }

  /// Runs the command with these arguments.
  Outcome command(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), command_);
    return run(arguments);
  }

  /// What the command writes if it succeeds and has nothing to complain of.
  std::string outputOf(const std::vector<std::string>& arguments) const {
    const Outcome outcome = command(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }

  /// What the command complains of if it ends with this status and writes nothing.
  std::string errorOf(const std::vector<std::string>& arguments, int status) const {
    const Outcome outcome = command(arguments);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    return outcome.err;
  }

 private:
  const std::string command_;
};
