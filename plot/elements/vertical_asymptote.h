// The primitive VerticalAsymptote.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A vertical line at the x coordinate `position`.
class VerticalAsymptote : public Primitive<VerticalAsymptote> {
 public:
  static constexpr Token tag = Word::VerticalAsymptote;

  explicit VerticalAsymptote(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> position;
  Resolved<bool> verticalAsymptotesVisible;
  Resolved<Token> verticalAsymptotesStyle;
  Resolved<double> verticalAsymptotesWidth;
  Resolved<RGBA> verticalAsymptotesColor;
};

}  // namespace vantry::plot
