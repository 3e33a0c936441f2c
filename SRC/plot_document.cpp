#include "SRC/plot_document.h"

#include "SRC/element_factory.h"

namespace PlotDom {

PlotElement* PlotDocument::createElement(Token name) { return makeElement(name, *this); }

PlotElement* PlotDocument::documentElement() const {
  return static_cast<PlotElement*>(Document::documentElement());
}

void PlotDocument::visitElements() {
  if (PlotElement* root = documentElement()) root->visit();
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
