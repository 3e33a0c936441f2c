// What the command lines of several commands have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "vantry/check/model_facts.h"

namespace vantry::zrd {

/// Adds the document that a command reads.
void addDocument(CLI::App& command, std::string& name);

/// Adds the file that a command writes.
CLI::Option* addOutput(CLI::App& command, std::string& name, const std::string& about);

/// Adds the time at which animated plots are taken. Without the option it stays as it is.
void addTime(CLI::App& command, double& time);

/// Adds the number of frames in a unit of time. Without the option it stays as it is.
CLI::Option* addFrames(CLI::App& command, int& frames, const std::string& about);

/// Adds the name of an element, which must be one of the format.
void addElement(CLI::App& command, const check::ClassFacts*& element, const std::string& about);

/// What the arguments of commands are that show plots.
inline constexpr const char* aboutShownPlot =
    "A plot document, a JVX file with a JVD file beside it, or - for standard input";

}  // namespace vantry::zrd
