// Outputs of commands that make one file.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>

namespace vantry::zrd {

/// What writes an output.
using Writing = std::function<void(std::ostream& out)>;

/// Has standard output written. Throws Failure if it cannot be written.
void writeOut(const Writing& write);

/// Has a file written, or standard output if the name is "-". A file appears whole or not at all.
/// Throws std::runtime_error with the name and the reason if it cannot be written.
void writeWhole(const std::filesystem::path& name, const Writing& write);

/// Throws as writeWhole() does if a file of that name cannot be made. To be called before long
/// work.
void requireWritable(const std::filesystem::path& name);

}  // namespace vantry::zrd
