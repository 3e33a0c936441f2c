#include "SRC/plot_document.h"

#include <cmath>
#include <ostream>

#include "SRC/cmd_writer.h"
#include "SRC/element_factory.h"
#include "SRC/property_tree.h"
#include "SRC/style_getter.h"
#include "dom/tree_walk.h"

namespace PlotDom {

Ubase::Ref<Arbor::Element> PlotDocument::newElement(Token name) { return makeElement(name, *this); }

PlotElement* PlotDocument::documentElement() const { return PlotElement::from(firstChild()); }

bool PlotDocument::knowsClassOf(const Arbor::Node& node) const {
  const Arbor::Element* element = node.asElement();
  if (!element || isOfItsClass(*element)) return true;
  report("not of the class of its name '%s'\n", element->tagName().str());
  return false;
}

const ObjType* PlotDocument::propertyInfo(Token name) const { return findPropertyInfo(name); }

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

void PlotDocument::setCurrentTime(double time) {
  PlotElement* root = documentElement();
  if (root) root->setPropertyValue(Word::CurrentTime, Ubase::DoubleVariant(time));
}

double PlotDocument::currentTime() const {
  const PlotElement* root = documentElement();
  if (!root) return nan;
  const auto time = propertyValue<double>(*root, Word::CurrentTime);
  return std::isnan(time) ? propertyValue<double>(*root, Word::InitialTime) : time;
}

double PlotDocument::nextTime(double time, bool forward) const {
  double result = nan;
  if (PlotElement* root = documentElement()) root->timeStep(time, forward, result);
  return result;
}

void PlotDocument::report(const char* format, ...) const {
  va_list arguments;
  va_start(arguments, format);
  reportError(format, arguments);
  va_end(arguments);
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
