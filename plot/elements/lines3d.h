// The primitive Lines3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// Single lines, or one line through all points, open or closed; `type` says which.
class Lines3d : public Primitive<Lines3d, P3List> {
 public:
  static constexpr Token tag = Word::Lines3d;

  explicit Lines3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<Token> type;
  Stored<Token> lineStyle;
  Stored<Token> pointStyle;
  Stored<Token> lineColorType;
  Stored<double> lineWidth;
  Stored<double> pointSize;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<bool> pointsVisible;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
  Stored<double> lineColorDirectionZ;
};

}  // namespace vantry::plot
