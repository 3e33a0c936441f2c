#include "vantry/plot/framework/property_list.h"

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

void PropertyList::initialise(PlotElement& element) const {
  for (const Property& property : properties()) {
    if (!property.isInherited()) property.initialise(element);
  }
}

void PropertyList::inheritAll(PlotElement& element) const {
  if (!hasInherited_) return;
  StyleChain chain;
  chain.reserve(8);  // more than most elements have
  element.collectEffectiveStyles(chain);
  for (std::size_t i = 0; i < size_; ++i) {
    const Property& property = inNameOrder(i);
    if (property.isInherited()) property.inheritFrom(element, chain);
  }
}

void PropertyList::dropAllInherited(PlotElement& element) const {
  const bool wasInDocument = element.isInDocument();
  for (std::size_t i = 0; i < size_; ++i) {
    const Property& property = inNameOrder(i);
    if (property.isMandatory()) continue;
    const PlotElement* parent = element.styleParent(property.name());
    if (parent) property.dropIfInherited(element, *parent);
    if (element.isInDocument() != wasInDocument) return;  // an observer has moved it
  }
}

bool PropertyList::canBeWritten(const PlotElement& element) const {
  for (std::size_t i = 0; i < size_; ++i) {
    const Property& property = inNameOrder(i);
    base::Variant value;
    const bool isThere = element.hasAttribute(property.name()) && property.getIfSet(element, value);
    if (isThere && !property.canBeWritten(element, value)) return false;
  }
  return true;
}

void PropertyList::putXml(std::ostream& out, const PlotElement& element) const {
  for (std::size_t i = 0; i < size_; ++i) {
    const Property& property = inNameOrder(i);
    if (element.hasAttribute(property.name())) property.putXml(out, property.getValue(element));
  }
}

void PropertyList::putCmd(CmdWriter& writer, const PlotElement& element) const {
  for (std::size_t i = 0; i < size_; ++i) {
    const Property& property = inNameOrder(i);
    if (element.hasAttribute(property.name())) property.putCmd(writer, property.getValue(element));
  }
}

}  // namespace vantry::plot
