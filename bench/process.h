// What a run of a program costs.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct Cost {
  double milliseconds;  ///< of the processors, in the program and in the system
  double megabytes;     ///< the most memory that was in use at once
};

/// Runs a program to its end with `output` as its standard output and error. Throws if it fails.
Cost run(const std::vector<std::string>& command, const std::filesystem::path& output);
