// Diagnostics as texts: for people, for programs, and for editors and code hosts.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vantry/check/diagnostic.h"

namespace vantry::check {

/// What was found in one file. The name is the one under which it is shown.
struct FileReport {
  std::string name;
  std::vector<Diagnostic> diagnostics = {};
  std::size_t omitted = 0;   ///< diagnostics that were found and are not among these
  bool mayHaveMore = false;  ///< whether the check kept no more of some kind
  std::string failure = {};  ///< why the file could not be read; empty if it could
};

/// A text on one line that a terminal shows as it is. Control characters, and bytes that are no
/// UTF-8, are written as in "\x0A".
std::string printable(std::string_view text);

/// Writes each diagnostic as compilers do: a line "file:line:column: error: sentence [code]", the
/// line of the document with a mark below it, and the help. `document` is what was checked. With
/// `color` the weight and the mark have colours of a terminal.
void writeText(std::ostream& out, const FileReport& report, std::string_view document, bool color);

/// Writes each diagnostic as a JSON object on a line of its own, with the members file, line,
/// column, endColumn, severity, code, message and help. If that is not all there is an object with
/// file, omitted and mayHaveMore behind them, and if the file could not be read one with file and
/// failure.
void writeJsonLines(std::ostream& out, const FileReport& report);

/// Writes what was found in all files as one log in the format SARIF 2.1.0. `version` is that of
/// the program.
void writeSarif(std::ostream& out, std::span<const FileReport> reports, std::string_view version);

}  // namespace vantry::check
