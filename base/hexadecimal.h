// Bytes in hexadecimal digits.
#pragma once

#include <string>
#include <string_view>

namespace vantry::base {

/// The two digits of a byte, as in "0A".
inline std::string hexadecimal(unsigned char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  return {digits[byte / 16], digits[byte % 16]};
}

}  // namespace vantry::base
