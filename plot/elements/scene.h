// Scenes and their styles.
#pragma once

#include "vantry/plot/framework/library_element.h"
#include "vantry/plot/styles/scene_style_getter.h"
#include "vantry/plot/styles/style_index.h"

namespace vantry::plot {

/// One plot area of a canvas.
class SceneBase : public StyleContainer<LibraryElement>, public SceneStyleGetter {
 public:
  explicit SceneBase(ElementDocument* document)
      : StyleContainer(document), SceneStyleGetter(this) {}

  // The place in the canvas, in millimetres, or in parts of the canvas if its layout is Relative.
  PLOT_GETTER(double, bottom, Bottom)
  PLOT_GETTER(double, left, Left)

  /// The tag of the style element of the canvas that this class inherits from.
  virtual Token styleTag() const = 0;

  bool visitStyles(StyleVisitor& visitor) const override;

 protected:
  SceneBase(const SceneBase& other) : StyleContainer(other), SceneStyleGetter(this) {}

  void putAttribute(CmdWriter& writer, const Property& property,
                    const Variant& value) const override;

 private:
  const PlotElement* styleOfCanvas() const;
};

/// A scene in the plane.
class Scene2d : public ElementOf<Scene2d, SceneBase> {
 public:
  static constexpr Token tag = Word::Scene2d;
  using ElementOf::ElementOf;

  Token styleTag() const override { return Word::Scene2dStyle; }
  const Property* findProperty(Token name) const override;
};

/// A scene in space, with lights and cameras.
class Scene3d : public ElementOf<Scene3d, SceneBase> {
 public:
  static constexpr Token tag = Word::Scene3d;
  using ElementOf::ElementOf;

  Token styleTag() const override { return Word::Scene3dStyle; }
  const Property* findProperty(Token name) const override;
};

/// What all 2d scenes of a canvas inherit from.
class Scene2dStyle : public ElementOf<Scene2dStyle, StyleElement>, public SceneStyleGetter {
 public:
  static constexpr Token tag = Word::Scene2dStyle;

  explicit Scene2dStyle(ElementDocument* document) : ElementOf(document), SceneStyleGetter(this) {}
  Scene2dStyle(const Scene2dStyle& other) : ElementOf(other), SceneStyleGetter(this) {}

  const Property* findProperty(Token name) const override;

 protected:
  Token className() const override { return Word::Scene2d; }
};

/// What all 3d scenes of a canvas inherit from.
class Scene3dStyle : public ElementOf<Scene3dStyle, StyleElement>, public SceneStyleGetter {
 public:
  static constexpr Token tag = Word::Scene3dStyle;

  explicit Scene3dStyle(ElementDocument* document) : ElementOf(document), SceneStyleGetter(this) {}
  Scene3dStyle(const Scene3dStyle& other) : ElementOf(other), SceneStyleGetter(this) {}

  const Property* findProperty(Token name) const override;

 protected:
  Token className() const override { return Word::Scene3d; }
};

}  // namespace vantry::plot
