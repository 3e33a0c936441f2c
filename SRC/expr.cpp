#include "SRC/expr.h"

#include <cmath>
#include <ostream>

#include "base/scan.h"

namespace PlotDom {

using Arbor::DomException;

void Expr::setAttributeFromString(Token name, const char* text) {
  requireName(name);
  if (*text == '\0') {
    report("empty option name\n");
    throw DomException(DomException::InvalidAccess);
  }
  setAttribute(name, Ubase::TokenVariant(Token(text, true)));
}

std::ostream& Expr::writeAttributes(std::ostream& out) const {
  findProperty(Word::Opt)->putXml(out, Ubase::TokenVariant(option()));
  return out;
}

void VExpr::setAttributeFromString(Token name, const char* text) {
  requireName(name);
  double number = nan;
  if (!Ubase::scanDouble(text, number)) {
    report("illegal value string [Val='%s']\n", text);
    throw DomException(DomException::InvalidAccess);
  }
  setAttribute(name, Ubase::DoubleVariant(number));
}

std::ostream& VExpr::writeAttributes(std::ostream& out) const {
  if (!std::isnan(value())) findProperty(Word::Val)->putXml(out, Ubase::DoubleVariant(value()));
  return out;
}

}  // namespace PlotDom
