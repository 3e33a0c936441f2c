#include <map>
#include <memory>
#include <ostream>
#include <sstream>
#include <string_view>
#include <unordered_set>

#include "vantry/check/check.h"
#include "vantry/check/model_facts.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/object.h"
#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/file_content.h"
#include "zrd/indented_xml.h"
#include "zrd/plot_file.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

namespace {

using namespace plot;
using check::Diagnostic;

struct Options {
  std::string file;
  std::string out = "-";
  bool isInPlace = false;
  bool isMinimal = false;
};

/// Leaves out each value that its element would have anyway, and all others too.
class Minimiser {
 public:
  void minimise(PlotDocument& document) {
    dom::walkSubtree<dom::Node>(*document.documentElement(), [this](dom::Node& node) {
      PlotElement* element = PlotElement::from(&node);
      if (element) drop(*element);
      return element != nullptr;
    });
  }

 private:
  void drop(PlotElement& element) {
    passed_.insert(&element);
    for (const Property* property : check::factsOf(element.tagName())->properties) {
      if (isWithoutEffect(element, *property)) element.removeAttribute(property->name());
    }
  }

  /// Styles are asked by elements that are not known here. What an object has hides the defaults of
  /// its primitives, which may be others. And a style that comes later is none for a reader.
  bool isWithoutEffect(const PlotElement& element, const Property& property) const {
    const Token name = property.name();
    if (property.isMandatory() || element.isStyle() || !element.hasAttribute(name)) return false;
    const Variant value = element.getAttribute(name);
    if (const PlotElement* style = element.styleParent(name)) {
      return passed_.contains(style) && style->getPropertyValue(name) == value;
    }
    const bool isPassedOn = property.isInherited() && isElementOf<Obj2d, Obj3d>(element);
    return !isPassedOn && value == property.defaultVariant();
  }

  std::unordered_set<const PlotElement*> passed_;
};

[[noreturn]] void refuse(const std::string& place, const std::string& reason) {
  throw BadDocument(place + ": cannot be written back: " + reason);
}

/// Refuses a text of which a part is missing in what is to be written for it. That part was found
/// to be wrong, and what is written has nothing wrong in its place.
void refuseLoss(const std::string& name, const std::string& text, const std::string& written) {
  std::map<std::string_view, int> kept;
  for (const Diagnostic& found : check::check(written)) ++kept[found.code];
  for (const Diagnostic& found : check::check(text)) {
    if (--kept[found.code] >= 0) continue;
    refuse(name + ':' + std::to_string(found.place.line) + ':' + std::to_string(found.place.column),
           found.sentence);
  }
}

std::string formatted(const Options& options) {
  const std::string text = contentOf(options.file);
  std::istringstream in(text);
  const PlotFile file(in, options.file, {});  // what is left out is refused below
  try {
    std::string written = indentedXml(file.document());
    refuseLoss(options.file, text, written);
    if (!options.isMinimal) return written;
    Minimiser().minimise(file.document());
    return indentedXml(file.document());
  } catch (const dom::DomException& failure) {
    refuse(options.file, failure.what());
  }
}

}  // namespace

Command addFormatCommand(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "format", "Write a plot document back, sorted and indented, without comments");
  auto options = std::make_shared<Options>();
  addDocument(*command, options->file);
  addOutput(*command, options->out, "Write to this file in place of standard output");
  command->add_flag("-i,--in-place", options->isInPlace, "Write to the file itself");
  command->add_flag("--minimal", options->isMinimal,
                    "Drop values that are inherited or default anyway");
  return {command, [options] {
            if (options->isInPlace && options->out != "-") {
              throw CLI::ValidationError("-i and -o cannot be given together");
            }
            if (options->isInPlace && options->file == "-") {
              throw CLI::ValidationError("-i", "standard input cannot be written to");
            }
            const std::string text = formatted(*options);
            writeWhole(options->isInPlace ? options->file : options->out,
                       [&text](std::ostream& out) { out << text; });
            return success;
          }};
}

}  // namespace vantry::zrd
