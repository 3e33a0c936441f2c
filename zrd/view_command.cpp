#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/view/browser.h"
#include "zrd/view/plot_page.h"
#include "zrd/view/temporary_folder.h"

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
  TemporaryFolder folder;
  const std::string page = folder.path() + "/plot.html";
  writePlotPage(page, settings.plots, settings.page);
  folder.keep();  // the browser may read it later
  openInBrowser(page);
  return success;
}

}  // namespace

Command addViewCommand(CLI::App& program) {
  CLI::App* options = program.add_subcommand("view", "Show plots on a page, in a browser");
  auto settings = std::make_shared<ViewSettings>();
  addShownPlots(*options, settings->plots);
  addOutput(*options, settings->output,
            "Write the page into this file, or with - to standard output, and open no browser");
  addTime(*options, settings->page.time);
  addFrames(*options, settings->page.framesPerUnit, "The frames of animations in a unit of time")
      ->default_str(std::to_string(settings->page.framesPerUnit));
  return {options, [options, settings] {
            refuseTimeBesideFrames(*options);
            if (std::ranges::count(settings->plots, "-") > 1) {
              throw CLI::ValidationError("PLOT", "standard input can be read only once");
            }
            return view(*settings);
          }};
}

}  // namespace vantry::zrd
