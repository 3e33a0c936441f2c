// The clipping box of a 3d scene.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// The box outside of which nothing of a scene is shown. It is unset while no maximum is above
/// its minimum.
class ClippingBox : public Primitive<ClippingBox> {
 public:
  static constexpr Token tag = Word::ClippingBox;

  explicit ClippingBox(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> xMax;
  Resolved<double> yMax;
  Resolved<double> zMax;
  Resolved<double> xMin;
  Resolved<double> yMin;
  Resolved<double> zMin;
};

}  // namespace vantry::plot
