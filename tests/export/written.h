// The text that pieces of the toolkit write.
#pragma once

#include <sstream>
#include <string>

#include "export/geometry_output.h"

namespace PlotDom {

/// What `write` writes to the output that it is given.
template <class Write>
std::string written(Write write) {
  std::ostringstream stream;
  GeometryOutput out;
  out.attach(stream);
  write(out);
  out.flush();
  return stream.str();
}

}  // namespace PlotDom
