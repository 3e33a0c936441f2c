#include "vantry/plot/elements/expr_list.h"

#include <algorithm>

#include "vantry/plot/framework/element_document.h"

namespace vantry::plot {

void addChildren(PlotElement& parent, Token name, unsigned count) {
  for (; count > 0; --count) {
    const base::Ref<dom::Node> child(parent.plotDocument()->createElement(name));
    parent.doReplaceChildren(nullptr, 0, child.get());
  }
}

bool canBeTuple(const PlotElement& parent, const dom::Node* first, unsigned count,
                dom::NewChildren newChildren, unsigned least, unsigned most) {
  if (!isContentOf(parent, newChildren)) return false;
  const unsigned moved = newChildren.isMovedWithin(parent) ? 1 : 0;
  const unsigned removed = std::min(count, dom::countSiblingsFrom(first)) + moved;
  const unsigned after = parent.length() - removed + newChildren.count();
  return least <= after && after <= most;
}

bool isBlankList(const PlotElement& list) {
  const IExpr* first = elementCast<IExpr>(list.firstChild());
  return !first || first->isBlank(true);
}

namespace {

void putItems(CmdWriter& writer, const PlotElement& list) {
  for (const dom::Node* child = list.firstChild(); child; child = child->nextSibling()) {
    if (child->previousSibling()) writer.out() << ',';
    if (const PlotElement* item = PlotElement::from(child)) item->printCommand(writer);
  }
}

}  // namespace

void putTuple(CmdWriter& writer, Token name, const PlotElement& tuple) {
  writer.beginAssignment(name);
  if (isBlankList(tuple)) {
    writer.out() << "NIL";
  } else {
    const bool isSingle = tuple.firstChild() == tuple.lastChild();
    writer.out() << (isSingle ? '(' : '[');
    putItems(writer, tuple);
    writer.out() << (isSingle ? ')' : ']');
  }
  writer.endItem();
}

void putPoint(CmdWriter& writer, const PlotElement& point) {
  writer.beginItem();
  writer.out() << '[';
  putItems(writer, point);
  writer.out() << ']';
  writer.endItem();
}

bool beginList(CmdWriter& writer, const PlotElement& list, const char* opening) {
  writer.beginAssignment(list.tagName());
  if (list.firstChild()) {
    writer.out() << opening;
    return true;
  }
  writer.out() << "NIL";
  writer.endItem();
  return false;
}

bool ExprSeq::beginCommand(CmdWriter& writer) const {
  writer.beginAssignment(option());
  if (firstChild()) {
    writer.out() << '[';
    putItems(writer, *this);
    writer.out() << ']';
  } else {
    writer.out() << "NIL";
  }
  writer.endItem();
  return false;
}

bool ExprSeq::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return isContentOf(*this, newChildren);
}

TickPos::TickPos(ElementDocument* document) : ElementOf(document) {
  addChildren(*this, Word::VExpr, 1);
}

bool TickPos::beginCommand(CmdWriter& writer) const {
  const VExpr* place = firstChildOf<VExpr>(*this);
  const Title* title = firstChildOf<Title>(*this);
  if (!place) return false;
  writer.beginItem();
  if (title) writer.out() << '(';
  place->putText(writer.out());
  if (title) {
    writer.out() << ")=";
    title->printQuoted(writer);
  }
  writer.endItem();
  return false;
}

}  // namespace vantry::plot
