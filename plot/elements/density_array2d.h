// The primitive DensityArray2d.
#pragma once

#include <vector>

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A raster of `xMesh` by `yMesh` cells, each with a number; x fastest, the lowest row first.
class DensityArray2d : public Primitive<DensityArray2d> {
 public:
  static constexpr Token tag = Word::DensityArray2d;

  explicit DensityArray2d(dom::Document* document);

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
  Resolved<RGBA> fillColor;
  Resolved<RGBA> fillColor2;
  Resolved<Token> fillColorType;

  std::vector<double> values;  ///< a number a cell

  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;
};

}  // namespace vantry::plot
