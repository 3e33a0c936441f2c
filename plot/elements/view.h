// The views that a user chose for a scene.
#pragma once

#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

/// The part of a 2d scene that is looked at. A bound that was not chosen is NaN.
class View2d : public ElementOf<View2d, WithProperties<View2d, LeafElement>> {
 public:
  static constexpr Token tag = Word::View2d;

  explicit View2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> viewXMin;
  Resolved<double> viewXMax;
  Resolved<double> viewYMin;
  Resolved<double> viewYMax;
};

/// From where a 3d scene is looked at. What was not chosen is NaN. The angle is in radians.
class View3d : public ElementOf<View3d, WithProperties<View3d, LeafElement>> {
 public:
  static constexpr Token tag = Word::View3d;

  explicit View3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> viewPositionX;
  Resolved<double> viewPositionY;
  Resolved<double> viewPositionZ;
  Resolved<double> viewFocalPointX;
  Resolved<double> viewFocalPointY;
  Resolved<double> viewFocalPointZ;
  Resolved<double> viewViewingAngle;
  Resolved<double> viewTranslationX;
  Resolved<double> viewTranslationY;
  Resolved<double> viewTranslationZ;
  Resolved<double> viewUpVectorX;
  Resolved<double> viewUpVectorY;
  Resolved<double> viewUpVectorZ;
  Resolved<bool> viewOrthogonalProjection;
  Resolved<bool> viewDirectional;
  Resolved<bool> viewKeepUpVector;
};

}  // namespace vantry::plot
