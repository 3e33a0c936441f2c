// Numbers as text, the way an output stream with default settings writes them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantry::base {

/// The room that a number's text needs, whatever its length.
inline constexpr std::size_t numberRoom = 24;

/// Writes `value` with six significant digits, byte for byte as printf's "%g" does in the POSIX
/// locale; a NaN is "nan" or, with its sign bit set, "-nan". Gives the end of the text, which gets
/// no NUL. Up to `numberRoom` bytes from `out` on may be overwritten.
char* formatDouble(char* out, double value);

/// Writes `value` in decimal, otherwise as formatDouble() does.
char* formatInteger(char* out, std::int64_t value);
char* formatInteger(char* out, std::uint64_t value);

}  // namespace vantry::base
