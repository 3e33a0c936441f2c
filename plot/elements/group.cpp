#include "vantry/plot/elements/group.h"

#include "vantry/plot/elements/object.h"

namespace vantry::plot {

namespace {

class GroupPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = GroupBase;
    // clang-format off
    optional<IdPropertyImpl>         (Word::Id,         {},     2, &E::id);
    optional<StringTrait>            (Word::Name,       {},     4, &E::name);
    optional<ConsistentPropertyImpl> (Word::Consistent, false,  8, &E::consistent);
    optional<BoolTrait>              (Word::Visible,    true,  16, &E::visible);
    // clang-format on
  }
};
constinit GroupPropertyListMgr groupPropertyList;

}  // namespace

PropertyListMgr& GroupBase::propertyList() { return groupPropertyList; }

GroupBase::GroupBase(dom::Document* document) : ContainerWithMembers(document) {
  propertyList().initialise(*this);
}

bool GroupBase::beginCommand(CmdWriter& writer) const {
  writer.beginCall(tagName());
  propertyList().putCmd(writer, *this);
  return true;
}

void GroupBase::endCommand(CmdWriter& writer) const { writer.endCall(); }

bool Group3d::isContentChild(const dom::Node& node) const {
  return ContentPlotElement::isContentChild(node) && isMovable3d(node);
}

bool isMovableType3d(Token type) {
  return type && !isOneOf(type, Word::Camera, Word::AmbientLight, Word::PointLight,
                          Word::DistantLight, Word::SpotLight, Word::ClippingBox);
}

bool isMovable3d(const dom::Node& node) {
  const Obj3d* object = elementCast<Obj3d>(&node);
  return !object || isMovableType3d(object->localType());
}

}  // namespace vantry::plot
