#include "SRC/plot_document.h"

#include "SRC/element_factory.h"
#include "dom/tree_walk.h"

namespace PlotDom {

PlotElement* PlotDocument::createElement(Token name) { return makeElement(name, *this); }

PlotElement* PlotDocument::documentElement() const {
  return static_cast<PlotElement*>(Document::documentElement());
}

void PlotDocument::visitElements() {
  PlotElement* root = documentElement();
  if (!root) return;
  Arbor::walkSubtree<Arbor::Node>(*root, [](Arbor::Node& node) {
    PlotElement* element = PlotElement::from(&node);
    return element && element->visit();
  });
}

void PlotDocument::reportError(const char* format, va_list arguments) const {
  if (!errorReporter_) return;
  va_list again;
  va_copy(again, arguments);
  errorReporter_("PlotDom error: ", arguments);
  errorReporter_(format, again);
  va_end(again);
}

}  // namespace PlotDom
