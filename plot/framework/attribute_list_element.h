// Elements that keep their own values in a list and resolve the others at each read.
#pragma once

#include <span>
#include <utility>
#include <vector>

#include "vantry/plot/framework/element_with_children.h"

namespace vantry::plot {

/// Holds its attributes in a list that is sorted by token. A property that is not in it is asked of
/// the style parent at every read, so that a change of a style shows at once.
class AttributeListElement : public ElementWithOptions {
 public:
  using ElementWithOptions::ElementWithOptions;

  Variant getAttribute(Token name) const override;
  bool hasAttribute(Token name) const override;
  void doSetAttribute(Token name, const Variant& value) override;
  void doRemoveAttribute(Token name) override;
  std::ostream& writeAttributes(std::ostream& out) const override;
  bool canBeWritten() const override;

  const Variant* findAttribute(Token name) const final;
  bool hasProperty(Token name) const override;

  /// The attributes that are set.
  std::span<const std::pair<Token, Variant>> attributes() const { return attributes_; }

  /// Throws InvalidAccess also for a mandatory property that has no value.
  Variant getPropertyValue(Token name) const override;
  void setPropertyValue(Token name, const Variant& value) override;
  bool parentPropertyChanged(PlotElement&, Token) override { return false; }
  void propertyChanged(PlotElement& source, Token name) override;
  void dropInheritedProperties() override;

  /// Notifies those who inherit from this element that `name` has changed.
  virtual void notifyPropertyChanged(Token name) = 0;

  /// Writes the name of the class in the command syntax.
  void printClassName(CmdWriter& writer) const;

 protected:
  using Attribute = std::pair<Token, Variant>;

  AttributeListElement(const AttributeListElement&) = default;

  /// The name of the class in the command syntax, null where it is not known.
  virtual Token className() const { return tagName(); }

  /// Writes each attribute in command form, by putAttribute().
  void putAttributes(CmdWriter& writer) const;
  virtual void putAttribute(CmdWriter& writer, const Property& property,
                            const Variant& value) const;

 private:
  bool isSameAsInherited(Token name) const;

  std::vector<Attribute> attributes_;
};

}  // namespace vantry::plot
