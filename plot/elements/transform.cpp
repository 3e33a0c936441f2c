#include "vantry/plot/elements/transform.h"

#include "vantry/plot/elements/group.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot {

namespace {

constexpr OptionTable options = {
    {WordId::ParameterName, 1}, {WordId::ParameterBegin, 2}, {WordId::ParameterEnd, 4},
    {WordId::Matrix2d, 8},      {WordId::Matrix3d, 16},
};

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

std::uint32_t TransformBase::optionBit(Token child) const { return options.bit(child); }

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

std::uint32_t Transform2d::allowedOptions() const { return 15; }

bool Transform2d::isContentName(Token child) const {
  return isOneOf(child, Word::Expr, Word::Tr2d, Word::Obj2d, Word::Group2d, Word::Transform2d);
}

std::uint32_t Transform3d::allowedOptions() const { return 23; }

bool Transform3d::isContentName(Token child) const {
  return isOneOf(child, Word::Expr, Word::Tr3d, Word::Obj3d, Word::Group3d, Word::Transform3d);
}

bool Transform3d::isContentChild(const dom::Node& node) const {
  return isContentName(node.nodeName()) && isMovable3d(node);
}

}  // namespace vantry::plot
