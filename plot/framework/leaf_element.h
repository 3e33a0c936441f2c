// Elements without children.
#pragma once

#include "vantry/plot/framework/with_properties.h"

namespace vantry::plot {

/// An element without children.
class LeafElement : public PlotElement, public MemberValues {
 public:
  using PlotElement::PlotElement;
  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;

 protected:
  LeafElement(const LeafElement&) = default;
};

}  // namespace vantry::plot
