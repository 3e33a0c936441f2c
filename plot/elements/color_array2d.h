// The primitive ColorArray2d.
#pragma once

#include <vector>

#include "vantry/plot/elements/raster2d.h"

namespace vantry::plot {

/// A raster of cells with a colour each.
class ColorArray2d : public Primitive<ColorArray2d, Raster2d> {
 public:
  static constexpr Token tag = Word::ColorArray2d;

  explicit ColorArray2d(ElementDocument* document);

  static const PropertyList& propertyList();

  std::vector<RGBA> colors;  ///< a colour a cell

  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;
};

}  // namespace vantry::plot
