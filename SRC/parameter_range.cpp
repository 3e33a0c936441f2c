#include "SRC/parameter_range.h"

#include <cmath>

#include "SRC/expr.h"

namespace PlotDom {

bool parameterRange(const PlotElement& parent, double& begin, double& end) {
  const VExpr* beginChild = nullptr;
  const VExpr* endChild = nullptr;
  for (const Arbor::Node* child = parent.firstChild(); child; child = child->nextSibling()) {
    const bool isBegin = child->nodeName() == Word::ParameterBegin;
    if (!isBegin && child->nodeName() != Word::ParameterEnd) continue;
    const auto* bound = static_cast<const VExpr*>(child);
    if (std::isnan(bound->value())) return false;
    (isBegin ? beginChild : endChild) = bound;
    if (!beginChild || !endChild) continue;
    begin = beginChild->value();
    end = endChild->value();
    return true;
  }
  return false;
}

}  // namespace PlotDom
