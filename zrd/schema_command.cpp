#include <iostream>

#include "zrd/commands.h"
#include "zrd/schema.h"

namespace vantry::zrd {

Command addSchemaCommand(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "schema", "Write a RELAX NG schema of plot documents, for editors and validators");
  return {command, [] {
            writeSchema(std::cout);
            std::cout.flush();
            return std::cout ? success : badDocument;
          }};
}

}  // namespace vantry::zrd
