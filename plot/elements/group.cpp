#include "vantry/plot/elements/group.h"

#include "vantry/plot/elements/object.h"

namespace vantry::plot {

namespace {

using E = GroupBase;

// clang-format off
constexpr PropertyListOf properties{
    optional<IdType,         &E::id>         (Word::Id,         {}),
    optional<StringType,     &E::name>       (Word::Name,       {}),
    optional<ConsistentType, &E::consistent> (Word::Consistent, false),
    optional<BoolType,       &E::visible>    (Word::Visible,    true),
};
// clang-format on

}  // namespace

const PropertyList& GroupBase::propertyList() { return properties; }

GroupBase::GroupBase(ElementDocument* document) : ContainerWithProperties(document) {
  propertyList().initialise(*this);
}

bool GroupBase::beginCommand(CmdWriter& writer) const {
  writer.beginCall(tagName());
  propertyList().putCmd(writer, *this);
  return true;
}

void GroupBase::endCommand(CmdWriter& writer) const { writer.endCall(); }

bool Group3d::isContentChild(const dom::Node& node) const {
  return ElementWithChildren::isContentChild(node) && isMovable3d(node);
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
