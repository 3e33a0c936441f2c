#include "vantry/plot/elements/transform.h"

#include "vantry/plot/elements/group.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot {

namespace {

using E = TransformBase;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<TypeNameType,   &E::type>       (Word::Type,       {}),
    optional<IdType,          &E::id>         (Word::Id,         {}),
    optional<StringType,      &E::name>       (Word::Name,       {}),
    optional<ConsistentType,  &E::consistent> (Word::Consistent, false),
    inherited<NonNegLongType, &E::frames>     (Word::Frames,     0),
    inherited<DoubleType,     &E::timeBegin>  (Word::TimeBegin,  0),
    inherited<DoubleType,     &E::timeEnd>    (Word::TimeEnd,    4),
};
// clang-format on

}  // namespace

const PropertyList& TransformBase::propertyList() { return properties; }

TransformBase::TransformBase(ElementDocument* document) : ContainerWithProperties(document) {
  propertyList().initialise(*this);
}

bool TransformBase::visitStyles(StyleVisitor& visitor) const {
  return visitTypedStyles(*this, type(), visitor);
}

bool TransformBase::beginCommand(CmdWriter& writer) const {
  writer.beginCall(type());
  propertyList().putCmd(writer, *this);
  return true;
}

void TransformBase::endCommand(CmdWriter& writer) const { writer.endCall(); }

bool Transform3d::isContentChild(const dom::Node& node) const {
  return ElementWithChildren::isContentChild(node) && isMovable3d(node);
}

}  // namespace vantry::plot
