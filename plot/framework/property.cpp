#include "vantry/plot/framework/property.h"

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/framework/element.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot {

using base::Variant;

void Property::setFromString(PlotElement& element, const char* text) const {
  Variant value;
  if (!type_->parse(text, value)) {
    element.refuse(RefusalKind::illegalText, name(), text);
    throw dom::DomException(dom::DomException::Syntax);
  }
  element.setAttribute(name(), value);
}

bool Property::accepts(const PlotElement& element, const Variant& value) const {
  const char* reason = nullptr;
  if (type_->accepts(value, reason)) return true;
  return reason ? element.refuse(RefusalKind::unsuitableValue, name(), reason)
                : element.refuse(RefusalKind::illegalValue, name());
}

bool Property::canBeWritten(const PlotElement& element, const Variant& value) const {
  const char* reason = type_->whyNotWritten(value);
  return !reason || element.refuse(RefusalKind::unwritableValue, name(), reason);
}

void Property::putCmd(CmdWriter& writer, const Variant& value) const {
  if (!isInCommand() || !hasKindOf(value)) return;
  writer.beginAssignment(name());
  type_->putCmd(writer, value);
  writer.endItem();
}

void Property::putCmdQualified(CmdWriter& writer, base::Token className,
                               const Variant& value) const {
  if (!isInCommand() || !hasKindOf(value)) return;
  writer.beginAssignment(className, name());
  type_->putCmd(writer, value);
  writer.endItem();
}

void Property::initialise(PlotElement& element) const {
  const MemberPlace place = placeIn(element);
  type_->reset(place.member, defaultValue_);
  if (isMandatory()) place.values->setBits |= bit_;
}

bool Property::isSet(const PlotElement& element) const {
  return locate_ && isSetIn(placeIn(element));
}

bool Property::getIfSet(const PlotElement& element, Variant& out) const {
  if (!isSet(element)) return false;
  out = getValue(element);
  return true;
}

Variant Property::getValue(const PlotElement& element) const {
  return type_->read(placeIn(element).member);
}

void Property::setValue(PlotElement& element, const Variant& value) const {
  const PlotElement* parent = isMandatory() ? nullptr : element.styleParent(name());
  if (parent && parent->getPropertyValue(name()) == value) {
    element.removeAttribute(name());
  } else {
    element.setAttribute(name(), value);
  }
}

void Property::store(PlotElement& element, const Variant& value) const {
  const MemberPlace place = placeIn(element);
  if (type_->store(place.member, value)) place.values->setBits |= bit_;
}

void Property::clear(PlotElement& element) const {
  const PlotElement* source = element.styleParent(name());
  const Variant inherited = source ? source->getPropertyValue(name()) : Variant();
  const MemberPlace place = placeIn(element);
  place.values->setBits &= ~bit_;
  resolve(place.member, &inherited);
}

bool Property::inheritFrom(PlotElement& element, const StyleChain& chain) const {
  const MemberPlace place = placeIn(element);
  if (isSetIn(place)) return false;
  const Variant* inherited = nullptr;
  for (const PlotElement* style : chain) {
    inherited = style->findAttribute(name());
    if (inherited) break;
  }
  resolve(place.member, inherited);
  notifyPropertyChange(element, name());
  return true;
}

void Property::dropIfInherited(PlotElement& element, const PlotElement& source) const {
  const MemberPlace place = placeIn(element);
  if (!isSetIn(place) || element.styleParent(name()) != &source) return;
  if (type_->holds(place.member, source.getPropertyValue(name()))) element.removeAttribute(name());
}

bool Property::parentChanged(PlotElement& element, PlotElement& source) const {
  if (&element == &source) {
    notifyPropertyChange(element, name());
    return true;
  }
  if (!isInherited()) return false;
  StyleChain chain;
  element.collectEffectiveStyles(chain);
  return inheritFrom(element, chain);
}

void Property::resolve(void* member, const Variant* inherited) const {
  if (!inherited || !type_->assign(member, *inherited)) type_->reset(member, defaultValue_);
}

}  // namespace vantry::plot
