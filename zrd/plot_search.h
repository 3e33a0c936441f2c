// Which plots a command line names.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vantry::zrd {

/// A plot document that was found.
struct FoundPlot {
  std::filesystem::path name;
  std::filesystem::path folder;  ///< where it lies below the folder that was named; may be empty
};

/// What was found, and sentences about what was not.
struct FoundPlots {
  std::vector<FoundPlot> plots;
  std::vector<std::string> failures;  ///< names that stand for nothing that can be read
  std::vector<std::string> warnings;  ///< lists without a name
};

/// Finds the plots that names stand for: files as they are, folders for all *.zrd in and below
/// them, "-" for a list of such names on standard input. `listName`, unless it is empty, is a file
/// with such a list, or "-". A list has a name a line, or, if there is a zero byte in it, names
/// that end with one. A plot that comes twice is returned once. A folder without plots is a
/// failure.
FoundPlots findPlots(const std::vector<std::string>& names, const std::string& listName = {});

}  // namespace vantry::zrd
