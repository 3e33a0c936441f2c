// Files that are read. A name may be "-" for standard input, unless a plain file is asked for.
#pragma once

#include <cstddef>
#include <fstream>
#include <istream>
#include <span>
#include <string>

namespace vantry::zrd {

// All of these throw Failure, which names the file, if it cannot be read.

/// Opens a plain file.
std::ifstream openFile(const std::string& name);

/// Where a file is read from: `file`, which is opened for it, or standard input.
std::istream& openInput(const std::string& name, std::ifstream& file);

/// Reads on in the file of that name. Returns how many bytes there were: fewer than the block has
/// at the end, and only there.
std::size_t readBlock(std::istream& in, const std::string& name, std::span<char> block);

/// All bytes of a file.
std::string contentOf(const std::string& name);

}  // namespace vantry::zrd
