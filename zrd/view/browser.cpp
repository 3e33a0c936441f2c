#include "zrd/view/browser.h"

#include <cstdlib>
#include <sstream>
#include <vector>

#include "zrd/commands.h"
#include "zrd/view/process.h"

namespace vantry::zrd {

namespace {

std::vector<std::string> commandOf(const std::string& text, const std::string& file) {
  std::istringstream words(text);
  std::vector<std::string> command;
  bool isFileNamed = false;
  for (std::string word; words >> word;) {
    const std::size_t place = word.find("%s");
    if (place != word.npos) {
      word.replace(place, 2, file);
      isFileNamed = true;
    }
    command.push_back(word);
  }
  if (!isFileNamed) command.push_back(file);
  return command;
}

bool run(const std::vector<std::string>& command) {
  const int process = startProcess(command, {}, false);
  return process > 0 && waitForProcess(process) == 0;
}

}  // namespace

void openInBrowser(const std::string& file) {
  const char* const chosen = std::getenv("BROWSER");
  const bool isChosen = chosen && *chosen;
  std::istringstream commands(isChosen ? chosen : "xdg-open");
  for (std::string text; std::getline(commands, text, ':');) {
    if (run(commandOf(text, file))) return;
  }
  const std::string remedy = isChosen ? "let the variable BROWSER name another one"
                                      : "install the Debian package xdg-utils, let the variable "
                                        "BROWSER name a browser";
  throw Failure(noBrowser, "no browser could be opened: " + remedy + ", or open " + file);
}

}  // namespace vantry::zrd
