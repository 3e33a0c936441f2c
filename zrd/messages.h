// What the program says to people beside its output.
#pragma once

#include <functional>
#include <string>

namespace vantry::zrd {

/// Takes a warning, a sentence about something that does not stop the program.
using Warn = std::function<void(const std::string& sentence)>;

/// Writes a sentence, with the name of the program in front, as one line on standard error. Control
/// characters, which names of files and words of documents may hold, are escaped.
void say(const std::string& sentence);

}  // namespace vantry::zrd
