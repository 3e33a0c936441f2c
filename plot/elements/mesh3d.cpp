#include "vantry/plot/elements/mesh3d.h"

namespace vantry::plot {

namespace {

class Mesh3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Mesh3d;
    // clang-format off
    mandatory<MeshType>          (Word::UMesh,               20,                    1, &E::uMesh);
    mandatory<MeshType>          (Word::VMesh,               20,                    2, &E::vMesh);
    optional<SubmeshType>        (Word::USubmesh,            0,                     4, &E::uSubmesh);
    optional<SubmeshType>        (Word::VSubmesh,            0,                     8, &E::vSubmesh);
    inherited<LineStyleType>     (Word::LineStyle,           Word::Solid,          64, &E::lineStyle);
    inherited<ColorType>         (Word::LineColorType,       Word::Flat,          512, &E::lineColorType);
    inherited<PointStyleType>    (Word::PointStyle,          Word::Squares,      2048, &E::pointStyle);
    inherited<ColorType>         (Word::FillColorType,       Word::Flat,        65536, &E::fillColorType);
    inherited<ShadingType>       (Word::Shading,             Word::Flat,        16384, &E::shading);
    optional<BoolTrait>          (Word::HasLineColors,       false,            524288, &E::hasLineColors);
    inherited<BoolTrait>         (Word::XLinesVisible,       true,            1048576, &E::xLinesVisible);
    inherited<BoolTrait>         (Word::YLinesVisible,       true,            2097152, &E::yLinesVisible);
    inherited<BoolTrait>         (Word::ULinesVisible,       true,                 16, &E::uLinesVisible);
    inherited<BoolTrait>         (Word::VLinesVisible,       true,                 32, &E::vLinesVisible);
    optional<BoolTrait>          (Word::UseXYLinesVisible,   false,           4194304, &E::useXYLinesVisible);
    inherited<BoolTrait>         (Word::Filled,              true,               8192, &E::filled);
    inherited<BoolTrait>         (Word::PointsVisible,       true,             262144, &E::pointsVisible);
    inherited<PosOutputSizeType> (Word::LineWidth,           0.5,                 128, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::PointSize,           2,                  4096, &E::pointSize);
    inherited<RGBATrait>         (Word::LineColor,           black,               256, &E::lineColor);
    inherited<RGBATrait>         (Word::LineColor2,          blue,               1024, &E::lineColor2);
    inherited<RGBATrait>         (Word::FillColor,           red,               32768, &E::fillColor);
    inherited<RGBATrait>         (Word::FillColor2,          yellow,           131072, &E::fillColor2);
    inherited<DoubleTrait>       (Word::LineColorDirectionX, 0,               8388608, &E::lineColorDirectionX);
    inherited<DoubleTrait>       (Word::LineColorDirectionY, 0,              16777216, &E::lineColorDirectionY);
    inherited<DoubleTrait>       (Word::LineColorDirectionZ, 1,              33554432, &E::lineColorDirectionZ);
    inherited<DoubleTrait>       (Word::FillColorDirectionX, 0,              67108864, &E::fillColorDirectionX);
    inherited<DoubleTrait>       (Word::FillColorDirectionY, 0,             134217728, &E::fillColorDirectionY);
    inherited<DoubleTrait>       (Word::FillColorDirectionZ, 1,             268435456, &E::fillColorDirectionZ);
    // clang-format on
  }
};
constinit Mesh3dPropertyListMgr mesh3dPropertyList;

}  // namespace

PropertyListMgr& Mesh3d::propertyList() { return mesh3dPropertyList; }

Mesh3d::Mesh3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
