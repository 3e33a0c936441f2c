#include "vantry/plot/elements/tr.h"

#include "vantry/plot/elements/transform.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf trProperties{
    optional<DoubleType, &TrBase::param> (Word::Param, nan),
};

constexpr PropertyListOf tr2dProperties{
    trProperties,
    optional<P2Type, &Tr2d::shift> (Word::Shift, {0, 0}),
    optional<P2Type, &Tr2d::row1>  (Word::Row1,  {1, 0}),
    optional<P2Type, &Tr2d::row2>  (Word::Row2,  {0, 1}),
};

constexpr PropertyListOf tr3dProperties{
    trProperties,
    optional<P3Type, &Tr3d::shift> (Word::Shift, {0, 0, 0}),
    optional<P3Type, &Tr3d::row1>  (Word::Row1,  {1, 0, 0}),
    optional<P3Type, &Tr3d::row2>  (Word::Row2,  {0, 1, 0}),
    optional<P3Type, &Tr3d::row3>  (Word::Row3,  {0, 0, 1}),
};
// clang-format on

}  // namespace

const PropertyList& TrBase::propertyList() { return trProperties; }
const PropertyList& Tr2d::propertyList() { return tr2dProperties; }
const PropertyList& Tr3d::propertyList() { return tr3dProperties; }

TrBase::TrBase(ElementDocument* document) : WithProperties(document) {
  propertyList().initialise(*this);
}

Tr2d::Tr2d(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

Tr3d::Tr3d(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

double TrBase::frameTime() const {
  const auto* transform = elementCast<TransformBase, Transform2d, Transform3d>(parent());
  return frameTime_.of(*this, param(), transform);
}

}  // namespace vantry::plot
