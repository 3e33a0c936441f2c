#include "vantry/plot/elements/view.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf view2dProperties{
    optional<FloatOrNaNType, &View2d::viewXMin> (Word::ViewXMin, nan),
    optional<FloatOrNaNType, &View2d::viewXMax> (Word::ViewXMax, nan),
    optional<FloatOrNaNType, &View2d::viewYMin> (Word::ViewYMin, nan),
    optional<FloatOrNaNType, &View2d::viewYMax> (Word::ViewYMax, nan),
};

constexpr PropertyListOf view3dProperties{
    optional<FloatOrNaNType, &View3d::viewPositionX>            (Word::ViewPositionX,            nan),
    optional<FloatOrNaNType, &View3d::viewPositionY>            (Word::ViewPositionY,            nan),
    optional<FloatOrNaNType, &View3d::viewPositionZ>            (Word::ViewPositionZ,            nan),
    optional<FloatOrNaNType, &View3d::viewFocalPointX>          (Word::ViewFocalPointX,          nan),
    optional<FloatOrNaNType, &View3d::viewFocalPointY>          (Word::ViewFocalPointY,          nan),
    optional<FloatOrNaNType, &View3d::viewFocalPointZ>          (Word::ViewFocalPointZ,          nan),
    optional<FloatOrNaNType, &View3d::viewViewingAngle>         (Word::ViewViewingAngle,         nan),
    optional<FloatOrNaNType, &View3d::viewTranslationX>         (Word::ViewTranslationX,         nan),
    optional<FloatOrNaNType, &View3d::viewTranslationY>         (Word::ViewTranslationY,         nan),
    optional<FloatOrNaNType, &View3d::viewTranslationZ>         (Word::ViewTranslationZ,         nan),
    optional<FloatOrNaNType, &View3d::viewUpVectorX>            (Word::ViewUpVectorX,            nan),
    optional<FloatOrNaNType, &View3d::viewUpVectorY>            (Word::ViewUpVectorY,            nan),
    optional<FloatOrNaNType, &View3d::viewUpVectorZ>            (Word::ViewUpVectorZ,            nan),
    optional<BoolType,       &View3d::viewOrthogonalProjection> (Word::ViewOrthogonalProjection, false),
    optional<BoolType,       &View3d::viewDirectional>          (Word::ViewDirectional,          false),
    optional<BoolType,       &View3d::viewKeepUpVector>         (Word::ViewKeepUpVector,         true),
};
// clang-format on

}  // namespace

const PropertyList& View2d::propertyList() { return view2dProperties; }
const PropertyList& View3d::propertyList() { return view3dProperties; }

View2d::View2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

View3d::View3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
