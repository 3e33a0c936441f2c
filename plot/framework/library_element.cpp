#include "vantry/plot/framework/library_element.h"

#include <algorithm>

#include "vantry/dom/walk_in_change.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot {

namespace {

enum class Reaction {
  changed,     // the element's own value of the property is another one now
  unaffected,  // a value of its own hides the change
  unrelated    // it does not inherit from the source at all
};

Reaction reactionTo(const PlotElement& element, const PlotElement& source, Token name) {
  if (&source == &element) return Reaction::changed;
  if (!source.isStyle()) return Reaction::unrelated;  // it would inherit from styles only
  StyleChain chain;
  element.collectStyleChain(chain);
  if (std::find(chain.begin(), chain.end(), &source) == chain.end()) return Reaction::unrelated;
  const Property* property = element.findProperty(name);
  const bool inherits = property && property->isInherited() && !element.hasAttribute(name);
  return inherits ? Reaction::changed : Reaction::unaffected;
}

}  // namespace

bool LibraryElement::parentPropertyChanged(PlotElement& source, Token name) {
  const Reaction reaction = reactionTo(*this, source, name);
  if (reaction == Reaction::changed) notifyPropertyChange(*this, name);
  return reaction != Reaction::unaffected;
}

bool LibraryElement::beginCommand(CmdWriter& writer) const {
  writer.beginCall(className());
  putAttributes(writer);
  return true;
}

void LibraryElement::endCommand(CmdWriter& writer) const { writer.endCall(); }

void StyleElement::notifyPropertyChanged(Token name) {
  if (!parent()) return;
  dom::forEachChildInChange(*parent(), [&](dom::Node& node) {
    PlotElement* sibling = from(&node);
    if (sibling && !sibling->isStyle()) sibling->propertyChanged(*this, name);
  });
}

bool StyleElement::parentPropertyChanged(PlotElement& source, Token name) {
  if (reactionTo(*this, source, name) != Reaction::changed) return false;
  dom::asOneChange(*this, [&] {
    notifyPropertyChange(*this, name);
    if (&source == this) notifyWhatIsAround(name);
  });
  return false;
}

// All who inherit from this style are below its siblings, those that are styles again included.
void StyleElement::notifyWhatIsAround(Token name) {
  dom::Node* const container = parent();
  if (!container) return;
  dom::walkInChange(*container, [&](dom::Node& node) {
    if (&node == container) return true;
    PlotElement* element = from(&node);
    const bool isBesideThis = node.parent() == container;
    if (!element || (isBesideThis && element->isStyle())) return false;
    return element->parentPropertyChanged(*this, name);
  });
}

bool StyleElement::beginCommand(CmdWriter& writer) const {
  putAttributes(writer);
  return false;
}

void StyleElement::putAttribute(CmdWriter& writer, const Property& property,
                                const Variant& value) const {
  property.putCmdQualified(writer, className(), value);
}

}  // namespace vantry::plot
