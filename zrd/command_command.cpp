#include <memory>
#include <ostream>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/plot_file.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

Command addCommandCommand(CLI::App& program) {
  CLI::App* options =
      program.add_subcommand("command", "Print the plot as a command of the algebra system");
  auto name = std::make_shared<std::string>();
  addDocument(*options, *name);
  return {options, [name] {
            const PlotFile file(*name);
            writeOut([&file](std::ostream& out) {
              file.document().printCommands(out, false);
              out << '\n';
            });
            return success;
          }};
}

}  // namespace vantry::zrd
