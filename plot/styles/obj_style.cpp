#include "vantry/plot/styles/obj_style.h"

#include "vantry/plot/styles/object_properties.h"
#include "vantry/plot/styles/style_index.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot {

ObjStyle::ObjStyle(ElementDocument* document) : ElementOf(document), ObjectStyleGetter(this) {}

ObjStyle::ObjStyle(const ObjStyle& other)
    : ElementOf(other), ObjectStyleGetter(this), localType_(other.localType_) {}

void ObjStyle::doSetAttribute(Token name, const Variant& value) {
  const bool isNew = !hasAttribute(name);
  ElementOf::doSetAttribute(name, value);
  if (isNew) attributesChanged();
  if (name != Word::Type) return;
  const auto type = value.as<base::TokenVariant>();
  setLocalType(type ? type->get() : Token());
}

void ObjStyle::doRemoveAttribute(Token name) {
  ElementOf::doRemoveAttribute(name);
  attributesChanged();
  if (name == Word::Type) setLocalType(Token());
}

void ObjStyle::attributesChanged() {
  if (const StyleIndex* index = indexAround()) index->leavePath();
}

void ObjStyle::setLocalType(Token type) {
  localType_ = type;
  if (const StyleIndex* index = indexAround()) index->typeChanged();
}

const StyleIndex* ObjStyle::indexAround() const {
  const PlotElement* container = from(parent());
  return container ? container->styleIndex() : nullptr;
}

bool ObjStyle::visitStyles(StyleVisitor& visitor) const {
  if (!parent()) return false;
  return localType_ == Word::Default ? visitObjStyles(*parent(), Word::Default, visitor)
                                     : visitTypedStyles(*parent(), localType_, visitor);
}

const Property* ObjStyle::findProperty(Token name) const {
  return findIn(name, objectStyleProperties(), object2dStyleProperties(),
                object3dStyleProperties());
}

void ObjStyle::putAttribute(CmdWriter& writer, const Property& property,
                            const Variant& value) const {
  if (localType_ == Word::Default) {
    property.putCmd(writer, value);
  } else {
    StyleElement::putAttribute(writer, property, value);
  }
}

}  // namespace vantry::plot
