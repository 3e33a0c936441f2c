// The elements of the drawing that inherit from styles.
#pragma once

#include "vantry/plot/framework/attribute_list_element.h"

namespace vantry::plot {

/// Base of canvas, scenes, coordinate systems and objects.
class LibraryElement : public AttributeListElement {
 public:
  using AttributeListElement::AttributeListElement;

  void notifyPropertyChanged(Token) override {}
  bool parentPropertyChanged(PlotElement& source, Token name) override;

  /// A call with the attributes and the children as its arguments.
  bool beginCommand(CmdWriter& writer) const override;
  void endCommand(CmdWriter& writer) const override;

 protected:
  LibraryElement(const LibraryElement&) = default;
};

/// Base of the elements that hold values for others to inherit. They have no children.
class StyleElement : public AttributeListElement {
 public:
  using AttributeListElement::AttributeListElement;

  bool isStyle() const override { return true; }

  void notifyPropertyChanged(Token name) override;
  bool parentPropertyChanged(PlotElement& source, Token name) override;

  /// The attributes as defaults of the class that has the style.
  bool beginCommand(CmdWriter& writer) const override;

 protected:
  StyleElement(const StyleElement&) = default;

  void putAttribute(CmdWriter& writer, const Property& property,
                    const Variant& value) const override;

 private:
  /// Notifies each element around that may inherit from this one of the change, once.
  void notifyWhatIsAround(Token name);
};

}  // namespace vantry::plot
