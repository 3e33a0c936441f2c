#include "zrd/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <string_view>

#include "vantry/check/characters.h"
#include "vantry/check/report.h"

namespace vantry::zrd {

namespace {

constexpr std::chrono::milliseconds pause(100);
constexpr const char* emptyLine = "\r\033[K";

// No character has more columns than bytes.
std::string cutTo(std::size_t columns, std::string line) {
  constexpr std::string_view dots = "...";
  if (line.size() < columns) return line;
  std::size_t size = columns - std::min(columns, dots.size() + 1);
  while (size > 0 && !check::beginsCharacter(line[size])) --size;
  return line.substr(0, size).append(dots);
}

}  // namespace

std::size_t columnsOfTerminal() {
  winsize size{};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

Progress::Progress() : isTerminal_(isatty(STDERR_FILENO) == 1) {}

void Progress::show(const std::function<std::string()>& makeLine) {
  if (!isTerminal_ || (isShown_ && Clock::now() < next_)) return;
  std::cerr << emptyLine << cutTo(columnsOfTerminal(), check::printable(makeLine())) << std::flush;
  isShown_ = true;
  next_ = Clock::now() + pause;
}

void Progress::hide() {
  if (isShown_) std::cerr << emptyLine << std::flush;
  isShown_ = false;
}

}  // namespace vantry::zrd
