// Other programs.
#pragma once

#include <string>
#include <vector>

namespace vantry::zrd {

/// A descriptor of this process that another one gets under a number of its own.
struct Handed {
  int own;
  int number;
};

/// Starts a program, which is looked for in the PATH unless its name has a slash, with these
/// arguments and descriptors; a quiet one says nothing. Returns the number of the process; -1, with
/// the reason in errno, if there is no such program.
int startProcess(const std::vector<std::string>& command, const std::vector<Handed>& descriptors,
                 bool isQuiet);

/// Waits for the end of a process. Returns its exit status, or 128 and the signal that ended it.
int waitForProcess(int process);

/// Has a process end, by force if it does not do so by itself, and waits for it.
void endProcess(int process);

}  // namespace vantry::zrd
