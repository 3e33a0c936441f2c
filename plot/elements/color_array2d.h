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

  std::vector<RGBA> colors;  ///< a colour a cell

  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;
};

}  // namespace vantry::plot
