#include "vantry/plot/elements/field2d.h"

namespace vantry::plot {

namespace {

class Field2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Field2d;
    // clang-format off
    mandatory<P2Trait>              (Word::Anchor,              {0, 0},                1, &E::anchor);
    mandatory<P2Trait>              (Word::Delta,               {1, 1},                2, &E::delta);
    mandatory<MeshType>             (Word::XMesh,               20,                    4, &E::xMesh);
    mandatory<MeshType>             (Word::YMesh,               20,                    8, &E::yMesh);
    inherited<ArrowLengthType>      (Word::ArrowLength,         Word::Fixed,          16, &E::arrowLength);
    inherited<ColorType>            (Word::LineColorType,       Word::Flat,          128, &E::lineColorType);
    inherited<TipStyleType>         (Word::TipStyle,            Word::Filled,        512, &E::tipStyle);
    inherited<PosOutputSizeType>    (Word::LineWidth,           0.5,                  32, &E::lineWidth);
    inherited<NonNegOutputSizeType> (Word::TipLength,           1,                  1024, &E::tipLength);
    inherited<RGBATrait>            (Word::LineColor,           black,                64, &E::lineColor);
    inherited<RGBATrait>            (Word::LineColor2,          blue,                256, &E::lineColor2);
    inherited<DoubleTrait>          (Word::TipAngle,            0.5235987755982989, 2048, &E::tipAngle);
    inherited<DoubleTrait>          (Word::LineColorDirectionX, 0,                  4096, &E::lineColorDirectionX);
    inherited<DoubleTrait>          (Word::LineColorDirectionY, 1,                  8192, &E::lineColorDirectionY);
    // clang-format on
  }
};
constinit Field2dPropertyListMgr field2dPropertyList;

}  // namespace

PropertyListMgr& Field2d::propertyList() { return field2dPropertyList; }

Field2d::Field2d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
