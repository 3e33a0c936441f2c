// The text that pieces of the toolkit write.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "vantry/javaview/export_error.h"
#include "vantry/javaview/geometry_output.h"

namespace vantry::javaview {

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

/// The message with which `write` refuses to write anything.
template <class Write>
std::string refusal(Write write) {
  std::string message = "no error";
  EXPECT_EQ(written([&](GeometryOutput& out) {
              try {
                write(out);
              } catch (const JavaViewExportError& error) {
                message = error.what();
              }
            }),
            "");
  return message;
}

}  // namespace vantry::javaview
