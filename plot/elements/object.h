// Graphical objects.
#pragma once

#include "vantry/plot/framework/library_element.h"
#include "vantry/plot/styles/object_style_getter.h"

namespace vantry::plot {

/// An object of a coordinate system: it has a type and style values, an image for each of its key
/// frames, and texts that say where it comes from.
class ObjectBase : public LibraryElement, public ObjectStyleGetter {
 public:
  explicit ObjectBase(ElementDocument* document)
      : LibraryElement(document), ObjectStyleGetter(this) {}

  using ObjectStyleGetter::legendColor;
  /// The colour that the object has in the legend: its property that `LegendColor` names. False if
  /// there is no such property or if it holds no colour.
  bool legendColor(RGBA& out) const;

  /// The values of ParameterBegin and ParameterEnd. False unless both are there and are numbers.
  bool parameterRange(double& begin, double& end) const;

  /// The type that was set, or null, for which no style is meant.
  Token localType() const;

  bool visitStyles(StyleVisitor& visitor) const override;
  void notifyPropertyChanged(Token name) override;

 protected:
  ObjectBase(const ObjectBase& other) : LibraryElement(other), ObjectStyleGetter(this) {}

  Token className() const override { return localType(); }
};

/// An object in the plane.
class Obj2d : public ElementOf<Obj2d, ObjectBase> {
 public:
  static constexpr Token tag = Word::Obj2d;
  using ElementOf::ElementOf;

  const Property* findProperty(Token name) const override;
};

/// An object in space.
class Obj3d : public ElementOf<Obj3d, ObjectBase> {
 public:
  static constexpr Token tag = Word::Obj3d;
  using ElementOf::ElementOf;

  /// In a group or transform it does not become what may not be there, see isMovableType3d().
  bool canSetAttribute(Token name, const Variant& value) const override;

  const Property* findProperty(Token name) const override;
};

}  // namespace vantry::plot
