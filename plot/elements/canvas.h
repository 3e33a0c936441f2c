// The drawing area.
#pragma once

#include "vantry/plot/framework/library_element.h"
#include "vantry/plot/framework/style_getter.h"
#include "vantry/plot/styles/style_index.h"

namespace vantry::plot {

/// The root of a document: it holds the scenes with their page layout and the styles for all of
/// them. Sizes are in millimetres, times in the unit of the document's time range.
class Canvas : public ElementOf<Canvas, StyleContainer<LibraryElement>>, private StyleGetter {
 public:
  static constexpr Token tag = Word::Canvas;

  explicit Canvas(ElementDocument* document) : ElementOf(document), StyleGetter(this) {}
  Canvas(const Canvas& other) : ElementOf(other), StyleGetter(this) {}

  // clang-format off
  PLOT_GETTER(Token, layout, Layout)
  PLOT_GETTER(Token, outputUnits, OutputUnits)
  PLOT_GETTER(Token, headerAlignment, HeaderAlignment)
  PLOT_GETTER(Token, footerAlignment, FooterAlignment)
  PLOT_GETTER(Token, animationStyle, AnimationStyle)
  PLOT_GETTER(RGBA, backgroundColor, BackgroundColor)
  PLOT_GETTER(RGBA, borderColor, BorderColor)
  PLOT_GETTER(double, spacing, Spacing)
  PLOT_GETTER(double, topMargin, TopMargin)
  PLOT_GETTER(double, leftMargin, LeftMargin)
  PLOT_GETTER(double, bottomMargin, BottomMargin)
  PLOT_GETTER(double, rightMargin, RightMargin)
  PLOT_GETTER(double, borderWidth, BorderWidth)
  PLOT_GETTER(double, width, Width)
  PLOT_GETTER(double, height, Height)
  PLOT_GETTER(FontStyle, headerFont, HeaderFont)
  PLOT_GETTER(FontStyle, footerFont, FooterFont)
  PLOT_GETTER(std::int32_t, rows, Rows)
  PLOT_GETTER(std::int32_t, columns, Columns)
  PLOT_GETTER(double, initialTime, InitialTime)
  PLOT_GETTER(double, currentTime, CurrentTime)
  PLOT_GETTER(bool, autoPlay, AutoPlay)
  // clang-format on

  /// Gives a new, empty drawing the look to begin with: sets the attributes of the canvas and
  /// appends a style for the scenes and coordinate systems of each dimension, for all objects, and
  /// for some types of objects.
  void createDefaultStyles();

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
  const Property* findProperty(Token name) const override;

 protected:
  bool canHoldItsChildren() const override;
};

}  // namespace vantry::plot
