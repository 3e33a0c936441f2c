#include "zrd/common_options.h"

#include <algorithm>

#include "zrd/option_values.h"
#include "zrd/wrong_usage.h"

namespace vantry::zrd {

void addDocument(CLI::App& command, std::string& name) {
  command.add_option("FILE", name, "The plot document, or - for standard input")->required();
}

CLI::Option* addOutput(CLI::App& command, std::string& name, const std::string& about) {
  return command.add_option("-o,--output", name, about)->type_name("FILE");
}

void addTime(CLI::App& command, double& time) {
  addNumber(command, "--time", time, "Take animated plots as they are at this time");
}

CLI::Option* addFrames(CLI::App& command, int& frames, const std::string& about) {
  return addWholeNumber(command, "--frames", frames, 1, 1'000'000, about);
}

void addElement(CLI::App& command, const check::ClassFacts*& element, const std::string& about) {
  const auto take = [&element](const std::string& name) {
    const auto classes = check::documentClasses();
    const auto found = std::ranges::find_if(
        classes, [&name](const check::ClassFacts* facts) { return facts->name.str() == name; });
    if (found == classes.end()) {
      const std::string meant = question(name, check::elementNames());
      throw CLI::ValidationError(
          "--element", "there is no element " + name +
                           (meant.empty() ? "; zrd reference lists those that there are" : meant));
    }
    element = *found;
  };
  command.add_option_function<std::string>("--element", take, about)->type_name("NAME");
}

}  // namespace vantry::zrd
