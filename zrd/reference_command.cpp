#include <algorithm>
#include <memory>
#include <ostream>

#include "vantry/check/model_facts.h"
#include "vantry/check/names.h"
#include "zrd/commands.h"
#include "zrd/reference.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

namespace {

struct Options {
  std::string element;
  bool isMarkdown = false;
};

const check::ClassFacts& elementNamed(const std::string& name) {
  const auto classes = check::documentClasses();
  const auto found = std::ranges::find_if(
      classes, [&](const check::ClassFacts* element) { return element->name.str() == name; });
  if (found != classes.end()) return **found;
  const std::string_view nearest = check::nearestName(name, check::elementNames());
  throw Failure(wrongUsage,
                "there is no element " + name +
                    (nearest.empty() ? "" : "; did you mean " + std::string(nearest) + '?'));
}

}  // namespace

Command addReferenceCommand(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "reference", "Say what elements there are, or what an element may hold");
  auto options = std::make_shared<Options>();
  command->add_option("--element", options->element, "The name of an element");
  command->add_flag("--markdown", options->isMarkdown, "Write a page of the manual");
  return {command, [options] {
            if (options->element.empty()) {
              writeOut(options->isMarkdown ? writeReferenceIndex : writeReferenceList);
              return success;
            }
            const check::ClassFacts& element = elementNamed(options->element);
            const auto write = options->isMarkdown ? writeReferencePage : writeReference;
            writeOut([&](std::ostream& out) { write(out, element); });
            return success;
          }};
}

}  // namespace vantry::zrd
