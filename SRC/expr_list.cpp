#include "SRC/expr_list.h"

#include <algorithm>

#include "SRC/plot_document.h"

namespace PlotDom {

void addChildren(PlotElement& parent, Token name, unsigned count) {
  for (; count > 0; --count) {
    const Ubase::Ref<Arbor::Node> child(parent.plotDocument()->createElement(name));
    parent.doReplaceChildren(nullptr, 0, child.get());
  }
}

bool areAllNamed(const Arbor::Node* chain, Token name) {
  for (; chain; chain = chain->nextSibling()) {
    if (chain->nodeName() != name) return false;
  }
  return true;
}

bool canBeTuple(const PlotElement& parent, const Arbor::Node* first, unsigned count,
                const Arbor::Node* newChildren, unsigned least, unsigned most) {
  if (!areAllNamed(newChildren, Word::IExpr)) return false;
  const unsigned removed = std::min(count, Arbor::countSiblingsFrom(first));
  const unsigned after = parent.length() - removed + Arbor::countSiblingsFrom(newChildren);
  return least <= after && after <= most;
}

bool isBlankList(const PlotElement& list) {
  const Arbor::Node* first = list.firstChild();
  if (!first || first->nodeName() != Word::IExpr) return true;
  return static_cast<const PCDataElement*>(first)->isBlank(true);
}

bool ExprSeq::canReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newChildren) const {
  return areAllNamed(newChildren, Word::IExpr);
}

namespace {

constexpr OptionBit tickOptions[] = {{Word::VExpr, 1}, {Word::Title, 2}};

}  // namespace

TickPos::TickPos(Arbor::Document* document) : ElementOf(document) {
  addChildren(*this, Word::VExpr, 1);
}

std::uint32_t TickPos::optionBit(Token name) const { return bitIn(tickOptions, name); }

std::uint32_t TickPos::allowedOptions() const { return 3; }

std::uint32_t TickPos::requiredOptions() const { return 1; }

bool TickPos::isContentName(Token) const { return false; }

}  // namespace PlotDom
