#include "driver/options.h"

#include <cstdlib>
#include <string_view>

#include "driver/output.h"
#include "driver/reporting.h"
#include "vantry/base/scan.h"

namespace vantry::driver {

namespace {

[[noreturn]] void version() {
  Output output(nullptr);
  output.stream() << "vantry version " VANTRY_VERSION "\n";
  output.close();
  std::exit(0);
}

void setOnce(const char*& name, const char* argument) {
  if (name) usage();
  name = argument;
}

}  // namespace

Options parseOptions(int argc, const char* const* argv) {
  Options options;
  int at = 1;
  const auto operand = [&] { return at < argc ? argv[at++] : (usage(), nullptr); };

  while (at < argc) {
    const std::string_view argument = argv[at++];
    if (argument == "-h") {
      usage();
    } else if (argument == "-d") {
      options.displayMode = true;
    } else if (argument == "-v") {
      version();
    } else if (argument == "-t") {
      if (!base::scanDouble(operand(), options.time)) usage();
    } else if (argument == "-f") {
      if (!base::scanInt(operand(), options.frames) || options.frames <= 0) usage();
    } else if (argument == "-o") {
      setOnce(options.outName, operand());
    } else {
      setOnce(options.inName, argument.data());
    }
  }
  if (!options.inName) usage();
  return options;
}

}  // namespace vantry::driver
