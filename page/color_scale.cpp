#include "vantry/page/color_scale.h"

#include <algorithm>

#include "vantry/javaview/color_scale.h"
#include "vantry/javaview/emit_fields.h"
#include "vantry/page/texts.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/surf3d.h"

namespace vantry::page {

using namespace plot;

namespace {

/// From which properties a primitive takes its colours.
struct Source {
  Token type;
  Token color;
  Token color2;
};

constexpr Source lineColors = {Word::LineColorType, Word::LineColor, Word::LineColor2};
constexpr Source fillColors = {Word::FillColorType, Word::FillColor, Word::FillColor2};

/// `top` is the value that has the first of the two colours, `bottom` the one with the second.
std::optional<ColorScale> scaleOf(const PlotElement& primitive, const Source& source, double bottom,
                                  double top) {
  const auto type = propertyValue<Token>(primitive, source.type);
  if (isOneOf(type, Word::Flat, Word::Functional) || bottom == top) return std::nullopt;
  const javaview::ColorScale drawn(type, propertyValue<RGBA>(primitive, source.color),
                                   propertyValue<RGBA>(primitive, source.color2), {bottom, top});
  const int steps = isOneOf(type, Word::Monochrome, Word::Dichromatic) ? 1 : 24;
  ColorScale scale{std::min(bottom, top), std::max(bottom, top), {}};
  for (int i = 0; i <= steps; ++i) {
    const double part = static_cast<double>(i) / steps;
    scale.colors.push_back(colorText(drawn.colorOf(scale.min + part * (scale.max - scale.min))));
  }
  return scale;
}

std::optional<ColorScale> scaleOf(const PlotElement& primitive, const javaview::AxisRange& height) {
  if (const auto* raster = elementCast<DensityArray2d>(&primitive)) {
    if (raster->values.empty()) return std::nullopt;
    const auto [smallest, largest] = std::ranges::minmax(raster->values);
    return scaleOf(primitive, fillColors, largest, smallest);
  }
  if (const auto* field = elementCast<Field2d>(&primitive)) {
    const auto [bottom, top] = javaview::colorRange(*field);
    return scaleOf(primitive, lineColors, bottom, top);
  }
  if (const auto* field = elementCast<Field3d>(&primitive)) {
    const auto [bottom, top] = javaview::colorRange(*field);
    return scaleOf(primitive, lineColors, bottom, top);
  }
  if (!height.isKnown()) return std::nullopt;
  if (isElementOf<Mesh3d, Surf3d>(primitive)) {
    const bool isFilled = propertyValue<bool>(primitive, Word::Filled);
    return scaleOf(primitive, isFilled ? fillColors : lineColors, height.min, height.max);
  }
  if (!isElementOf<Poly2d, Poly3d, Lines3d>(primitive)) return std::nullopt;
  return scaleOf(primitive, lineColors, height.min, height.max);
}

}  // namespace

std::optional<ColorScale> colorScaleOf(const ObjectBase& object, const javaview::Bounds& bounds) {
  const javaview::AxisRange& height = isElementOf<Obj2d>(object) ? bounds.y : bounds.z;
  const auto* image = firstOf<ImgBase, Img2d, Img3d>(object.firstChild());
  if (!image) return std::nullopt;
  for (const dom::Node* child = image->firstChild(); child; child = child->nextSibling()) {
    const PlotElement* primitive = PlotElement::from(child);
    if (!primitive) continue;
    if (auto scale = scaleOf(*primitive, height)) return scale;
  }
  return std::nullopt;
}

}  // namespace vantry::page
