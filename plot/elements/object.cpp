#include "vantry/plot/elements/object.h"

#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/parameter_range.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/object_properties.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot {

namespace {

constexpr OptionTable options = {
    {WordId::ParameterName, 1},    {WordId::ParameterBegin, 2},     {WordId::ParameterEnd, 4},
    {WordId::Title, 32},           {WordId::TitlePositionX, 64},    {WordId::TitlePositionY, 128},
    {WordId::TitlePositionZ, 256}, {WordId::LegendText, 512},       {WordId::Points2d, 1024},
    {WordId::Points3d, 2048},      {WordId::TextOrientation, 4096},
};

}  // namespace

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

std::uint32_t ObjectBase::optionBit(Token name) const { return options.bit(name); }

bool ObjectBase::isContentName(Token name) const {
  return isOneOf(name, Word::Expr, Word::ExprSeq, Word::ColorFunc, Word::Prop);
}

Token ObjectBase::localType() const { return hasAttribute(Word::Type) ? type() : Token(); }

const PlotElement* ObjectBase::styleParent(Token name) const {
  return findTypedStyle(*this, localType(), name);
}

void ObjectBase::collectStyleChain(StyleChain& chain) const {
  collectTypedStyles(*this, localType(), chain);
}

void ObjectBase::collectEffectiveStyles(StyleChain& chain) const {
  collectEffectiveTypedStyles(*this, localType(), chain);
}

void ObjectBase::notifyPropertyChanged(Token name) {
  for (dom::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (PlotElement* element = from(child)) element->propertyChanged(*this, name);
  }
}

std::uint32_t Obj2d::allowedOptions() const { return 1767; }

bool Obj2d::isContentName(Token name) const {
  return name == Word::Img2d || ObjectBase::isContentName(name);
}

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

std::uint32_t Obj3d::allowedOptions() const { return 7143; }

bool Obj3d::isContentName(Token name) const {
  return name == Word::Img3d || ObjectBase::isContentName(name);
}

const Property* Obj3d::findProperty(Token name) const {
  return findIn(name, objectStyleProperties(), object3dStyleProperties(), objectProperties());
}

}  // namespace vantry::plot
