#include "zrd/messages.h"

#include <iostream>

#include "vantry/check/report.h"

namespace vantry::zrd {

void say(const std::string& sentence) {
  std::cerr << "zrd: " << check::printable(sentence) << '\n' << std::flush;
}

}  // namespace vantry::zrd
