#include "vantry/plot/framework/element_document.h"

namespace vantry::plot {

void ElementDocument::reportError(const char* format, va_list arguments) const {
  if (!errorReporter_) return;
  va_list again;
  va_copy(again, arguments);
  errorReporter_("PlotDom error: ", arguments);
  errorReporter_(format, again);
  va_end(again);
}

}  // namespace vantry::plot
