// What is wrong with a command line, for people.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vantry::zrd {

/// Why a command line was refused, and where help is: as in "there is no option --colour; did you
/// mean --color? (see zrd check --help)". `program` is what has read the line.
std::string describe(const CLI::App& program, const CLI::ParseError& refusal);

}  // namespace vantry::zrd
