#include <ios>

#include "driver/conversion.h"
#include "driver/last_words.h"
#include "driver/options.h"
#include "vantry/base/standard_descriptors.h"

int main(int argc, char** argv) {
  vantry::base::occupyStandardDescriptors();
  vantry::driver::announceAbnormalEnds();
  std::ios::sync_with_stdio(false);
  vantry::driver::convert(vantry::driver::parseOptions(argc, argv));
  return 0;
}
