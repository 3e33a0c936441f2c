// Typed access to the properties of scenes and scene styles.
#pragma once

#include "vantry/plot/framework/style_getter.h"

namespace vantry::plot {

/// Reads the properties that scenes and their styles share. An operation is named
/// after its property. Sizes are in millimetres, angles in radians.
class SceneStyleGetter : public StyleGetter {
 public:
  using StyleGetter::StyleGetter;

  // clang-format off
  PLOT_GETTER(Token, legendPlacement, LegendPlacement)
  PLOT_GETTER(Token, legendAlignment, LegendAlignment)
  PLOT_GETTER(Token, backgroundStyle, BackgroundStyle)
  PLOT_GETTER(Token, headerAlignment, HeaderAlignment)
  PLOT_GETTER(Token, footerAlignment, FooterAlignment)
  PLOT_GETTER(Token, lighting, Lighting)

  PLOT_GETTER(double, width, Width)
  PLOT_GETTER(double, height, Height)
  PLOT_GETTER(double, topMargin, TopMargin)
  PLOT_GETTER(double, bottomMargin, BottomMargin)
  PLOT_GETTER(double, leftMargin, LeftMargin)
  PLOT_GETTER(double, rightMargin, RightMargin)
  PLOT_GETTER(double, yXRatio, YXRatio)
  PLOT_GETTER(double, zXRatio, ZXRatio)
  PLOT_GETTER(double, borderWidth, BorderWidth)

  PLOT_GETTER(RGBA, backgroundColor, BackgroundColor)
  PLOT_GETTER(RGBA, backgroundColor2, BackgroundColor2)
  PLOT_GETTER(RGBA, borderColor, BorderColor)

  PLOT_GETTER(bool, backgroundTransparent, BackgroundTransparent)
  PLOT_GETTER(bool, legendVisible, LegendVisible)

  PLOT_GETTER(FontStyle, headerFont, HeaderFont)
  PLOT_GETTER(FontStyle, footerFont, FooterFont)
  PLOT_GETTER(FontStyle, legendFont, LegendFont)
  // clang-format on
};

}  // namespace vantry::plot
