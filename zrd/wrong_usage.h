// What is wrong with a command line, for people.
#pragma once

#include <CLI/CLI.hpp>
#include <span>
#include <string>

#include "vantry/base/token.h"

namespace vantry::zrd {

/// "; did you mean check?" for the name that is nearest to a word; empty if none is near.
std::string question(const std::string& word, std::span<const base::Token> names);

/// Why a command line was refused, and where help is: as in "there is no option --colour; did you
/// mean --color? (see zrd check --help)". `program` is what has read the line.
std::string describe(const CLI::App& program, const CLI::ParseError& refusal);

}  // namespace vantry::zrd
