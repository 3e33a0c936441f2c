#include "vantry/plot/elements/view.h"

namespace vantry::plot {

namespace {

class View2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = View2d;
    // clang-format off
    optional<ViewParamType> (Word::ViewXMin, nan, 1, &E::viewXMin);
    optional<ViewParamType> (Word::ViewXMax, nan, 2, &E::viewXMax);
    optional<ViewParamType> (Word::ViewYMin, nan, 4, &E::viewYMin);
    optional<ViewParamType> (Word::ViewYMax, nan, 8, &E::viewYMax);
    // clang-format on
  }
};
constinit View2dPropertyListMgr view2dPropertyList;

class View3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = View3d;
    // clang-format off
    optional<ViewParamType> (Word::ViewPositionX,            nan,       1, &E::viewPositionX);
    optional<ViewParamType> (Word::ViewPositionY,            nan,       2, &E::viewPositionY);
    optional<ViewParamType> (Word::ViewPositionZ,            nan,       4, &E::viewPositionZ);
    optional<ViewParamType> (Word::ViewFocalPointX,          nan,       8, &E::viewFocalPointX);
    optional<ViewParamType> (Word::ViewFocalPointY,          nan,      16, &E::viewFocalPointY);
    optional<ViewParamType> (Word::ViewFocalPointZ,          nan,      32, &E::viewFocalPointZ);
    optional<ViewParamType> (Word::ViewViewingAngle,         nan,      64, &E::viewViewingAngle);
    optional<ViewParamType> (Word::ViewTranslationX,         nan,     256, &E::viewTranslationX);
    optional<ViewParamType> (Word::ViewTranslationY,         nan,     512, &E::viewTranslationY);
    optional<ViewParamType> (Word::ViewTranslationZ,         nan,    1024, &E::viewTranslationZ);
    optional<ViewParamType> (Word::ViewUpVectorX,            nan,    4096, &E::viewUpVectorX);
    optional<ViewParamType> (Word::ViewUpVectorY,            nan,    8192, &E::viewUpVectorY);
    optional<ViewParamType> (Word::ViewUpVectorZ,            nan,   16384, &E::viewUpVectorZ);
    optional<BoolTrait>     (Word::ViewOrthogonalProjection, false,   128, &E::viewOrthogonalProjection);
    optional<BoolTrait>     (Word::ViewDirectional,          false,  2048, &E::viewDirectional);
    optional<BoolTrait>     (Word::ViewKeepUpVector,         true,  32768, &E::viewKeepUpVector);
    // clang-format on
  }
};
constinit View3dPropertyListMgr view3dPropertyList;

}  // namespace

PropertyListMgr& View2d::propertyList() { return view2dPropertyList; }
PropertyListMgr& View3d::propertyList() { return view3dPropertyList; }

View2d::View2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

View3d::View3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
