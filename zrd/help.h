// The help of the program and of its commands.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>

namespace vantry::zrd {

/// Writes how a command is called, what it does, and tables of its arguments and options. The
/// completions of the shells read these.
std::shared_ptr<CLI::FormatterBase> helpFormatter();

}  // namespace vantry::zrd
