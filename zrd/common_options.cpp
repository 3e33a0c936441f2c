#include "zrd/common_options.h"

#include "zrd/option_values.h"

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

}  // namespace vantry::zrd
