// The primitive Lines3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// Single lines, or one line through all points, open or closed; `type` says which.
class Lines3d : public Primitive<Lines3d, P3List> {
 public:
  static constexpr Token tag = Word::Lines3d;

  explicit Lines3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> type;
  Resolved<Token> lineStyle;
  Resolved<Token> pointStyle;
  Resolved<Token> lineColorType;
  Resolved<double> lineWidth;
  Resolved<double> pointSize;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<bool> pointsVisible;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
  Resolved<double> lineColorDirectionZ;
};

}  // namespace vantry::plot
