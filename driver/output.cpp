#include "driver/output.h"

#include <unistd.h>

#include <iostream>

#include "driver/reporting.h"

namespace vantry::driver {

Output::Output(const char* name) : stream_(name ? file_ : std::cout) {
  if (!name) return;
  file_.open(name, std::ios::binary | std::ios::trunc);
  if (!file_) error("Can not open output file.");
}

void Output::close() {
  bool isClosed = true;
  if (file_.is_open()) {
    file_.close();
  } else {
    stream_.flush();
    isClosed = ::close(STDOUT_FILENO) == 0;
  }
  if (!stream_ || !isClosed) error("Can not write output file.");
}

}  // namespace vantry::driver
