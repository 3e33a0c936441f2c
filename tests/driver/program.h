// Runs the program as a process of its own, in a folder of its own.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "../temporary_folder.h"

/// The content of a file.
std::string contentOf(const std::filesystem::path& file);

/// How a run of the program ended and what it printed.
struct Outcome {
  int status;  ///< the exit status, or -1 if a signal ended the run
  int signal;  ///< that signal, or 0
  std::string out;
  std::string err;
  std::int64_t memory;  ///< the most bytes that it held at once
};

/// Each test has an empty folder, which is the program's current one.
class ProgramTest : public testing::Test {
 protected:
  /// Sets a variable in the environment of the runs that follow.
  void setEnvironment(const std::string& name, const std::string& value) {
    environment_[name] = value;
  }

  /// Lets calls of the runs that follow fail; preloaded/failing_calls.cpp has the names.
  void setFailing(const std::string& name, const std::string& value);

  /// Limits what the runs that follow may use of a resource, one of the RLIMIT constants.
  void setLimit(int resource, std::uint64_t limit) { limits_[resource] = limit; }

  /// Starts the runs that follow without these of the three standard streams.
  void setClosed(const std::set<int>& descriptors) { closed_ = descriptors; }

  /// Runs the program under another one in the runs that follow: its path and its arguments.
  void setWrapper(const std::vector<std::string>& command) { wrapper_ = command; }

  /// Makes another program the one that is run.
  void setProgram(const std::string& program) { program_ = program; }

  /// Runs the program with its standard output caught.
  Outcome run(const std::vector<std::string>& arguments) const;

  /// Runs the program with the file `standardOutput` as its standard output.
  Outcome runInto(const std::string& standardOutput,
                  const std::vector<std::string>& arguments) const;

  /// A run that has not ended.
  struct Started {
    pid_t process;
    int errors;  ///< the pipe with its standard error
  };

  Started start(const std::string& standardOutput, const std::vector<std::string>& arguments) const;

  static bool hasEnded(const Started& started);

  /// Waits for the end; without the standard output.
  static Outcome outcomeOf(const Started& started);

  void write(const std::string& name, std::string_view text) const;
  std::string read(const std::string& name) const;
  bool exists(const std::string& name) const;

  /// The names in the folder but for the captured output, sorted, with a blank between them.
  std::string files() const;

  const TemporaryFolder folder_;

 private:
  std::map<std::string, std::string> environment_;
  std::map<int, std::uint64_t> limits_;
  std::set<int> closed_;
  std::vector<std::string> wrapper_;
  std::string program_ = VANTRY_PROGRAM;
};
