#include "vantry/plot/elements/expr.h"

#include <cmath>
#include <ostream>

#include "vantry/base/scan.h"
#include "vantry/plot/elements/coordinate_system.h"

namespace vantry::plot {

using dom::DomException;

namespace {

struct OptionType : TokenType {
  static const char* whyNoText(Token option) { return whyNoOption(option); }
};

// clang-format off
constexpr PropertyListOf exprProperties{
    mandatory<OptionType, &Expr::option> (Word::Opt, {}),
};

constexpr PropertyListOf vExprProperties{
    mandatory<DoubleType, &VExpr::value> (Word::Val, nan),
};
// clang-format on

}  // namespace

const PropertyList& Expr::propertyList() { return exprProperties; }
const PropertyList& VExpr::propertyList() { return vExprProperties; }

Expr::Expr(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

VExpr::VExpr(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

void Expr::setAttributeFromString(Token name, const char* text) {
  requireAttribute(name);
  if (*text == '\0') {
    refuse(RefusalKind::emptyOptionName);
    throw DomException(DomException::InvalidAccess);
  }
  setAttribute(name, base::TokenVariant(Token(text, true)));
}

void VExpr::setAttributeFromString(Token name, const char* text) {
  requireAttribute(name);
  double number = nan;
  if (!base::scanDouble(text, number)) {
    refuse(RefusalKind::illegalNumber, name, text);
    throw DomException(DomException::InvalidAccess);
  }
  setAttribute(name, base::DoubleVariant(number));
}

std::ostream& VExpr::writeAttributes(std::ostream& out) const {
  return std::isnan(value()) ? out : ElementOf::writeAttributes(out);
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
