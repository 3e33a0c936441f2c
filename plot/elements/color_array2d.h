// The primitive ColorArray2d.
#pragma once

#include <vector>

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A raster of `xMesh` by `yMesh` cells, each with a colour; x fastest, the lowest row first.
class ColorArray2d : public Primitive<ColorArray2d> {
 public:
  static constexpr Token tag = Word::ColorArray2d;

  explicit ColorArray2d(dom::Document* document);

  static const PropertyList& propertyList();

  Resolved<std::int32_t> xMesh;
  Resolved<std::int32_t> yMesh;
  Resolved<double> xMin;
  Resolved<double> xMax;
  Resolved<double> yMin;
  Resolved<double> yMax;
  Resolved<bool> linesVisible;
  Resolved<double> lineWidth;
  Resolved<RGBA> lineColor;

  std::vector<RGBA> colors;  ///< a colour a cell

  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;
};

}  // namespace vantry::plot
