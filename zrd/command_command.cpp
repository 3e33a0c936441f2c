#include <memory>
#include <ostream>
#include <sstream>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/messages.h"
#include "zrd/plot_file.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

Command addCommandCommand(CLI::App& program) {
  CLI::App* options =
      program.add_subcommand("command", "Print the plot as a command of the algebra system");
  auto name = std::make_shared<std::string>();
  addDocument(*options, *name);
  return {options, [name] {
            const PlotFile file(*name, say);
            std::ostringstream text;  // so that nothing is written if it cannot be completed
            file.document().printCommands(text, false);
            writeOut([&text](std::ostream& out) { out << text.view() << '\n'; });
            return success;
          }};
}

}  // namespace vantry::zrd
