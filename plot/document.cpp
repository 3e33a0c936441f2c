#include "vantry/plot/document.h"

#include <cmath>
#include <locale>
#include <ostream>
#include <sstream>
#include <string_view>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/dom/walk_in_change.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/framework/style_getter.h"
#include "vantry/plot/values/cmd_writer.h"
#include "vantry/plot/values/format_limits.h"

namespace vantry::plot {

base::Ref<dom::Element> PlotDocument::newElement(Token name) { return makeElement(name, *this); }

bool PlotDocument::knowsClassOf(const dom::Node& node) const {
  const dom::Element* element = node.asElement();
  return !element || isOfItsClass(*element) ||
         refuse({RefusalKind::classNotOfItsName, nullptr, element->tagName().str()});
}

bool PlotDocument::canHoldText(const char* text) const {
  return isXmlText(text) || refuse({RefusalKind::textOutsideOfXml});
}

// Whether each element that would be written can be.
bool PlotDocument::canBeWritten() const {
  const auto* root = elementCast<Canvas>(firstChild());
  if (!root || !root->isWritten()) return refuse({RefusalKind::noCanvas});
  bool canAll = true;
  dom::walkSubtree<const dom::Node>(*root, [&canAll](const dom::Node& node) {
    const PlotElement* element = PlotElement::from(&node);
    if (!canAll || !element || !element->isWritten()) return false;
    canAll = element->canBeWritten();
    return canAll;
  });
  return canAll;
}

std::ostream& PlotDocument::writeXml(std::ostream& out) const {
  if (!canBeWritten()) throw dom::DomException(dom::DomException::InvalidState);
  std::ostringstream text;  // which is not in the state of `out`, but for this:
  text.imbue(std::locale::classic());
  text.precision(out.precision());
  Document::writeXml(text);
  const std::string_view written = text.view();
  if (!isXml(written)) {
    refuse({RefusalKind::wordOutsideOfXml});
    throw dom::DomException(dom::DomException::InvalidState);
  }
  return out.write(written.data(), std::ssize(written));
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
  dom::walkInChange(*root, [](dom::Node& node) {
    PlotElement* element = PlotElement::from(&node);
    return element && element->visit();
  });
}

void PlotDocument::setCurrentTime(double time) {
  PlotElement* root = documentElement();
  if (root) root->setPropertyValue(Word::CurrentTime, base::DoubleVariant(time));
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

}  // namespace vantry::plot
