// The commands of the program.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace vantry::zrd {

/// What the process ends with.
enum ExitStatus : int {
  success = 0,
  wrongUsage = 1,   ///< the command line is wrong
  hasMistakes = 1,  ///< a document that was to be checked has errors
  badDocument = 2,  ///< a document cannot be read or used
  noBrowser = 3,    ///< what shows plots is missing, or fails
};

/// A command of the command line: its options, and what carries it out and returns the exit status.
struct Command {
  CLI::App* options;
  std::function<int()> run;
};

/// What ends a command early: a message for people, and the exit status.
class Failure : public std::runtime_error {
 public:
  Failure(int status, const std::string& message) : std::runtime_error(message), status_(status) {}
  int status() const { return status_; }

 private:
  int status_;
};

/// A document is bad. The message names the file and the place.
class BadDocument : public Failure {
 public:
  explicit BadDocument(const std::string& message) : Failure(badDocument, message) {}
};

/// Behind a message about bad documents: what finds all that is wrong with them.
inline constexpr const char* wayOut = " (zrd check FILE explains it)";

// Each adds a command to the program.
Command addCheckCommand(CLI::App& program);
Command addCommandCommand(CLI::App& program);
Command addConvertCommand(CLI::App& program);
Command addFormatCommand(CLI::App& program);
Command addPictureCommand(CLI::App& program);
Command addReferenceCommand(CLI::App& program);
Command addSchemaCommand(CLI::App& program);
Command addShowCommand(CLI::App& program);
Command addViewCommand(CLI::App& program);

}  // namespace vantry::zrd
