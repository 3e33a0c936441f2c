#include "vantry/plot/framework/attribute_list_element.h"

#include <algorithm>
#include <functional>
#include <ostream>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/walk_in_change.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot {

using dom::DomException;

namespace {

template <class Attributes>
auto positionOf(Attributes& attributes, Token name) {
  return std::ranges::lower_bound(attributes, name, std::less<>(),
                                  [](const auto& entry) { return entry.first; });
}

}  // namespace

const Variant* AttributeListElement::findAttribute(Token name) const {
  const auto entry = positionOf(attributes_, name);
  return entry != attributes_.end() && entry->first == name ? &entry->second : nullptr;
}

Variant AttributeListElement::getAttribute(Token name) const {
  if (const Variant* value = findAttribute(name)) return *value;
  refuse(RefusalKind::attributeMissing, name);
  throw DomException(DomException::InvalidAccess);
}

bool AttributeListElement::hasAttribute(Token name) const { return findAttribute(name); }

void AttributeListElement::doSetAttribute(Token name, const Variant& value) {
  const Property* property = findProperty(name);
  Variant stored = property ? property->normalized(value) : value;
  const auto entry = positionOf(attributes_, name);
  if (entry != attributes_.end() && entry->first == name) {
    entry->second = std::move(stored);
  } else {
    attributes_.emplace(entry, name, std::move(stored));
  }
  noteChange();
}

void AttributeListElement::doRemoveAttribute(Token name) {
  const auto entry = positionOf(attributes_, name);
  if (entry != attributes_.end() && entry->first == name) attributes_.erase(entry);
  noteChange();
}

std::ostream& AttributeListElement::writeAttributes(std::ostream& out) const {
  for (const auto& [name, value] : attributes_) {
    if (const Property* property = findProperty(name)) property->putXml(out, value);
  }
  return out;
}

bool AttributeListElement::canBeWritten() const {
  for (const auto& [name, value] : attributes_) {
    const Property* property = findProperty(name);
    if (property && !property->canBeWritten(*this, value)) return false;
  }
  const Property* type = findProperty(Word::Type);  // no other is mandatory in a list
  if (type && type->isMandatory() && !hasAttribute(Word::Type)) {
    return refuse(RefusalKind::mandatoryMissing, type->name());
  }
  return ElementWithOptions::canBeWritten();
}

void AttributeListElement::putAttributes(CmdWriter& writer) const {
  for (const auto& [name, value] : attributes_) {
    if (const Property* property = findProperty(name)) putAttribute(writer, *property, value);
  }
}

void AttributeListElement::putAttribute(CmdWriter& writer, const Property& property,
                                        const Variant& value) const {
  property.putCmd(writer, value);
}

void AttributeListElement::printClassName(CmdWriter& writer) const { writer.putName(className()); }

bool AttributeListElement::hasProperty(Token name) const {
  return hasAttribute(name) || findProperty(name);
}

Variant AttributeListElement::getPropertyValue(Token name) const {
  if (const Variant* value = findAttribute(name)) return *value;
  const Property& property = requireProperty(name);
  if (property.isMandatory()) {
    refuse(RefusalKind::mandatoryMissing, name);
    throw DomException(DomException::InvalidAccess);
  }
  const PlotElement* parent = property.isInherited() ? styleParent(name) : nullptr;
  return parent ? parent->getPropertyValue(name) : property.defaultVariant();
}

void AttributeListElement::setPropertyValue(Token name, const Variant& value) {
  dom::asOneChange(*this, [&] {
    const bool inDocument = isInDocument();
    const Property& property = requireProperty(name);
    const PlotElement* parent = property.isInherited() ? styleParent(name) : nullptr;
    if (parent && parent->getPropertyValue(name) == value) {
      if (!hasAttribute(name)) return;
      removeAttribute(name);
    } else {
      setAttribute(name, value);
    }
    if (isInDocument() == inDocument) notifyPropertyChanged(name);
  });
}

bool AttributeListElement::isSameAsInherited(Token name) const {
  const Variant* value = findAttribute(name);
  const Property* property = value ? findProperty(name) : nullptr;
  const PlotElement* parent = property && property->isInherited() ? styleParent(name) : nullptr;
  return parent && parent->getPropertyValue(name) == *value;
}

void AttributeListElement::propertyChanged(PlotElement& source, Token name) {
  dom::asOneChange(*this, [&] {
    const bool inDocument = isInDocument();
    if (isSameAsInherited(name) && styleParent(name) == &source) removeAttribute(name);
    if (isInDocument() == inDocument) passToChildren(source, name);
  });
}

void AttributeListElement::dropInheritedProperties() {
  dom::asOneChange(*this, [this] {
    const bool inDocument = isInDocument();
    std::vector<Token> names;  // observers may change the list
    for (const auto& [name, value] : attributes_) names.push_back(name);
    for (const Token name : names) {
      if (isSameAsInherited(name)) removeAttribute(name);
      if (isInDocument() != inDocument) return;
    }
    dom::forEachChildInChange(*this, [](dom::Node& child) {
      if (PlotElement* element = from(&child)) element->dropInheritedProperties();
    });
  });
}

}  // namespace vantry::plot
