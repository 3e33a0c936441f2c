// The affine maps of transforms.
#pragma once

#include "vantry/plot/elements/key_frame.h"
#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

/// A transform at one value of its animation parameter: the rows of a matrix and a translation.
class TrBase : public WithProperties<TrBase, LeafElement> {
 public:
  explicit TrBase(ElementDocument* document);

  /// The time from which on this map holds; NaN if the transform is not animated.
  double frameTime() const;

  static const PropertyList& propertyList();

  Resolved<double> param;

 protected:
  TrBase(const TrBase&) = default;

 private:
  FrameTime frameTime_;
};

/// A map of the plane: a matrix of two rows, and a shift.
class Tr2d : public ElementOf<Tr2d, WithProperties<Tr2d, TrBase>> {
 public:
  static constexpr Token tag = Word::Tr2d;

  explicit Tr2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> shift;
  Resolved<P2> row1;
  Resolved<P2> row2;
};

/// A map of space: a matrix of three rows, and a shift.
class Tr3d : public ElementOf<Tr3d, WithProperties<Tr3d, TrBase>> {
 public:
  static constexpr Token tag = Word::Tr3d;

  explicit Tr3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> shift;
  Resolved<P3> row1;
  Resolved<P3> row2;
  Resolved<P3> row3;
};

}  // namespace vantry::plot
