#include "vantry/plot/elements/field3d.h"

namespace vantry::plot {

namespace {

class Field3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Field3d;
    // clang-format off
    mandatory<P3Trait>           (Word::Anchor,              {0, 0, 0},         1, &E::anchor);
    mandatory<P3Trait>           (Word::Delta,               {1, 1, 1},         2, &E::delta);
    mandatory<MeshType>          (Word::XMesh,               20,                4, &E::xMesh);
    mandatory<MeshType>          (Word::YMesh,               20,                8, &E::yMesh);
    mandatory<MeshType>          (Word::ZMesh,               20,               16, &E::zMesh);
    inherited<ArrowLengthType>   (Word::ArrowLength,         Word::Fixed,      32, &E::arrowLength);
    inherited<ColorType>         (Word::LineColorType,       Word::Flat,      256, &E::lineColorType);
    inherited<PointStyleType>    (Word::PointStyle,          Word::Squares,  1024, &E::pointStyle);
    inherited<PosOutputSizeType> (Word::LineWidth,           0.5,              64, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::PointSize,           1,              2048, &E::pointSize);
    inherited<RGBATrait>         (Word::LineColor,           black,           128, &E::lineColor);
    inherited<RGBATrait>         (Word::LineColor2,          blue,            512, &E::lineColor2);
    inherited<BoolTrait>         (Word::PointsVisible,       true,           4096, &E::pointsVisible);
    inherited<DoubleTrait>       (Word::LineColorDirectionX, 0,              8192, &E::lineColorDirectionX);
    inherited<DoubleTrait>       (Word::LineColorDirectionY, 0,             16384, &E::lineColorDirectionY);
    inherited<DoubleTrait>       (Word::LineColorDirectionZ, 1,             32768, &E::lineColorDirectionZ);
    // clang-format on
  }
};
constinit Field3dPropertyListMgr field3dPropertyList;

}  // namespace

PropertyListMgr& Field3d::propertyList() { return field3dPropertyList; }

Field3d::Field3d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
