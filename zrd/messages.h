// What the program says to people beside its output.
#pragma once

#include <functional>
#include <string>

namespace vantry::zrd {

/// Takes a sentence about something that goes on nevertheless.
using Warn = std::function<void(const std::string& sentence)>;

/// Writes a sentence, with the name of the program in front, as one line on standard error.
void say(const std::string& sentence);

/// A text without line breaks and other control characters, which names of files and words of
/// documents may hold.
std::string inOneLine(std::string text);

}  // namespace vantry::zrd
