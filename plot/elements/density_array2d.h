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

  static PropertyListMgr& propertyList();

  Stored<std::int32_t> xMesh;
  Stored<std::int32_t> yMesh;
  Stored<double> xMin;
  Stored<double> xMax;
  Stored<double> yMin;
  Stored<double> yMax;
  Stored<bool> linesVisible;
  Stored<double> lineWidth;
  Stored<RGBA> lineColor;
  Stored<RGBA> fillColor;
  Stored<RGBA> fillColor2;
  Stored<Token> fillColorType;

  std::vector<double> values;  ///< a number a cell

  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;
};

}  // namespace vantry::plot
