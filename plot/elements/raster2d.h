// The common ground of the rasters.
#pragma once

#include <array>

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// `xMesh` by `yMesh` cells in a rectangle; x fastest, the lowest row first.
class Raster2d : public PrimitiveBase {
 public:
  using PrimitiveBase::PrimitiveBase;

  Resolved<std::int32_t> xMesh;
  Resolved<std::int32_t> yMesh;
  Resolved<double> xMin;
  Resolved<double> xMax;
  Resolved<double> yMin;
  Resolved<double> yMax;
  Resolved<bool> linesVisible;
  Resolved<double> lineWidth;
  Resolved<RGBA> lineColor;

 protected:
  Raster2d(const Raster2d&) = default;

  /// Whether `count` entries are enough for the cells. Reports a refusal of that kind otherwise.
  bool areEnough(std::size_t count, RefusalKind missing) const;
};

// clang-format off
inline constexpr std::array rasterProperties{
    mandatory<MeshType,          &Raster2d::xMesh>        (Word::XMesh,        1),
    mandatory<MeshType,          &Raster2d::yMesh>        (Word::YMesh,        1),
    optional<DoubleType,         &Raster2d::xMin>         (Word::XMin,         0),
    optional<DoubleType,         &Raster2d::xMax>         (Word::XMax,         1),
    optional<DoubleType,         &Raster2d::yMin>         (Word::YMin,         0),
    optional<DoubleType,         &Raster2d::yMax>         (Word::YMax,         1),
    inherited<BoolType,          &Raster2d::linesVisible> (Word::LinesVisible, false),
    inherited<PosOutputSizeType, &Raster2d::lineWidth>    (Word::LineWidth,    0.5),
    inherited<RGBAType,          &Raster2d::lineColor>    (Word::LineColor,    black),
};
// clang-format on

}  // namespace vantry::plot
