// The descriptors that a process expects to be open when it starts.
#pragma once

namespace vantry::base {

/// Makes sure that no file of the run becomes the standard input, output or error of a process that
/// was started without them. Nothing can be written to the stand-in for standard output, so that
/// the loss is noticed. To be called before any file is opened.
void occupyStandardDescriptors();

}  // namespace vantry::base
