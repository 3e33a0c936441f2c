// Typed access to the properties of coordinate systems and their styles.
#pragma once

#include "vantry/plot/framework/style_getter.h"

namespace vantry::plot {

/// Reads the properties that coordinate systems and their styles share. An operation is named
/// after its property. Sizes are in millimetres, angles in radians.
class CoordinateSystemStyleGetter : public StyleGetter {
 public:
  using StyleGetter::StyleGetter;

  // clang-format off
  PLOT_GETTER(Token, coordinateType, CoordinateType)
  PLOT_GETTER(Token, scaling, Scaling)
  PLOT_GETTER(Token, axes, Axes)
  PLOT_GETTER(Token, xAxisTitleAlignment, XAxisTitleAlignment)
  PLOT_GETTER(Token, yAxisTitleAlignment, YAxisTitleAlignment)
  PLOT_GETTER(Token, zAxisTitleAlignment, ZAxisTitleAlignment)
  PLOT_GETTER(Token, yAxisTitleOrientation, YAxisTitleOrientation)
  PLOT_GETTER(Token, xTicksLabelStyle, XTicksLabelStyle)
  PLOT_GETTER(Token, yTicksLabelStyle, YTicksLabelStyle)
  PLOT_GETTER(Token, zTicksLabelStyle, ZTicksLabelStyle)
  PLOT_GETTER(Token, xTicksNumber, XTicksNumber)
  PLOT_GETTER(Token, yTicksNumber, YTicksNumber)
  PLOT_GETTER(Token, zTicksNumber, ZTicksNumber)
  PLOT_GETTER(Token, gridLineStyle, GridLineStyle)
  PLOT_GETTER(Token, subgridLineStyle, SubgridLineStyle)

  PLOT_GETTER(double, axesLineWidth, AxesLineWidth)
  PLOT_GETTER(double, ticksLength, TicksLength)
  PLOT_GETTER(double, gridLineWidth, GridLineWidth)
  PLOT_GETTER(double, subgridLineWidth, SubgridLineWidth)

  PLOT_GETTER(RGBA, axesLineColor, AxesLineColor)
  PLOT_GETTER(RGBA, gridLineColor, GridLineColor)
  PLOT_GETTER(RGBA, subgridLineColor, SubgridLineColor)

  PLOT_GETTER(std::int32_t, autoViewingBox, AutoViewingBox)
  PLOT_GETTER(std::int32_t, xTicksBetween, XTicksBetween)
  PLOT_GETTER(std::int32_t, yTicksBetween, YTicksBetween)
  PLOT_GETTER(std::int32_t, zTicksBetween, ZTicksBetween)

  PLOT_GETTER(bool, xAxisVisible, XAxisVisible)
  PLOT_GETTER(bool, yAxisVisible, YAxisVisible)
  PLOT_GETTER(bool, zAxisVisible, ZAxisVisible)
  PLOT_GETTER(bool, axesInFront, AxesInFront)
  PLOT_GETTER(bool, axesTips, AxesTips)
  PLOT_GETTER(bool, xTicksVisible, XTicksVisible)
  PLOT_GETTER(bool, yTicksVisible, YTicksVisible)
  PLOT_GETTER(bool, zTicksVisible, ZTicksVisible)
  PLOT_GETTER(bool, xGridVisible, XGridVisible)
  PLOT_GETTER(bool, yGridVisible, YGridVisible)
  PLOT_GETTER(bool, zGridVisible, ZGridVisible)
  PLOT_GETTER(bool, gridInFront, GridInFront)
  PLOT_GETTER(bool, xSubgridVisible, XSubgridVisible)
  PLOT_GETTER(bool, ySubgridVisible, YSubgridVisible)
  PLOT_GETTER(bool, zSubgridVisible, ZSubgridVisible)
  PLOT_GETTER(bool, xTicksLabelsVisible, XTicksLabelsVisible)
  PLOT_GETTER(bool, yTicksLabelsVisible, YTicksLabelsVisible)
  PLOT_GETTER(bool, zTicksLabelsVisible, ZTicksLabelsVisible)

  PLOT_GETTER(FontStyle, axesTitleFont, AxesTitleFont)
  PLOT_GETTER(FontStyle, ticksLabelFont, TicksLabelFont)
  // clang-format on
};

}  // namespace vantry::plot
