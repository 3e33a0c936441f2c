// The clipping box of a 3d scene.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// The box outside of which nothing of a scene is shown. It is unset while no maximum is above
/// its minimum.
class ClippingBox : public Primitive<ClippingBox> {
 public:
  static constexpr Token tag = Word::ClippingBox;

  explicit ClippingBox(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<double> xMax;
  Stored<double> yMax;
  Stored<double> zMax;
  Stored<double> xMin;
  Stored<double> yMin;
  Stored<double> zMin;
};

}  // namespace vantry::plot
