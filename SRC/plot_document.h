// The document of the plot model.
#pragma once

#include <cstdarg>

#include "SRC/plot_element.h"
#include "dom/document.h"

namespace PlotDom {

/// A document whose elements are those of a plot. Its root is a Canvas.
class PlotDocument : public Arbor::Document {
 public:
  /// Takes a format and arguments in the manner of vprintf.
  using ErrorReporter = int (*)(const char* format, va_list arguments);

  PlotDocument() = default;

  /// A new element of the class with that name and with a reference count of 0; null for a name
  /// that is none of the 104 element names.
  PlotElement* createElement(Token name) override;

  PlotElement* documentElement() const;

  /// Writes the drawing as a call of the algebra system's plot command, or of the command that
  /// draws a plot again. Nothing is written for a document without a root.
  virtual void printCommands(std::ostream& out, bool replot) const;

  /// Calls visit() of each element, from the root down.
  virtual void visitElements();

  /// Takes the complaints of the elements from now on; null for none.
  void setErrorReporter(ErrorReporter reporter) { errorReporter_ = reporter; }

  /// Passes a complaint on to the reporter, after a call with "PlotDom error: ".
  void reportError(const char* format, va_list arguments) const;

 private:
  ErrorReporter errorReporter_ = nullptr;
};

}  // namespace PlotDom
