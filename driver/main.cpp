#include <fcntl.h>
#include <unistd.h>

#include <ios>

#include "driver/conversion.h"
#include "driver/last_words.h"
#include "driver/options.h"

namespace {

/// Makes sure that no file of the run becomes the standard output or error of a process that was
/// started without them. Nothing can be written to the stand-in for standard output, so that the
/// loss is noticed.
void occupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    open("/dev/null", descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  occupyStandardDescriptors();
  vantry::driver::announceAbnormalEnds();
  std::ios::sync_with_stdio(false);
  vantry::driver::convert(vantry::driver::parseOptions(argc, argv));
  return 0;
}
