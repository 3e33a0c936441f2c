#include <iostream>
#include <memory>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/plot_file.h"

namespace vantry::zrd {

Command addCommandCommand(CLI::App& program) {
  CLI::App* options =
      program.add_subcommand("command", "Print the plot as a command of the algebra system");
  auto name = std::make_shared<std::string>();
  addDocument(*options, *name);
  return {options, [name] {
            const PlotFile file(*name);
            file.document().printCommands(std::cout, false);
            std::cout << '\n' << std::flush;
            return std::cout ? success : badDocument;
          }};
}

}  // namespace vantry::zrd
