// Outputs of commands that make one file.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>

namespace vantry::zrd {

/// Writes a file by `write`, or standard output if the name is "-". A file appears whole or not at
/// all. Throws Failure if it cannot be written.
void writeWhole(const std::filesystem::path& name,
                const std::function<void(std::ostream& out)>& write);

}  // namespace vantry::zrd
