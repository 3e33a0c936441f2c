// The command line.
#pragma once

#include <limits>

namespace vantry::driver {

/// What the command line asks for. The names point into the arguments.
struct Options {
  const char* inName = nullptr;
  const char* outName = nullptr;  ///< null: standard output
  bool displayMode = false;       ///< a display file instead of a geometry file
  double time = std::numeric_limits<double>::quiet_NaN();  ///< NaN: no time was asked for
  int frames = 0;  ///< frames per unit of time of an animation; 0: a single file
};

/// Reads the arguments, strictly from left to right. Ends the program where they are wrong, and
/// where they ask for the help or the version.
Options parseOptions(int argc, const char* const* argv);

}  // namespace vantry::driver
