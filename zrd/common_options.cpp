#include "zrd/common_options.h"

#include <algorithm>

#include "zrd/option_values.h"
#include "zrd/wrong_usage.h"

namespace vantry::zrd {

namespace {

constexpr const char* aboutShownPlot =
    "A plot document, a JVX file with a JVD file beside it, or - for standard input";

}  // namespace

void addDocument(CLI::App& command, std::string& name) {
  command.add_option("FILE", name, "The plot document, or - for standard input")
      ->required()
      ->check(mustNotBeEmpty);
}

void addShownPlot(CLI::App& command, std::string& name) {
  command.add_option("PLOT", name, aboutShownPlot)->required()->check(mustNotBeEmpty);
}

void addShownPlots(CLI::App& command, std::vector<std::string>& names) {
  command.add_option("PLOT", names, aboutShownPlot)->required()->check(mustNotBeEmpty);
}

CLI::Option* addOutput(CLI::App& command, std::string& name, const std::string& about) {
  return command.add_option("-o,--output", name, about)->type_name("FILE")->check(mustNotBeEmpty);
}

void addTime(CLI::App& command, double& time) {
  addNumber(command, "--time", time, "Take animated plots as they are at this time")
      ->type_name("T");
}

CLI::Option* addFrames(CLI::App& command, int& frames, const std::string& about) {
  return addWholeNumber(command, "--frames", frames, 1, 1'000'000, about);
}

void refuseTimeBesideFrames(const CLI::App& command) {
  if (command.count("--time") == 0 || command.count("--frames") == 0) return;
  throw CLI::ValidationError("--time and --frames cannot be given together");
}

void addElement(CLI::App& command, const std::string& name, const check::ClassFacts*& element,
                const std::string& about) {
  const auto take = [&element](const std::string& word) {
    const auto classes = check::documentClasses();
    const auto found = std::ranges::find_if(
        classes, [&word](const check::ClassFacts* facts) { return facts->name.str() == word; });
    if (found == classes.end()) {
      const std::string meant = question(word, check::elementNames());
      throw CLI::ValidationError(
          "there is no element " + word +
          (meant.empty() ? "; zrd reference lists those that there are" : meant));
    }
    element = *found;
  };
  command.add_option_function<std::string>(name, take, about)
      ->type_name("NAME")
      ->check(mustNotBeEmpty);
}

}  // namespace vantry::zrd
