#include "SRC/object.h"

#include "SRC/object_properties.h"
#include "SRC/parameter_range.h"

namespace PlotDom {

namespace {

constexpr OptionBit options[] = {
    {Word::ParameterName, 1},    {Word::ParameterBegin, 2},     {Word::ParameterEnd, 4},
    {Word::Title, 32},           {Word::TitlePositionX, 64},    {Word::TitlePositionY, 128},
    {Word::TitlePositionZ, 256}, {Word::LegendText, 512},       {Word::Points2d, 1024},
    {Word::Points3d, 2048},      {Word::TextOrientation, 4096},
};

}  // namespace

bool ObjectBase::legendColor(RGBA& out) const {
  const Token name = ObjectStyleGetter::legendColor();
  if (!name || !hasProperty(name)) return false;
  const Variant value = getPropertyValue(name);
  const RGBAVariant* color = value.as<RGBAVariant>();
  if (color) out = color->get();
  return color;
}

bool ObjectBase::parameterRange(double& begin, double& end) const {
  return PlotDom::parameterRange(*this, begin, end);
}

std::uint32_t ObjectBase::optionBit(Token name) const { return bitIn(options, name); }

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

void ObjectBase::notifyPropertyChanged(Token name) {
  for (Arbor::Node* child = firstChild(); child; child = child->nextSibling()) {
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

std::uint32_t Obj3d::allowedOptions() const { return 7143; }

bool Obj3d::isContentName(Token name) const {
  return name == Word::Img3d || ObjectBase::isContentName(name);
}

const Property* Obj3d::findProperty(Token name) const {
  return findIn(name, objectStyleProperties(), object3dStyleProperties(), objectProperties());
}

}  // namespace PlotDom
