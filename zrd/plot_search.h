// Which plots a command line names.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vantry::zrd {

/// A plot document that was found.
struct FoundPlot {
  std::filesystem::path name;
  std::filesystem::path folder;  ///< where it lies below the folder that was named; may be empty
};

/// Why a name stands for no plot, or for fewer than there may be.
struct SearchFailure {
  enum class Kind : std::uint8_t {
    unreadable,    ///< a file, a list or a folder that cannot be opened
    notSearched,   ///< a folder that could not be searched to its end
    withoutPlots,  ///< a folder that was searched
  };
  Kind kind;
  std::string sentence;
};

/// What was found, and what was not.
struct FoundPlots {
  std::vector<FoundPlot> plots;
  std::vector<SearchFailure> failures;
  std::vector<std::string> warnings;  ///< sentences about lists without a name
};

/// Finds the plots that names stand for: files as they are, folders for all *.zrd in and below
/// them, "-" for a list of such names on standard input. `listName`, unless it is empty, is a file
/// with such a list, or "-". A list has a name a line, or, if there is a zero byte in it, names
/// that end with one. A plot that comes twice is returned once. A folder without plots is a
/// failure.
FoundPlots findPlots(const std::vector<std::string>& names, const std::string& listName = {});

/// A path that is the same for all ways to write the name of a file, as far as that shows without
/// a look at the file. It is the name itself if the current folder is gone.
std::filesystem::path comparable(const std::filesystem::path& name);

}  // namespace vantry::zrd
