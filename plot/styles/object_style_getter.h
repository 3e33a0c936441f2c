// Typed access to the properties of objects and object styles.
#pragma once

#include "vantry/plot/framework/style_getter.h"

namespace vantry::plot {

/// Reads the properties that graphical objects and their styles share. An operation is named
/// after its property. Sizes are in millimetres, angles in radians.
class ObjectStyleGetter : public StyleGetter {
 public:
  using StyleGetter::StyleGetter;

  // clang-format off
  PLOT_GETTER(Token, type, Type)
  PLOT_GETTER(Token, lineStyle, LineStyle)
  PLOT_GETTER(Token, pointStyle, PointStyle)
  PLOT_GETTER(Token, lineColorType, LineColorType)
  PLOT_GETTER(Token, fillColorType, FillColorType)
  PLOT_GETTER(Token, shading, Shading)
  PLOT_GETTER(Token, arrowLength, ArrowLength)
  PLOT_GETTER(Token, tipStyle, TipStyle)
  PLOT_GETTER(Token, fillStyle, FillStyle)
  PLOT_GETTER(Token, fillPattern, FillPattern)
  PLOT_GETTER(Token, horizontalAlignment, HorizontalAlignment)
  PLOT_GETTER(Token, verticalAlignment, VerticalAlignment)
  PLOT_GETTER(Token, verticalAsymptotesStyle, VerticalAsymptotesStyle)
  PLOT_GETTER(Token, legendColor, LegendColor)
  PLOT_GETTER(Token, titleAlignment, TitleAlignment)
  PLOT_GETTER(Token, extension, Extension)

  PLOT_GETTER(double, lineWidth, LineWidth)
  PLOT_GETTER(double, pointSize, PointSize)
  PLOT_GETTER(double, lineColorDirectionX, LineColorDirectionX)
  PLOT_GETTER(double, lineColorDirectionY, LineColorDirectionY)
  PLOT_GETTER(double, lineColorDirectionZ, LineColorDirectionZ)
  PLOT_GETTER(double, fillColorDirectionX, FillColorDirectionX)
  PLOT_GETTER(double, fillColorDirectionY, FillColorDirectionY)
  PLOT_GETTER(double, fillColorDirectionZ, FillColorDirectionZ)
  PLOT_GETTER(double, tubeDiameter, TubeDiameter)
  PLOT_GETTER(double, tipLength, TipLength)
  PLOT_GETTER(double, tipAngle, TipAngle)
  PLOT_GETTER(double, verticalAsymptotesWidth, VerticalAsymptotesWidth)
  PLOT_GETTER(double, timeBegin, TimeBegin)
  PLOT_GETTER(double, timeEnd, TimeEnd)

  PLOT_GETTER(RGBA, lineColor, LineColor)
  PLOT_GETTER(RGBA, pointColor, PointColor)
  PLOT_GETTER(RGBA, lineColor2, LineColor2)
  PLOT_GETTER(RGBA, fillColor, FillColor)
  PLOT_GETTER(RGBA, fillColor2, FillColor2)
  PLOT_GETTER(RGBA, lightColor, LightColor)
  PLOT_GETTER(RGBA, verticalAsymptotesColor, VerticalAsymptotesColor)

  PLOT_GETTER(std::int32_t, xMesh, XMesh)
  PLOT_GETTER(std::int32_t, yMesh, YMesh)
  PLOT_GETTER(std::int32_t, zMesh, ZMesh)
  PLOT_GETTER(std::int32_t, uMesh, UMesh)
  PLOT_GETTER(std::int32_t, vMesh, VMesh)
  PLOT_GETTER(std::int32_t, xSubmesh, XSubmesh)
  PLOT_GETTER(std::int32_t, ySubmesh, YSubmesh)
  PLOT_GETTER(std::int32_t, uSubmesh, USubmesh)
  PLOT_GETTER(std::int32_t, vSubmesh, VSubmesh)
  PLOT_GETTER(std::int32_t, adaptiveMesh, AdaptiveMesh)
  PLOT_GETTER(std::int32_t, frames, Frames)

  PLOT_GETTER(bool, xLinesVisible, XLinesVisible)
  PLOT_GETTER(bool, yLinesVisible, YLinesVisible)
  PLOT_GETTER(bool, uLinesVisible, ULinesVisible)
  PLOT_GETTER(bool, vLinesVisible, VLinesVisible)
  PLOT_GETTER(bool, filled, Filled)
  PLOT_GETTER(bool, discontinuitySearch, DiscontinuitySearch)
  PLOT_GETTER(bool, visibleBeforeBegin, VisibleBeforeBegin)
  PLOT_GETTER(bool, visibleAfterEnd, VisibleAfterEnd)
  PLOT_GETTER(bool, legendEntry, LegendEntry)
  PLOT_GETTER(bool, consistent, Consistent)
  PLOT_GETTER(bool, orthogonalProjection, OrthogonalProjection)
  PLOT_GETTER(bool, keepUpVector, KeepUpVector)
  PLOT_GETTER(bool, cameraCoordinates, CameraCoordinates)
  PLOT_GETTER(bool, tubular, Tubular)
  PLOT_GETTER(bool, linesVisible, LinesVisible)
  PLOT_GETTER(bool, pointsVisible, PointsVisible)
  PLOT_GETTER(bool, closed, Closed)
  PLOT_GETTER(bool, visible, Visible)
  PLOT_GETTER(bool, verticalAsymptotesVisible, VerticalAsymptotesVisible)
  PLOT_GETTER(bool, meshVisible, MeshVisible)
  PLOT_GETTER(bool, billboarding, Billboarding)
  PLOT_GETTER(bool, affectViewingBox, AffectViewingBox)

  PLOT_GETTER(FontStyle, titleFont, TitleFont)
  PLOT_GETTER(FontStyle, textFont, TextFont)
  // clang-format on
};

}  // namespace vantry::plot
