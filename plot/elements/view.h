// The views that a user chose for a scene.
#pragma once

#include "vantry/plot/framework/with_members.h"

namespace vantry::plot {

/// The part of a 2d scene that is looked at. A bound that was not chosen is NaN.
class View2d : public ElementOf<View2d, WithMembers<View2d, LeafElement>> {
 public:
  static constexpr Token tag = Word::View2d;

  explicit View2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<double> viewXMin;
  Stored<double> viewXMax;
  Stored<double> viewYMin;
  Stored<double> viewYMax;
};

/// From where a 3d scene is looked at. What was not chosen is NaN. The angle is in radians.
class View3d : public ElementOf<View3d, WithMembers<View3d, LeafElement>> {
 public:
  static constexpr Token tag = Word::View3d;

  explicit View3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<double> viewPositionX;
  Stored<double> viewPositionY;
  Stored<double> viewPositionZ;
  Stored<double> viewFocalPointX;
  Stored<double> viewFocalPointY;
  Stored<double> viewFocalPointZ;
  Stored<double> viewViewingAngle;
  Stored<double> viewTranslationX;
  Stored<double> viewTranslationY;
  Stored<double> viewTranslationZ;
  Stored<double> viewUpVectorX;
  Stored<double> viewUpVectorY;
  Stored<double> viewUpVectorZ;
  Stored<bool> viewOrthogonalProjection;
  Stored<bool> viewDirectional;
  Stored<bool> viewKeepUpVector;
};

}  // namespace vantry::plot
