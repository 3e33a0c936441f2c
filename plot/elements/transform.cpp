#include "vantry/plot/elements/transform.h"

#include "vantry/plot/elements/group.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot {

namespace {

class TransformPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = TransformBase;
    // clang-format off
    mandatory<TypePropertyImpl>      (Word::Type,       {},     1, &E::type);
    optional<IdPropertyImpl>         (Word::Id,         {},     2, &E::id);
    optional<StringTrait>            (Word::Name,       {},     4, &E::name);
    optional<ConsistentPropertyImpl> (Word::Consistent, false, 16, &E::consistent);
    inherited<FramesType>            (Word::Frames,     0,      8, &E::frames);
    inherited<DoubleTrait>           (Word::TimeBegin,  0,     32, &E::timeBegin);
    inherited<DoubleTrait>           (Word::TimeEnd,    4,     64, &E::timeEnd);
    // clang-format on
  }
};
constinit TransformPropertyListMgr transformPropertyList;

}  // namespace

PropertyListMgr& TransformBase::propertyList() { return transformPropertyList; }

TransformBase::TransformBase(dom::Document* document) : ContainerWithMembers(document) {
  propertyList().initialise(*this);
}

const PlotElement* TransformBase::styleParent(Token key) const {
  return findTypedStyle(*this, type(), key);
}

void TransformBase::collectStyleChain(StyleChain& chain) const {
  collectTypedStyles(*this, type(), chain);
}

void TransformBase::collectEffectiveStyles(StyleChain& chain) const {
  collectEffectiveTypedStyles(*this, type(), chain);
}

bool TransformBase::beginCommand(CmdWriter& writer) const {
  writer.beginCall(type());
  propertyList().putCmd(writer, *this);
  return true;
}

void TransformBase::endCommand(CmdWriter& writer) const { writer.endCall(); }

bool Transform3d::isContentChild(const dom::Node& node) const {
  return ContentPlotElement::isContentChild(node) && isMovable3d(node);
}

}  // namespace vantry::plot
