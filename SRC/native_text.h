// Text from the input in the encoding of the process.
#pragma once

#include <string>

namespace PlotDom {

/// `utf8` in the native multibyte encoding. Throws Ubase::BadUnicodeString for a text that is
/// incomplete or that the native encoding cannot hold.
std::string nativeText(const char* utf8);

}  // namespace PlotDom
