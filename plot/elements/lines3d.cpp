#include "vantry/plot/elements/lines3d.h"

namespace vantry::plot {

namespace {

struct TypeType : EnumTrait<> {
  static constexpr std::array allowed{Word::Lines, Word::LineStrip, Word::LineLoop};
};

class Lines3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Lines3d;
    // clang-format off
    mandatory<TypeType>          (Word::Type,                Word::Lines,    128, &E::type);
    inherited<LineStyleType>     (Word::LineStyle,           Word::Solid,      1, &E::lineStyle);
    inherited<PointStyleType>    (Word::PointStyle,          Word::Squares,   32, &E::pointStyle);
    inherited<ColorType>         (Word::LineColorType,       Word::Flat,       8, &E::lineColorType);
    inherited<PosOutputSizeType> (Word::LineWidth,           0.5,              2, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::PointSize,           2,               64, &E::pointSize);
    inherited<RGBATrait>         (Word::LineColor,           black,            4, &E::lineColor);
    inherited<RGBATrait>         (Word::LineColor2,          blue,            16, &E::lineColor2);
    inherited<BoolTrait>         (Word::PointsVisible,       false,          256, &E::pointsVisible);
    inherited<DoubleTrait>       (Word::LineColorDirectionX, 0,              512, &E::lineColorDirectionX);
    inherited<DoubleTrait>       (Word::LineColorDirectionY, 0,             1024, &E::lineColorDirectionY);
    inherited<DoubleTrait>       (Word::LineColorDirectionZ, 1,             2048, &E::lineColorDirectionZ);
    // clang-format on
  }
};
constinit Lines3dPropertyListMgr lines3dPropertyList;

}  // namespace

PropertyListMgr& Lines3d::propertyList() { return lines3dPropertyList; }

Lines3d::Lines3d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
