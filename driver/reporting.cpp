#include "driver/reporting.h"

#include <cstdio>
#include <cstdlib>

namespace vantry::driver {

void usage() {
  std::fputs(
      "usage: vantry [-d] [-h] [-v] [-t #] [-o #] <in-file>\n"
      "         -d   ouput JVD file instead of JVX\n"
      "         -t # time\n"
      "         -f # frames per second\n"
      "         -o # output file name\n"
      "         -v   version info\n"
      "         -h   this help\n"
      "\n",
      stderr);
  std::exit(1);
}

void error(const char* message) {
  std::fprintf(stderr, "Error: %s (exiting)\n", message);
  std::exit(2);
}

void warning(const char* message) { std::fprintf(stderr, "Warning: %s\n", message); }

void parserWarning(int code, int line, int column) {
  std::fprintf(stderr, "Warning: parser error '%d' [line %d column %d]\n", code, line, column);
}

void badData(const char* reason) {
  std::fprintf(stderr, "vantry: bad data: %s (zrd check FILE explains it)\n", reason);
}

void badData(const char* reason, int line, int column) {
  std::fprintf(stderr, "vantry: bad data in line %d, column %d: %s (zrd check FILE explains it)\n",
               line, column, reason);
}

void uncaught(const char* type, const char* what) {
  std::fprintf(stderr,
               "terminate called after throwing an instance of '%s'\n"
               "  what():  %s\n",
               type, what);
}

void outOfMemory() { std::fputs("vantry: out of memory\n", stderr); }

}  // namespace vantry::driver
