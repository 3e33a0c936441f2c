#include "vantry/plot/framework/element.h"

#include <cstdarg>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/dom/walk_in_change.h"
#include "vantry/plot/framework/element_document.h"
#include "vantry/plot/framework/property_change_event.h"

namespace vantry::plot {

using dom::DomException;

PlotElement::PlotElement(ElementDocument* document) : Element(document) {}

ElementDocument* PlotElement::plotDocument() const {
  return static_cast<ElementDocument*>(ownerDocument());
}

void PlotElement::report(const char* format, ...) const {
  if (!ownerDocument()) return;
  va_list arguments;
  va_start(arguments, format);
  plotDocument()->reportError(format, arguments);
  va_end(arguments);
}

bool PlotElement::refuse(RefusalKind kind, const char* subject, const char* detail) const {
  return ownerDocument() && plotDocument()->refuse({kind, this, subject, detail});
}

void PlotElement::throwUnknownProperty(Token name) const {
  refuse(RefusalKind::unknownProperty, name);
  throw DomException(DomException::InvalidAccess);
}

const Property& PlotElement::requireProperty(Token name) const {
  const Property* property = findProperty(name);
  if (!property) throwUnknownProperty(name);
  return *property;
}

Variant PlotElement::getAttribute(Token name) const {
  Variant value;
  if (!requireProperty(name).getIfSet(*this, value)) {
    throw DomException(DomException::InvalidAccess);
  }
  return value;
}

bool PlotElement::hasAttribute(Token name) const {
  const Property* property = findProperty(name);
  return property && property->isSet(*this);
}

bool PlotElement::canSetAttribute(Token name, const Variant& value) const {
  const Property* property = findProperty(name);
  return property && property->accepts(*this, value);
}

bool PlotElement::canRemoveAttribute(Token name) const {
  const Property* property = findProperty(name);
  return property && !property->isMandatory();
}

void PlotElement::doSetAttribute(Token name, const Variant& value) {
  requireProperty(name).store(*this, value);
  noteChange();
}

void PlotElement::doRemoveAttribute(Token name) {
  requireProperty(name).clear(*this);
  noteChange();
}

void PlotElement::noteChange() {
  if (ownerDocument()) ownerDocument()->noteChange();
}

bool PlotElement::afterSetAttribute(Element& origin, Token name) {
  PlotElement* source = from(&origin);
  return source && parentPropertyChanged(*source, name);
}

bool PlotElement::afterRemoveAttribute(Element& origin, Token name) {
  PlotElement* source = from(&origin);
  return source && parentPropertyChanged(*source, name);
}

void PlotElement::setAttributeFromString(Token name, const char* text) {
  requireProperty(name).setFromString(*this, text);
}

bool PlotElement::hasProperty(Token name) const { return findProperty(name) != nullptr; }

Variant PlotElement::getPropertyValue(Token name) const {
  return requireProperty(name).getValue(*this);
}

void PlotElement::setPropertyValue(Token name, const Variant& value) {
  dom::asOneChange(*this, [&] {
    const bool inDocument = isInDocument();
    requireProperty(name).setValue(*this, value);
    if (isInDocument() == inDocument) passToChildren(*this, name);
  });
}

void PlotElement::passToChildren(PlotElement& source, Token name) {
  dom::forEachChildInChange(*this, [&](dom::Node& child) {
    if (PlotElement* element = from(&child)) element->propertyChanged(source, name);
  });
}

bool PlotElement::isWritableProperty(Token name) const { return findProperty(name) != nullptr; }

namespace {

class StyleWith final : public StyleVisitor {
 public:
  explicit StyleWith(Token name) : StyleVisitor(Styles::effective), name_(name) {}

  bool visit(const PlotElement& style) override {
    if (style.hasAttribute(name_)) found_ = &style;
    return found_ != nullptr;
  }
  const PlotElement* found() const { return found_; }

 private:
  Token name_;
  const PlotElement* found_ = nullptr;
};

class StyleCollector final : public StyleVisitor {
 public:
  StyleCollector(Styles wanted, StyleChain& chain) : StyleVisitor(wanted), chain_(chain) {}

  bool visit(const PlotElement& style) override {
    chain_.push_back(&style);
    return false;
  }

 private:
  StyleChain& chain_;
};

}  // namespace

const PlotElement* PlotElement::styleParent(Token name) const {
  StyleWith search(name);
  visitStyles(search);
  return search.found();
}

void PlotElement::collectStyleChain(StyleChain& chain) const {
  StyleCollector collector(Styles::all, chain);
  visitStyles(collector);
}

void PlotElement::collectEffectiveStyles(StyleChain& chain) const {
  StyleCollector collector(Styles::effective, chain);
  visitStyles(collector);
}

const Variant* PlotElement::findAttribute(Token) const { return nullptr; }

const Property* PlotElement::findProperty(Token) const { return nullptr; }

bool PlotElement::parentPropertyChanged(PlotElement& source, Token name) {
  const Property* property = findProperty(name);
  return property && property->parentChanged(*this, source);
}

void PlotElement::propertyChanged(PlotElement&, Token) {}

void PlotElement::dropInheritedProperties() {}

void PlotElement::printCommand(CmdWriter& writer) const {
  const auto enter = [&writer](const dom::Node& node) {
    const PlotElement* element = from(&node);
    return element && element->beginCommand(writer);
  };
  const auto leave = [&writer](const dom::Node& node) { from(&node)->endCommand(writer); };
  dom::walkSubtree<const dom::Node>(*this, enter, leave);
}

void PlotElement::timeStep(double, bool, double&) {}

// The rules of elements with text look at the first child only, but texts and elements are never
// together.
bool PlotElement::canHoldItsChildren() const {
  const dom::Node* child = firstChild();
  while (child && child->nodeType() == firstChild()->nodeType()) child = child->nextSibling();
  const bool areAlike = !child;
  return areAlike && canReplaceChildren(firstChild(), length(), firstChild());
}

bool PlotElement::canBeWritten() const {
  if (canHoldItsChildren()) return true;
  return refuse(RefusalKind::unwritableChildren);
}

// If an observer throws, the other elements still get their new values: so that waits for the end
// of the change.
void notifyPropertyChange(PlotElement& element, Token name) {
  dom::Document* document = element.ownerDocument();
  if (!document) return;
  document->noteChange();
  if (document->isInBatch()) return;
  document->asOneChange([&] {
    document->throwLate([&] { document->notify(AfterPropertyChangeEvent(element, name)); });
  });
}

}  // namespace vantry::plot
