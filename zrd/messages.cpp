#include "zrd/messages.h"

#include <algorithm>
#include <iostream>

namespace vantry::zrd {

void say(const std::string& sentence) {
  std::cerr << "zrd: " << inOneLine(sentence) << '\n' << std::flush;
}

std::string inOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < ' ' || c == 0x7f; }, ' ');
  return text;
}

}  // namespace vantry::zrd
