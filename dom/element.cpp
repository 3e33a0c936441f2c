#include "vantry/dom/element.h"

#include <ostream>

#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/model_operation.h"
#include "vantry/dom/tree_walk.h"

namespace vantry::dom {

void Element::setAttribute(Token name, const Variant& value) {
  if (isReadOnly()) throw DomException(DomException::NoModificationAllowed);
  if (!canSetAttribute(name, value)) throw DomException(DomException::HierarchyRequest);
  if (isInDocument()) {
    ownerDocument()->perform<SetAttributeOperation>(this, name, value);
  } else {
    doSetAttribute(name, value);
  }
}

void Element::removeAttribute(Token name) {
  if (!hasAttribute(name)) return;
  if (isReadOnly()) throw DomException(DomException::NoModificationAllowed);
  if (!canRemoveAttribute(name)) throw DomException(DomException::HierarchyRequest);
  if (isInDocument()) {
    ownerDocument()->perform<RemoveAttributeOperation>(this, name);
  } else {
    doRemoveAttribute(name);
  }
}

bool Element::canSetAttribute(Token, const Variant&) const { return true; }

bool Element::canRemoveAttribute(Token) const { return true; }

bool Element::beforeSetAttribute(Element&, Token, const Variant&) { return false; }

bool Element::afterSetAttribute(Element&, Token) { return false; }

bool Element::beforeRemoveAttribute(Element&, Token) { return false; }

bool Element::afterRemoveAttribute(Element&, Token) { return false; }

std::ostream& Element::writeXml(std::ostream& out) const {
  const auto enter = [&out](const Node& node) {
    const Element* element = node.asElement();
    if (!element) node.writeXml(out);
    if (!element || !element->isWritten()) return false;
    out << '<' << element->nodeName().str();
    element->writeAttributes(out) << '>';
    element->writeContent(out);
    return true;
  };
  const auto leave = [&out](const Node& node) { out << "</" << node.nodeName().str() << '>'; };
  walkSubtree<const Node>(*this, enter, leave);
  return out;
}

}  // namespace vantry::dom
