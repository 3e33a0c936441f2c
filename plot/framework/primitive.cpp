#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

const PlotElement* PrimitiveBase::object() const {
  return parent() ? from(parent()->parent()) : nullptr;
}

bool PrimitiveBase::visitStyles(StyleVisitor& visitor) const {
  const PlotElement* object = this->object();
  return object && (visitor.visit(*object) || object->visitStyles(visitor));
}

}  // namespace vantry::plot
