// Diagnostics as texts: for people, for programs, and for editors and code hosts.
#pragma once

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
  std::vector<Diagnostic> diagnostics;
};

/// Writes each diagnostic as compilers do: a line "file:line:column: error: sentence [code]", the
/// line of the document with a mark below it, and the help. `document` is what was checked. With
/// `color` the weight and the mark have colours of a terminal.
void writeText(std::ostream& out, const FileReport& report, std::string_view document, bool color);

/// Writes each diagnostic as a JSON object on a line of its own, with the members file, line,
/// column, endColumn, severity, code, message and help.
void writeJsonLines(std::ostream& out, const FileReport& report);

/// Writes what was found in all files as one log in the format SARIF 2.1.0. `version` is that of
/// the program.
void writeSarif(std::ostream& out, std::span<const FileReport> reports, std::string_view version);

}  // namespace vantry::check
