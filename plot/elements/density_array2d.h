// The primitive DensityArray2d.
#pragma once

#include <vector>

#include "vantry/plot/elements/raster2d.h"

namespace vantry::plot {

/// A raster of cells with a number each.
class DensityArray2d : public Primitive<DensityArray2d, Raster2d> {
 public:
  static constexpr Token tag = Word::DensityArray2d;

  explicit DensityArray2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<RGBA> fillColor;
  Resolved<RGBA> fillColor2;
  Resolved<Token> fillColorType;

  std::vector<double> values;  ///< a number a cell

  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;
};

}  // namespace vantry::plot
