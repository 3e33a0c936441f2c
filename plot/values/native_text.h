// Text from the input in the encoding of the process.
#pragma once

#include <string>

namespace vantry::plot {

/// `utf8` in the native multibyte encoding. The converter has UTF-8 for it, and then any text
/// passes as it is; what the locale cannot hold is found out when it is written.
std::string nativeText(const char* utf8);

}  // namespace vantry::plot
