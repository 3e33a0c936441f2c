#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "zrd/commands.h"
#include "zrd/view/browser.h"
#include "zrd/view/plot_page.h"
#include "zrd/view/process.h"

namespace vantry::zrd {

namespace {

struct ViewSettings {
  std::vector<std::string> plots;
  std::string output;
  page::Options page;
};

int view(const ViewSettings& settings) {
  if (!settings.output.empty()) {
    writePlotPage(settings.output, settings.plots, settings.page);
    return success;
  }
  const std::string page = makeTemporaryFolder() + "/plot.html";
  writePlotPage(page, settings.plots, settings.page);
  openInBrowser(page);
  return success;
}

}  // namespace

Command addViewCommand(CLI::App& program) {
  CLI::App* options = program.add_subcommand("view", "Show plots on a page, in a browser");
  auto settings = std::make_shared<ViewSettings>();
  options
      ->add_option("PLOT", settings->plots,
                   "A plot document, a JVX file with a JVD file beside it, or - for standard input")
      ->required();
  options->add_option("-o,--output", settings->output,
                      "Write the page into this file, or with - to standard output, and open no "
                      "browser");
  options->add_option("--time", settings->page.time, "Show an animation at this time only");
  options
      ->add_option("--frames", settings->page.framesPerUnit,
                   "The frames of an animation per unit of time")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  return {options, [settings] { return view(*settings); }};
}

}  // namespace vantry::zrd
