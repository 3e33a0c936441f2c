#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

bool LeafElement::canReplaceChildren(dom::Node* first, unsigned count,
                                     dom::NewChildren newChildren) const {
  const bool removes = first && count > 0;
  return !newChildren && !removes;
}

}  // namespace vantry::plot
