#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string_view>

#include "vantry/check/model_facts.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/object.h"
#include "zrd/commands.h"
#include "zrd/indented_xml.h"
#include "zrd/plot_file.h"

namespace vantry::zrd {

namespace {

using namespace plot;

struct Options {
  std::string file;
  std::string out;
  bool isInPlace = false;
  bool isMinimal = false;
};

/// Whether an element without this value would have it all the same, and so would all others. What
/// an object or a style has hides the defaults of the primitives, which may be others.
bool isWithoutEffect(const PlotElement& element, const Property& property) {
  const Token name = property.name();
  const bool isPassedOn =
      property.isInherited() && (element.isStyle() || isElementOf<Obj2d, Obj3d>(element));
  return !isPassedOn && !property.isMandatory() && element.hasAttribute(name) &&
         !element.styleParent(name) && element.getAttribute(name) == property.defaultVariant();
}

void dropDefaults(PlotElement& element) {
  const check::ClassFacts& facts = *check::factsOf(element.tagName());
  for (const Property* property : facts.properties) {
    if (isWithoutEffect(element, *property)) element.removeAttribute(property->name());
  }
}

/// Leaves out each value that an element inherits or has by default anyway.
void minimise(PlotDocument& document) {
  document.documentElement()->dropInheritedProperties();
  dom::walkSubtree<dom::Node>(*document.documentElement(), [](dom::Node& node) {
    if (PlotElement* element = PlotElement::from(&node)) dropDefaults(*element);
    return true;
  });
}

std::string formatted(const Options& options) {
  const PlotFile file(options.file);
  if (options.isMinimal) minimise(file.document());
  try {
    return indentedXml(file.document());
  } catch (const dom::DomException& failure) {
    throw Failure(badDocument, options.file + ": cannot be written back: " + failure.what());
  }
}

/// The new file takes the place of the old one when it is complete.
void replace(const std::string& name, const std::string& text) {
  const std::string aside = name + ".zrd-format";
  std::ofstream out(aside, std::ios::binary);
  out << text;
  out.close();
  std::error_code failure;
  if (out) std::filesystem::rename(aside, name, failure);
  if (out && !failure) return;
  const std::string reason = out ? failure.message() : std::strerror(errno);
  std::filesystem::remove(aside, failure);
  throw Failure(badDocument, name + ": cannot be written: " + reason);
}

}  // namespace

Command addFormatCommand(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "format", "Write a plot document back, sorted and indented, without comments");
  auto options = std::make_shared<Options>();
  command->add_option("FILE", options->file, "The plot document, or - for standard input")
      ->required();
  CLI::Option* out = command->add_option("-o,--output", options->out, "The file to be written");
  command->add_flag("-i,--in-place", options->isInPlace, "Write to the file itself")->excludes(out);
  command->add_flag("--minimal", options->isMinimal,
                    "Drop values that are inherited or default anyway");
  return {command, [options] {
            const std::string text = formatted(*options);
            if (options->isInPlace && options->file == "-") {
              throw Failure(wrongUsage, "standard input cannot be written to");
            }
            const std::string& name = options->isInPlace ? options->file : options->out;
            if (!name.empty()) {
              replace(name, text);
              return success;
            }
            std::cout << text << std::flush;
            return std::cout ? success : badDocument;
          }};
}

}  // namespace vantry::zrd
