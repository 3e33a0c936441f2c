#include "vantry/plot/framework/with_members.h"

namespace PlotDom {

bool LeafElement::canReplaceChildren(Arbor::Node* first, unsigned count,
                                     Arbor::NewChildren newChildren) const {
  const bool removes = first && count > 0;
  return !newChildren && !removes;
}

}  // namespace PlotDom
