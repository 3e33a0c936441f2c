#include "vantry/base/standard_descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace vantry::base {

void occupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    open("/dev/null", descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace vantry::base
