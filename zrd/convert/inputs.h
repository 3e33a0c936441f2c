// Which documents are to be converted.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zrd/convert/report.h"

namespace vantry::zrd {

/// A document that was found.
struct Input {
  std::filesystem::path name;
  std::filesystem::path folder;  ///< where it lies below the folder that was named; may be empty
};

/// Finds the documents that names stand for: files as they are, folders for all *.zrd in and below
/// them, "-" for a list of such names on standard input. `listName`, unless it is empty, is a file
/// with such a list, or "-". A list has a name a line, or, if there is a zero byte in it, names
/// that end with one. A document that comes twice is returned once. What cannot be found or read,
/// and a folder without any, is reported.
std::vector<Input> findInputs(const std::vector<std::string>& names, const std::string& listName,
                              ConvertReport& report);

}  // namespace vantry::zrd
