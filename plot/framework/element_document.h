// What the elements of the plot model see of their document.
#pragma once

#include <cstdarg>

#include "vantry/dom/document.h"
#include "vantry/plot/framework/element.h"
#include "vantry/plot/framework/refusal.h"

namespace vantry::plot {

class StylePath;

/// A document whose elements are those of a plot.
class ElementDocument : public dom::Document {
 public:
  /// Takes a format and arguments in the manner of vprintf.
  using ErrorReporter = int (*)(const char* format, va_list arguments);

  /// A new element of the class with that name; null for a name that is no class's, or
  /// where newElement() has made what is no element of the model.
  base::Ref<PlotElement> createElement(Token name) {
    const base::Ref<dom::Element> made = newElement(name);
    return PlotElement::from(made.get());
  }

  /// The root element, null without one.
  PlotElement* documentElement() const { return PlotElement::from(firstChild()); }

  /// For searches for styles: what holds at the place that was searched last.
  virtual StylePath& stylePath() = 0;

  /// Takes the complaints of the elements from now on; null for none.
  void setErrorReporter(ErrorReporter reporter) { errorReporter_ = reporter; }

  /// Passes a complaint on to the reporter, after a call with "PlotDom error: ".
  void reportError(const char* format, va_list arguments) const;

  /// Passes all refusals to `listener` from now on; null for none. The reporter gets them as well.
  void setRefusalListener(RefusalListener* listener) { refusalListener_ = listener; }

  /// Passes a refusal to the listener and the reporter. Always false.
  bool refuse(const Refusal& refusal) const;

 protected:
  ~ElementDocument() override = default;

 private:
  [[gnu::format(printf, 2, 3)]] void report(const char* format, ...) const;

  ErrorReporter errorReporter_ = nullptr;
  RefusalListener* refusalListener_ = nullptr;
};

}  // namespace vantry::plot
