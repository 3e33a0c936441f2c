// Files as texts.
#pragma once

#include <string>

namespace vantry::zrd {

/// All bytes of a file; "-" is standard input. Throws Failure, which names the file, if it cannot
/// be read.
std::string contentOf(const std::string& name);

}  // namespace vantry::zrd
