#include "vantry/plot/elements/expr.h"

#include <cmath>
#include <ostream>

#include "vantry/base/scan.h"
#include "vantry/plot/elements/coordinate_system.h"

namespace vantry::plot {

using dom::DomException;

void Expr::setAttributeFromString(Token name, const char* text) {
  requireName(name);
  if (*text == '\0') {
    refuse(RefusalKind::emptyOptionName);
    throw DomException(DomException::InvalidAccess);
  }
  setAttribute(name, base::TokenVariant(Token(text, true)));
}

std::ostream& Expr::writeAttributes(std::ostream& out) const {
  findProperty(Word::Opt)->putXml(out, base::TokenVariant(option()));
  return out;
}

void VExpr::setAttributeFromString(Token name, const char* text) {
  requireName(name);
  double number = nan;
  if (!base::scanDouble(text, number)) {
    refuse(RefusalKind::illegalNumber, name, text);
    throw DomException(DomException::InvalidAccess);
  }
  setAttribute(name, base::DoubleVariant(number));
}

std::ostream& VExpr::writeAttributes(std::ostream& out) const {
  if (!std::isnan(value())) findProperty(Word::Val)->putXml(out, base::DoubleVariant(value()));
  return out;
}

bool Expr::beginCommand(CmdWriter& writer) const {
  putNamed(writer, option());
  return false;
}

bool SeqExprElement::beginCommand(CmdWriter& writer) const {
  putText(writer.out());
  return false;
}

bool NamedExprElement::beginCommand(CmdWriter& writer) const {
  putNamed(writer, tagName());
  return false;
}

bool NamedVExprElement::beginCommand(CmdWriter& writer) const {
  putNamed(writer, tagName());
  return false;
}

bool ViewingBoxExprElement::beginCommand(CmdWriter& writer) const {
  const auto* system =
      elementCast<CoordinateSystemBase, CoordinateSystem2d, CoordinateSystem3d>(parent());
  if (system && (system->autoViewingBox() & viewingBoxBit())) return false;
  return NamedVExprElement::beginCommand(writer);
}

}  // namespace vantry::plot
