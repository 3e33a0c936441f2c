// The selection of a PlotDocument.
#include <cstring>
#include <vector>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/range.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/document.h"
#include "vantry/plot/framework/style_getter.h"

namespace vantry::plot {

using base::Ref;
using dom::DomException;
using dom::Range;

namespace {

bool hasId(const PlotElement& element, const char* id) {
  if (!element.hasProperty(Word::Id)) return false;
  const Variant value = element.getPropertyValue(Word::Id);
  const auto string = value.as<base::FixedStringVariant>();
  const char* text = string ? string->get().c_str() : nullptr;
  return text && std::strcmp(text, id) == 0;
}

bool hasSiblingOfSameName(const dom::Node& node) {
  if (!node.parent()) return false;
  const dom::Node* sibling = node.parent()->firstChild();
  while (sibling && (sibling == &node || sibling->nodeName() != node.nodeName())) {
    sibling = sibling->nextSibling();
  }
  return sibling;
}

/// Deselects the selected ranges from `range` on. What observers select meanwhile stays.
void deselectFrom(const PlotDocument& document, Range* range) {
  std::vector<Ref<Range>> selected;
  for (; range; range = document.nextSelectedRange(range)) selected.emplace_back(range);
  for (const Ref<Range>& each : selected) each->deselect();
}

/// Makes one group of the undo history of the changes in its lifetime, however that ends.
class UndoGroup {
 public:
  explicit UndoGroup(PlotDocument& document) : document_(document) { document_.startUndoGroup(); }
  UndoGroup(const UndoGroup&) = delete;
  UndoGroup& operator=(const UndoGroup&) = delete;
  ~UndoGroup() { document_.startUndoGroup(); }

 private:
  PlotDocument& document_;
};

std::vector<PlotElement*> elementsAround(const dom::Node& node) {
  std::vector<PlotElement*> elements;
  for (dom::Node* around = node.parent(); around; around = around->parent()) {
    if (PlotElement* element = PlotElement::from(around)) elements.push_back(element);
  }
  return elements;
}

void makeInconsistent(PlotElement& element) {
  const Variant inconsistent = base::BoolVariant(false);
  if (element.hasAttribute(Word::Consistent) &&
      !(element.getAttribute(Word::Consistent) == inconsistent)) {
    element.setAttribute(Word::Consistent, inconsistent);
  }
}

}  // namespace

void PlotDocument::select(dom::Node* node) {
  if (!node) {
    clearSelection();
    return;
  }
  if (node->ownerDocument() != this || !node->parent()) {
    throw DomException(DomException::WrongDocument);
  }
  const Ref<dom::Node> selected = node;  // which an observer may take out
  Ref<Range> selection = firstSelectedRange();
  if (selection) {
    deselectFrom(*this, nextSelectedRange(selection.get()));
  } else {
    selection = createRange(true);
  }
  if (selection) selection->selectNode(node);
}

bool PlotDocument::selectById(const char* id) {
  PlotElement* found = nullptr;
  PlotElement* root = documentElement();
  if (root && id && *id != '\0') {
    dom::walkSubtree<dom::Node>(*root, [&](dom::Node& node) {
      PlotElement* element = PlotElement::from(&node);
      if (!found && element && hasId(*element, id)) found = element;
      return !found;
    });
  }
  select(found);
  return found;
}

PlotElement* PlotDocument::selectedElement() const {
  const Range* selection = firstSelectedRange();
  if (!selection || nextSelectedRange(selection)) return nullptr;
  const dom::Node* parent = selection->commonAncestorContainer();
  const bool isOneChild = selection->startContainer() == parent &&
                          selection->endContainer() == parent &&
                          selection->startOffset() + 1 == selection->endOffset();
  return isOneChild ? PlotElement::from(parent->childAt(selection->startOffset())) : nullptr;
}

void PlotDocument::clearSelection() { deselectFrom(*this, firstSelectedRange()); }

bool PlotDocument::canDeleteSelection() const {
  const PlotElement* element = selectedElement();
  if (!element || element->tagName() == Word::Canvas) return false;
  const bool isNeeded = isOneOf(element->tagName(), Word::Scene2d, Word::Scene3d,
                                Word::CoordinateSystem2d, Word::CoordinateSystem3d);
  return !isNeeded || hasSiblingOfSameName(*element);
}

void PlotDocument::deleteSelection() {
  if (!canDeleteSelection()) return;
  PlotElement* element = selectedElement();
  const bool inDocument = element->isInDocument();
  const UndoGroup group(*this);
  asOneChange([&] {
    const std::vector<PlotElement*> around = elementsAround(*element);
    element->parent()->removeChild(element);
    for (PlotElement* each : around) {
      if (each->isInDocument() == inDocument) makeInconsistent(*each);
    }
  });
}

}  // namespace vantry::plot
