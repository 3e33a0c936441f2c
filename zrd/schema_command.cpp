#include "zrd/commands.h"
#include "zrd/schema.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

Command addSchemaCommand(CLI::App& program) {
  CLI::App* command =
      program.add_subcommand("schema", "Write a RELAX NG schema, for editors and validators");
  return {command, [] {
            writeOut(writeSchema);
            return success;
          }};
}

}  // namespace vantry::zrd
