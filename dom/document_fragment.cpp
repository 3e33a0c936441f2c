#include "vantry/dom/document_fragment.h"

namespace vantry::dom {

Token DocumentFragment::nodeName() const {
  static const Token name("#document-fragment", false);
  return name;
}

Ref<Node> DocumentFragment::cloneNode(bool deep) const {
  Ref<Node> copy = new DocumentFragment(*this);
  if (deep) cloneChildrenInto(*copy);
  return copy;
}

std::ostream& DocumentFragment::writeXml(std::ostream& out) const { return out; }

}  // namespace vantry::dom
