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

const Property* Img2d::findProperty(Token name) const {
  return name == Word::TitlePositionZ ? nullptr : ImgBase::findProperty(name);
}

}  // namespace vantry::plot
