#include <memory>
#include <ostream>

#include "vantry/check/model_facts.h"
#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/reference.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

namespace {

struct Options {
  const check::ClassFacts* element = nullptr;  // null: all
  bool isMarkdown = false;
};

}  // namespace

Command addReferenceCommand(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "reference", "Say what elements there are, or what an element may hold");
  auto options = std::make_shared<Options>();
  addElement(*command, "--element,NAME", options->element,
             "The element that is described; all are listed without it");
  command->add_flag("--markdown", options->isMarkdown, "Write a page of the manual");
  return {command, [options] {
            if (!options->element) {
              writeOut(options->isMarkdown ? writeReferenceIndex : writeReferenceList);
              return success;
            }
            const auto write = options->isMarkdown ? writeReferencePage : writeReference;
            writeOut([&](std::ostream& out) { write(out, *options->element); });
            return success;
          }};
}

}  // namespace vantry::zrd
