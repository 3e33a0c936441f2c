// Coordinate systems and their styles.
#pragma once

#include "vantry/plot/framework/library_element.h"
#include "vantry/plot/styles/coordinate_system_style_getter.h"
#include "vantry/plot/styles/style_index.h"

namespace vantry::plot {

/// The axes of a scene and the objects within them.
class CoordinateSystemBase : public StyleContainer<LibraryElement>,
                             public CoordinateSystemStyleGetter {
 public:
  explicit CoordinateSystemBase(ElementDocument* document)
      : StyleContainer(document), CoordinateSystemStyleGetter(this) {}

  /// The tag of the style elements that this class inherits from.
  virtual Token styleTag() const = 0;

  bool visitStyles(StyleVisitor& visitor) const override;

 protected:
  CoordinateSystemBase(const CoordinateSystemBase& other)
      : StyleContainer(other), CoordinateSystemStyleGetter(this) {}
};

/// The axes of a scene in the plane.
class CoordinateSystem2d : public ElementOf<CoordinateSystem2d, CoordinateSystemBase> {
 public:
  static constexpr Token tag = Word::CoordinateSystem2d;
  using ElementOf::ElementOf;

  Token styleTag() const override { return Word::CoordinateSystem2dStyle; }
  const Property* findProperty(Token name) const override;
};

/// The axes of a scene in space.
class CoordinateSystem3d : public ElementOf<CoordinateSystem3d, CoordinateSystemBase> {
 public:
  static constexpr Token tag = Word::CoordinateSystem3d;
  using ElementOf::ElementOf;

  Token styleTag() const override { return Word::CoordinateSystem3dStyle; }
  const Property* findProperty(Token name) const override;
};

/// What the coordinate systems of a scene, or of all scenes of a canvas, inherit from.
class CoordinateSystemStyleBase : public StyleElement, public CoordinateSystemStyleGetter {
 public:
  explicit CoordinateSystemStyleBase(ElementDocument* document)
      : StyleElement(document), CoordinateSystemStyleGetter(this) {}

  bool visitStyles(StyleVisitor& visitor) const override;

 protected:
  CoordinateSystemStyleBase(const CoordinateSystemStyleBase& other)
      : StyleElement(other), CoordinateSystemStyleGetter(this) {}
};

/// What coordinate systems in the plane inherit from.
class CoordinateSystem2dStyle
    : public ElementOf<CoordinateSystem2dStyle, CoordinateSystemStyleBase> {
 public:
  static constexpr Token tag = Word::CoordinateSystem2dStyle;
  using ElementOf::ElementOf;

  const Property* findProperty(Token name) const override;

 protected:
  Token className() const override { return Word::CoordinateSystem2d; }
};

/// What coordinate systems in space inherit from.
class CoordinateSystem3dStyle
    : public ElementOf<CoordinateSystem3dStyle, CoordinateSystemStyleBase> {
 public:
  static constexpr Token tag = Word::CoordinateSystem3dStyle;
  using ElementOf::ElementOf;

  const Property* findProperty(Token name) const override;

 protected:
  Token className() const override { return Word::CoordinateSystem3d; }
};

}  // namespace vantry::plot
