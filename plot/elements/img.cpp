#include "vantry/plot/elements/img.h"

#include "vantry/plot/elements/object.h"

namespace vantry::plot {

namespace {

using E = ImgBase;

// clang-format off
constexpr PropertyListOf properties{
    optional<FloatOrNaNType, &E::param>          (Word::Param,          nan),
    optional<FloatOrNaNType, &E::titlePositionX> (Word::TitlePositionX, nan),
    optional<FloatOrNaNType, &E::titlePositionY> (Word::TitlePositionY, nan),
    optional<FloatOrNaNType, &E::titlePositionZ> (Word::TitlePositionZ, nan),
};
// clang-format on

}  // namespace

const PropertyList& ImgBase::propertyList() { return properties; }

ImgBase::ImgBase(ElementDocument* document) : ContainerWithProperties(document) {
  propertyList().initialise(*this);
}

double ImgBase::frameTime() const {
  return frameTime_.of(*this, param(), elementCast<ObjectBase, Obj2d, Obj3d>(parent()));
}

const Property* Img2d::findProperty(Token name) const {
  return name == Word::TitlePositionZ ? nullptr : ImgBase::findProperty(name);
}

}  // namespace vantry::plot
