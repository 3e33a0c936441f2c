// Numbers as text, the way an output stream with default settings writes them.
#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>

namespace Ubase {

/// Room enough for the text of any number.
inline constexpr std::size_t longestNumber = 24;

/// Writes `value` with six significant digits, byte for byte as printf's "%g" in the POSIX locale,
/// and gives the end of the text. No NUL is written.
inline char* formatDouble(char* out, double value) {
  return std::to_chars(out, out + longestNumber, value, std::chars_format::general, 6).ptr;
}

/// Writes `value` in decimal and gives the end of the text. No NUL is written.
template <std::integral Integer>
char* formatInteger(char* out, Integer value) {
  return std::to_chars(out, out + longestNumber, value).ptr;
}

}  // namespace Ubase
