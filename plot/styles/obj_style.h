// The style of graphical objects.
#pragma once

#include "vantry/plot/framework/library_element.h"
#include "vantry/plot/styles/object_style_getter.h"

namespace vantry::plot {

/// Gives values to the objects around it whose type is its own, or to all with the type Default. It
/// has the properties of objects of both dimensions.
class ObjStyle : public ElementOf<ObjStyle, StyleElement>, public ObjectStyleGetter {
 public:
  static constexpr Token tag = Word::ObjStyle;

  explicit ObjStyle(ElementDocument* document);
  ObjStyle(const ObjStyle& other);

  /// The type that was set, or null.
  Token localType() const { return localType_; }

  void doSetAttribute(Token name, const Variant& value) override;
  void doRemoveAttribute(Token name) override;

  bool visitStyles(StyleVisitor& visitor) const override;
  const Property* findProperty(Token name) const override;

 protected:
  Token className() const override { return localType_; }
  /// The values for all types are written without the name of a class.
  void putAttribute(CmdWriter& writer, const Property& property,
                    const Variant& value) const override;

 private:
  void attributesChanged();
  void setLocalType(Token type);
  /// What the container around knows of its styles; null outside of a container.
  const StyleIndex* indexAround() const;

  Token localType_;
};

/// The node as the object style that it is, or null.
inline const ObjStyle* asObjStyle(const dom::Node& node) { return elementCast<ObjStyle>(&node); }

}  // namespace vantry::plot
