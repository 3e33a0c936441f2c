#include "vantry/plot/framework/attribute_list_element.h"

#include <algorithm>
#include <functional>
#include <ostream>

#include "vantry/dom/dom_exception.h"
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
  const Property& property = requireProperty(name);
  const PlotElement* parent = property.isInherited() ? styleParent(name) : nullptr;
  if (parent && parent->getPropertyValue(name) == value) {
    if (!hasAttribute(name)) return;
    removeAttribute(name);
  } else {
    setAttribute(name, value);
  }
  notifyPropertyChanged(name);
}

bool AttributeListElement::isSameAsInherited(const Attribute& attribute) const {
  const auto& [name, value] = attribute;
  const Property* property = findProperty(name);
  const PlotElement* parent = property && property->isInherited() ? styleParent(name) : nullptr;
  return parent && parent->getPropertyValue(name) == value;
}

void AttributeListElement::propertyChanged(PlotElement& source, Token name) {
  const Variant* value = findAttribute(name);
  if (value && styleParent(name) == &source && isSameAsInherited({name, *value})) {
    removeAttribute(name);
  }
  for (dom::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (PlotElement* element = from(child)) element->propertyChanged(source, name);
  }
}

void AttributeListElement::dropInheritedProperties() {
  const auto isSame = [this](const Attribute& attribute) { return isSameAsInherited(attribute); };
  for (;;) {
    const auto entry = std::find_if(attributes_.begin(), attributes_.end(), isSame);
    if (entry == attributes_.end()) break;
    removeAttribute(Token(entry->first));
  }
  for (dom::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (PlotElement* element = from(child)) element->dropInheritedProperties();
  }
}

}  // namespace vantry::plot
