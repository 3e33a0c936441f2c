// The viewing box of a scene as numbers, and the blocks of a display that follow from it.
#pragma once

#include <cmath>
#include <optional>

#include "vantry/javaview/display_output.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/values/point.h"

namespace vantry::javaview {

/// The extent of the viewing box along one axis.
struct AxisRange {
  double min = plot::nan;  // NaN: unknown
  double max = plot::nan;  // NaN: unknown

  bool isKnown() const { return !std::isnan(min) && !std::isnan(max); }
  double size() const { return std::abs(max - min); }
};

/// The viewing box, as far as the document gives it, in the units of the model.
struct Bounds {
  AxisRange x;
  AxisRange y;
  AxisRange z;  // unknown in 2d

  /// The largest size among the known axes, NaN if there is none.
  double span = plot::nan;

  bool isKnown2d() const { return x.isKnown() && y.isKnown(); }
  bool isKnown3d() const { return isKnown2d() && z.isKnown(); }
};

/// The viewing box of a coordinate system. A range that is empty or upside down is unknown.
Bounds computeBounds(const plot::CoordinateSystemBase& coordinateSystem, bool is2d);

/// Maps each coordinate from the range -1 to 1 onto the bounds.
plot::P3 mapToBox(const Bounds& bounds, const plot::P3& point);

/// How the axes are scaled: `Constrained`, `Unconstrained`, or `Automatic` if neither the
/// coordinate system nor its hints say which of them.
plot::Token scalingOf(const plot::CoordinateSystemBase& coordinateSystem);

/// Whether the axes are scaled alike.
bool isConstrained(const plot::CoordinateSystemBase& coordinateSystem);

/// The proportions of a box in the plane whose axes are not scaled alike: those of the canvas. None
/// if the root is no canvas.
std::optional<plot::P2> boxSides2d(const plot::CoordinateSystemBase& coordinateSystem);

/// The proportions of a box in space whose axes are not scaled alike; x is 1.
plot::P3 boxSides3d(const plot::SceneBase& scene);

/// Writes `<boxRatio>` and returns the ratio with which the camera sees the box: 1 if the scaling
/// is constrained. Without a known box or a canvas as root that is 1 too, and nothing is written.
double writeBoxRatio2d(DisplayOutput& out, const plot::CoordinateSystemBase& coordinateSystem,
                       const Bounds& bounds);

/// Writes `<boxRatio>`, unless the box is unknown.
void writeBoxRatio3d(DisplayOutput& out, const plot::SceneBase& scene,
                     const plot::CoordinateSystemBase& coordinateSystem, const Bounds& bounds);

/// Writes `<clipRange>` with the axes that are known. `extendClip` widens each range by a tenth of
/// its size at either end.
void writeClipRange(DisplayOutput& out, const Bounds& bounds, bool extendClip);

}  // namespace vantry::javaview
