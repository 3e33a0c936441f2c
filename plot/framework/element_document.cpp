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

void ElementDocument::report(const char* format, ...) const {
  va_list arguments;
  va_start(arguments, format);
  reportError(format, arguments);
  va_end(arguments);
}

bool ElementDocument::refuse(const Refusal& refusal) const {
  if (refusalListener_) refusalListener_->refused(refusal);
  const RefusalReport message = reportOf(refusal);
  report(message.format, message.first, message.second);
  return false;
}

}  // namespace vantry::plot
