#include "vantry/plot/elements/surf3d.h"

namespace vantry::plot {

namespace {

struct TypeType : EnumTrait<> {
  static constexpr std::array allowed{Word::Triangles, Word::TriangleStrip, Word::TriangleFan,
                                      Word::Quads, Word::QuadStrip};
};

class Surf3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Surf3d;
    // clang-format off
    // The default type is none of the five: a surface that does not say its type is an error.
    mandatory<TypeType>          (Word::Type,                Word::Lines,      2048, &E::type);
    inherited<LineStyleType>     (Word::LineStyle,           Word::Solid,         1, &E::lineStyle);
    inherited<PointStyleType>    (Word::PointStyle,          Word::Squares,      32, &E::pointStyle);
    inherited<ColorType>         (Word::LineColorType,       Word::Flat,          8, &E::lineColorType);
    inherited<ColorType>         (Word::FillColorType,       Word::Flat,        512, &E::fillColorType);
    inherited<ShadingType>       (Word::Shading,             Word::Flat,        128, &E::shading);
    inherited<PosOutputSizeType> (Word::LineWidth,           0.5,                 2, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::PointSize,           2,                  64, &E::pointSize);
    inherited<RGBATrait>         (Word::LineColor,           black,               4, &E::lineColor);
    inherited<RGBATrait>         (Word::LineColor2,          blue,               16, &E::lineColor2);
    inherited<RGBATrait>         (Word::FillColor,           red,               256, &E::fillColor);
    inherited<RGBATrait>         (Word::FillColor2,          yellow,           1024, &E::fillColor2);
    optional<BoolTrait>          (Word::HasLineColors,       false,           32768, &E::hasLineColors);
    inherited<BoolTrait>         (Word::MeshVisible,         false,            4096, &E::meshVisible);
    inherited<BoolTrait>         (Word::PointsVisible,       false,            8192, &E::pointsVisible);
    inherited<BoolTrait>         (Word::Filled,              true,            16384, &E::filled);
    inherited<DoubleTrait>       (Word::LineColorDirectionX, 0,               65536, &E::lineColorDirectionX);
    inherited<DoubleTrait>       (Word::LineColorDirectionY, 0,              131072, &E::lineColorDirectionY);
    inherited<DoubleTrait>       (Word::LineColorDirectionZ, 1,              262144, &E::lineColorDirectionZ);
    inherited<DoubleTrait>       (Word::FillColorDirectionX, 0,              524288, &E::fillColorDirectionX);
    inherited<DoubleTrait>       (Word::FillColorDirectionY, 0,             1048576, &E::fillColorDirectionY);
    inherited<DoubleTrait>       (Word::FillColorDirectionZ, 1,             2097152, &E::fillColorDirectionZ);
    // clang-format on
  }
};
constinit Surf3dPropertyListMgr surf3dPropertyList;

}  // namespace

PropertyListMgr& Surf3d::propertyList() { return surf3dPropertyList; }

Surf3d::Surf3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
