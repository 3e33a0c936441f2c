// Where the scenes of a canvas are.
#pragma once

#include <span>
#include <vector>

#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/scene.h"

namespace vantry::page {

/// A rectangle in parts of the canvas: from its left and its top, 0 to 1.
struct Place {
  double left;
  double top;
  double width;
  double height;
};

/// The places of these scenes of the canvas, by its layout, its margins and its spacing.
std::vector<Place> placesOf(const plot::Canvas& canvas,
                            std::span<const plot::SceneBase* const> scenes);

}  // namespace vantry::page
