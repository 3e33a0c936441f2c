#include "zrd/whole_output.h"

#include <iostream>

#include "zrd/commands.h"
#include "zrd/output_file.h"

namespace vantry::zrd {

void writeOut(const Writing& write) {
  write(std::cout);
  if (!std::cout.flush()) throw Failure(badDocument, "standard output cannot be written");
}

void writeWhole(const std::filesystem::path& name, const Writing& write) {
  if (name == "-") return writeOut(write);
  const CleanInterruption interruption;
  OutputFile file(name);
  write(file.stream());
  file.close();
  file.appear();
}

void requireWritable(const std::filesystem::path& name) {
  if (name == "-") return;
  const CleanInterruption interruption;
  const OutputFile attempt(name);
}

}  // namespace vantry::zrd
