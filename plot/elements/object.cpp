#include "vantry/plot/elements/object.h"

#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/parameter_range.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/object_properties.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot {

bool ObjectBase::legendColor(RGBA& out) const {
  const Token name = ObjectStyleGetter::legendColor();
  if (!name || !hasProperty(name)) return false;
  const Variant value = getPropertyValue(name);
  const auto color = value.as<RGBAVariant>();
  if (!color) return false;
  out = color->get();
  return true;
}

bool ObjectBase::parameterRange(double& begin, double& end) const {
  return plot::parameterRange(*this, begin, end);
}

Token ObjectBase::localType() const { return hasAttribute(Word::Type) ? type() : Token(); }

bool ObjectBase::visitStyles(StyleVisitor& visitor) const {
  return visitTypedStyles(*this, localType(), visitor);
}

void ObjectBase::notifyPropertyChanged(Token name) { passToChildren(*this, name); }

const Property* Obj2d::findProperty(Token name) const {
  return findIn(name, objectStyleProperties(), object2dStyleProperties(), objectProperties());
}

bool Obj3d::canSetAttribute(Token name, const Variant& value) const {
  if (!ElementOf::canSetAttribute(name, value)) return false;
  const auto* group = elementCast<PlotElement, Group3d, Transform3d>(parent());
  if (name != Word::Type || !group) return true;
  const Token type = value.as<base::TokenVariant>()->get();
  return isMovableType3d(type) || group->refuse(RefusalKind::illegalType, type);
}

const Property* Obj3d::findProperty(Token name) const {
  return findIn(name, objectStyleProperties(), object3dStyleProperties(), objectProperties());
}

}  // namespace vantry::plot
