#include "vantry/plot/elements/img.h"

#include "vantry/plot/elements/object.h"

namespace vantry::plot {

namespace {

class ImgPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = ImgBase;
    // clang-format off
    optional<ImgPropDoubleType> (Word::Param,          nan, 1, &E::param);
    optional<ImgPropDoubleType> (Word::TitlePositionX, nan, 2, &E::titlePositionX);
    optional<ImgPropDoubleType> (Word::TitlePositionY, nan, 4, &E::titlePositionY);
    optional<ImgPropDoubleType> (Word::TitlePositionZ, nan, 8, &E::titlePositionZ);
    // clang-format on
  }
};
constinit ImgPropertyListMgr imgPropertyList;

}  // namespace

PropertyListMgr& ImgBase::propertyList() { return imgPropertyList; }

ImgBase::ImgBase(dom::Document* document) : ContainerWithMembers(document) {
  propertyList().initialise(*this);
}

double ImgBase::frameTime() const {
  return frameTime_.of(*this, param(), elementCast<ObjectBase, Obj2d, Obj3d>(parent()));
}

bool Img2d::isContentName(Token name) const {
  return isOneOf(name, Word::Poly2d, Word::Arc2d, Word::Pt2d, Word::Pts2d, Word::Line2d,
                 Word::Arrow2d, Word::Text2d, Word::VerticalAsymptote, Word::Field2d,
                 Word::ColorArray2d, Word::DensityArray2d);
}

const Property* Img2d::findProperty(Token name) const {
  return name == Word::TitlePositionZ ? nullptr : ImgBase::findProperty(name);
}

bool Img3d::isContentName(Token name) const {
  return isOneOf(name, Word::Mesh3d, Word::Pts3d, Word::Line3d, Word::Lines3d, Word::Surf3d,
                 Word::Field3d, Word::Arrow3d, Word::Box, Word::Circle3d, Word::Cone, Word::Sphere,
                 Word::Ellipsoid, Word::Plane, Word::Text3d, Word::Poly3d, Word::Camera,
                 Word::AmbientLight, Word::PointLight, Word::DistantLight, Word::SpotLight,
                 Word::ClippingBox);
}

}  // namespace vantry::plot
