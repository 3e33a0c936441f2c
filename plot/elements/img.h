// The images of objects.
#pragma once

#include "vantry/plot/elements/key_frame.h"
#include "vantry/plot/framework/element_with_children.h"
#include "vantry/plot/framework/with_properties.h"

namespace vantry::plot {

/// The primitives of an object at one value of its animation parameter.
class ImgBase : public ContainerWithProperties<ImgBase, ElementWithChildren>, public MemberValues {
 public:
  explicit ImgBase(ElementDocument* document);

  /// The time from which on the object looks like this; NaN if it is not animated.
  double frameTime() const;

  static const PropertyList& propertyList();

  Resolved<double> param;
  Resolved<double> titlePositionX;
  Resolved<double> titlePositionY;
  Resolved<double> titlePositionZ;

 protected:
  ImgBase(const ImgBase&) = default;

 private:
  FrameTime frameTime_;
};

/// An image in the plane.
class Img2d : public ElementOf<Img2d, ImgBase> {
 public:
  static constexpr Token tag = Word::Img2d;
  using ElementOf::ElementOf;
  const Property* findProperty(Token name) const override;
};

/// An image in space.
class Img3d : public ElementOf<Img3d, ImgBase> {
 public:
  static constexpr Token tag = Word::Img3d;
  using ElementOf::ElementOf;
};

}  // namespace vantry::plot
