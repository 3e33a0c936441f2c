// The run from the input file to the last byte of the output.
#pragma once

#include "driver/options.h"

namespace vantry::driver {

/// Converts one file as the options ask. Returns when the whole output is written; an input or
/// output that fails and an export that is not possible end the program with an error. An exception
/// of the document model passes.
void convert(Options options);

}  // namespace vantry::driver
