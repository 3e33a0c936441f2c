// Elements that keep the values of their properties in members.
#pragma once

#include "vantry/dom/document.h"
#include "vantry/plot/framework/element.h"
#include "vantry/plot/framework/property_list.h"

namespace vantry::plot {

/// Gives a class the properties of its `propertyList()` before those of its base. The class has a
/// MemberValues below it, and its constructor calls `propertyList().initialise(*this)`.
template <class Self, class Base>
class WithProperties : public Base {
 public:
  using Base::Base;

  const Property* findProperty(Token name) const override {
    const Property* own = Self::propertyList().find(name);
    return own ? own : Base::findProperty(name);
  }

  std::ostream& writeAttributes(std::ostream& out) const override {
    Base::writeAttributes(out);
    Self::propertyList().putXml(out, *this);
    return out;
  }

  bool canBeWritten() const override {
    return Base::canBeWritten() && Self::propertyList().canBeWritten(*this);
  }

  void dropInheritedProperties() override {
    dom::asOneChange(*this, [this] {
      const bool wasInDocument = this->isInDocument();
      Base::dropInheritedProperties();
      if (this->isInDocument() != wasInDocument) return;  // an observer has moved it
      Self::propertyList().dropAllInherited(*this);
    });
  }

 protected:
  void onAttached() override {
    Base::onAttached();
    Self::propertyList().inheritAll(*this);
  }
};

/// The same for an element with children: what changes further up concerns them, even where it does
/// not concern the element itself.
template <class Self, class Base>
class ContainerWithProperties : public WithProperties<Self, Base> {
 public:
  using WithProperties<Self, Base>::WithProperties;

  bool parentPropertyChanged(PlotElement& source, Token name) override {
    const bool changed = WithProperties<Self, Base>::parentPropertyChanged(source, name);
    return changed || &source != this;
  }
};

}  // namespace vantry::plot
