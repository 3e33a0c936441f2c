#include "vantry/dom/atomic_node.h"

#include "vantry/dom/dom_exception.h"

namespace vantry::dom {

bool AtomicNode::canReplaceChildren(Node*, unsigned, NewChildren) const { return false; }

void AtomicNode::doReplaceChildren(Node*, unsigned, Node*) {
  throw DomException(DomException::HierarchyRequest);
}

}  // namespace vantry::dom
