// What the command lines of several commands have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "vantry/check/model_facts.h"

namespace vantry::zrd {

/// Adds the document that a command reads.
void addDocument(CLI::App& command, std::string& name);

/// Adds the plot that a command shows, or several of them.
void addShownPlot(CLI::App& command, std::string& name);
void addShownPlots(CLI::App& command, std::vector<std::string>& names);

/// Adds the file that a command writes.
CLI::Option* addOutput(CLI::App& command, std::string& name, const std::string& about);

/// Adds the time at which animated plots are taken. Without the option it stays as it is.
void addTime(CLI::App& command, double& time);

/// Adds the number of frames in a unit of time. Without the option it stays as it is.
CLI::Option* addFrames(CLI::App& command, int& frames, const std::string& about);

/// Refuses a command line that asks for one time and for the frames of all.
void refuseTimeBesideFrames(const CLI::App& command);

/// Adds an option, or with a name of that kind an argument, whose value is the name of an element
/// of the format.
void addElement(CLI::App& command, const std::string& name, const check::ClassFacts*& element,
                const std::string& about);

}  // namespace vantry::zrd
