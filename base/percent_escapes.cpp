#include "vantry/base/percent_escapes.h"

namespace vantry::base {

std::string percentEscaped(std::string_view path) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (plain.find(c) != plain.npos) {
      escaped += c;
    } else {
      escaped += {'%', digits[byte / 16], digits[byte % 16]};
    }
  }
  return escaped;
}

}  // namespace vantry::base
