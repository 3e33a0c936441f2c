#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

const PlotElement* PrimitiveBase::object() const {
  return parent() ? from(parent()->parent()) : nullptr;
}

const PlotElement* PrimitiveBase::styleParent(Token name) const {
  const PlotElement* object = this->object();
  if (!object) return nullptr;
  return object->hasAttribute(name) ? object : object->styleParent(name);
}

void PrimitiveBase::collectStyleChain(StyleChain& chain) const {
  const PlotElement* object = this->object();
  if (!object) return;
  chain.push_back(object);
  object->collectStyleChain(chain);
}

void PrimitiveBase::collectEffectiveStyles(StyleChain& chain) const {
  const PlotElement* object = this->object();
  if (!object) return;
  chain.push_back(object);
  object->collectEffectiveStyles(chain);
}

}  // namespace vantry::plot
