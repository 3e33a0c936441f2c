#include "vantry/base/percent_escapes.h"

#include "vantry/base/hexadecimal.h"

namespace vantry::base {

std::string percentEscaped(std::string_view path) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string escaped;
  for (const char c : path) {
    if (plain.find(c) != plain.npos) {
      escaped += c;
    } else {
      escaped += '%' + hexadecimal(static_cast<unsigned char>(c));
    }
  }
  return escaped;
}

}  // namespace vantry::base
