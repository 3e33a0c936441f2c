// The base of all primitives.
#pragma once

#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

/// A piece of geometry, a light or a camera in an image of an object. It inherits from the object
/// and through it from the object's styles, and is always a leaf. Coordinates are those of the
/// model; widths and sizes of lines, points, tips and tubes are millimetres, angles are radians.
class PrimitiveBase : public LeafElement {
 public:
  using LeafElement::LeafElement;

  bool visitStyles(StyleVisitor& visitor) const override;

 protected:
  PrimitiveBase(const PrimitiveBase&) = default;

 private:
  /// The parent of the image in which the primitive is, or null.
  const PlotElement* object() const;
};

template <class Self, class Base = PrimitiveBase>
using Primitive = ElementOf<Self, WithProperties<Self, Base>>;

}  // namespace vantry::plot
