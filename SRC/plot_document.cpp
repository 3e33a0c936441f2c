#include "SRC/plot_document.h"

#include <ostream>

#include "SRC/cmd_writer.h"
#include "SRC/element_factory.h"
#include "SRC/style_getter.h"
#include "dom/tree_walk.h"

namespace PlotDom {

PlotElement* PlotDocument::createElement(Token name) { return makeElement(name, *this); }

PlotElement* PlotDocument::documentElement() const {
  return static_cast<PlotElement*>(Document::documentElement());
}

void PlotDocument::printCommands(std::ostream& out, bool replot) const {
  const PlotElement* root = documentElement();
  if (!root) return;
  const bool hasUnits = root->hasAttribute(Word::OutputUnits);
  CmdWriter writer(out, hasUnits ? propertyValue<Token>(*root, Word::OutputUnits) : Word::MM);
  out << (replot ? "plot::replot(\n" : "plot(\n");
  root->printCommand(writer);
  out << "):";
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
