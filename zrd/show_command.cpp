#include <memory>
#include <ostream>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/messages.h"
#include "zrd/option_values.h"
#include "zrd/outline.h"
#include "zrd/plot_file.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

Command addShowCommand(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "show", "Show the tree of a document, with the values and their origins");
  auto name = std::make_shared<std::string>();
  auto selection = std::make_shared<OutlineSelection>();
  auto isJson = std::make_shared<bool>(false);
  addDocument(*command, *name);
  command->add_flag("--json", *isJson, "Write a JSON object for each element that is shown");
  const CLI::Option* depth =
      addWholeNumber(*command, "--depth", selection->depth, 0, OutlineSelection::mostLevels,
                     "Show so many levels below the Canvas, or below what is asked for");
  addElement(*command, "--element", selection->element, "Show the elements of this name alone");
  command
      ->add_option("--path", selection->path,
                   "Show what is at this path alone, as in Canvas/Scene2d[1]")
      ->type_name("PATH");
  command->add_flag("--all", selection->hasDefaults, "Show values that are defaults too");
  return {command, [name, selection, isJson, depth] {
            if (selection->element && depth->count() == 0) selection->depth = 0;
            const PlotFile file(*name, say);
            const Outline outline(file, *selection);
            writeOut([&](std::ostream& out) {
              *isJson ? outline.writeJson(out) : outline.writeText(out);
            });
            return success;
          }};
}

}  // namespace vantry::zrd
