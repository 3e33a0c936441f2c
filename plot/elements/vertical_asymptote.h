// The primitive VerticalAsymptote.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A vertical line at the x coordinate `position`.
class VerticalAsymptote : public Primitive<VerticalAsymptote> {
 public:
  static constexpr Token tag = Word::VerticalAsymptote;

  explicit VerticalAsymptote(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<double> position;
  Stored<bool> verticalAsymptotesVisible;
  Stored<Token> verticalAsymptotesStyle;
  Stored<double> verticalAsymptotesWidth;
  Stored<RGBA> verticalAsymptotesColor;
};

}  // namespace vantry::plot
