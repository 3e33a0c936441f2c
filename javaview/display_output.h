// The pieces of text that the blocks of a JavaView display are made of.
#pragma once

#include "vantry/javaview/javaview_output.h"
#include "vantry/plot/values/point.h"

namespace vantry::javaview {

/// Writes the set-up of a display. Points are those of the coordinate system: no transform applies.
class DisplayOutput : public JavaViewOutput {
 public:
  /// The place of a camera or a light.
  void writePosition(const plot::P3& point) { writePoint("position", point); }

  /// What it is directed at.
  void writeInterest(const plot::P3& point) { writePoint("interest", point); }

 private:
  void writePoint(std::string_view element, const plot::P3& point) {
    *this << '<' << element << '>' << point.x << ' ' << point.y << ' ' << point.z << "</" << element
          << ">\n";
  }
};

}  // namespace vantry::javaview
