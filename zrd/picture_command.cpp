#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/option_values.h"
#include "zrd/output_file.h"
#include "zrd/progress.h"
#include "zrd/view/chrome.h"
#include "zrd/view/interruption.h"
#include "zrd/view/plot_page.h"
#include "zrd/view/temporary_folder.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

namespace {

constexpr std::int64_t longestSide = 16'384;  // in pixels

struct PictureSettings {
  std::string plot;
  std::string output;
  std::int64_t width = 1200;
  std::int64_t height = 900;
  double scale = 1;
  bool isTransparent = false;
  page::Options page = {.framesPerUnit = 0};
};

void waitUntilReady(Chrome& chrome) {
  using namespace std::chrono;
  const auto end = steady_clock::now() + minutes(10);
  while (chrome.evaluate("document.documentElement.dataset.state") != "ready") {
    if (steady_clock::now() > end) chrome.fail("it takes too long");
    std::this_thread::sleep_for(milliseconds(20));
  }
  if (chrome.evaluate("document.querySelector('canvas') !== null") == true) return;
  const auto said =
      chrome.evaluate("document.querySelector('#page > .message:not(:empty)')?.textContent");
  chrome.fail(said.is_string() ? said.get<std::string>() : "it has no WebGL 2");
}

/// The page as the bytes of a PNG.
std::string photograph(const std::string& page, const std::string& folder,
                       const PictureSettings& settings) {
  Chrome chrome(folder);
  chrome.call("Emulation.setDeviceMetricsOverride", {{"width", settings.width},
                                                     {"height", settings.height},
                                                     {"deviceScaleFactor", settings.scale},
                                                     {"mobile", false}});
  if (settings.isTransparent) {
    chrome.call("Emulation.setDefaultBackgroundColorOverride",
                {{"color", {{"r", 0}, {"g", 0}, {"b", 0}, {"a", 0}}}});
  }
  chrome.open(page, settings.isTransparent ? "picture&transparent" : "picture");
  waitUntilReady(chrome);
  return chrome.photograph();
}

/// The page that shows the plot. Nothing has to be put away if a signal ends the process meanwhile.
std::string makePage(const PictureSettings& settings) {
  std::ostringstream page;
  writePlotPage(page, {settings.plot}, settings.page);
  return std::move(page).str();
}

/// The picture as the bytes of a PNG. A signal that comes while the browser and the folder are put
/// away is only noted.
std::string draw(const std::string& page, const PictureSettings& settings) {
  const Interruption interruption;
  const TemporaryFolder folder;
  const std::string name = folder.path() + "/plot.html";
  OutputFile file(name);
  file.stream() << page;
  file.close();
  file.appear();
  Progress progress;
  progress.show([&settings] { return "drawing " + settings.plot; });
  return photograph(name, folder.path(), settings);
}

void refuseOddSize(const PictureSettings& settings) {
  const auto [shorter, longer] = std::minmax(settings.width, settings.height);
  if (static_cast<double>(longer) * settings.scale > static_cast<double>(longestSide)) {
    throw CLI::ValidationError("--scale",
                               "the picture would be too large; its sides can have at most " +
                                   std::to_string(longestSide) + " pixels");
  }
  if (static_cast<double>(shorter) * settings.scale < 1) {
    throw CLI::ValidationError("--scale",
                               "the picture would be too small; its sides need at least 1 pixel");
  }
}

int drawPicture(const PictureSettings& settings) try {
  refuseOddSize(settings);
  refuseInput(settings.output, {settings.plot});
  requireWritable(settings.output);
  const std::string picture = draw(makePage(settings), settings);
  Interruption::check();  // a signal may have come while all was put away
  writeWhole(settings.output, [&picture](std::ostream& out) { out << picture; });
  return success;
} catch (const Interrupted& interrupted) {  // and everything is put away
  raise(interrupted.signal);
  return noBrowser;
}

/// Takes "1200x900".
bool takeSize(const std::string& text, PictureSettings& settings) {
  const std::size_t cross = text.find('x');
  return cross != text.npos &&
         takeWholeNumber(text.substr(0, cross), 1, longestSide, settings.width) &&
         takeWholeNumber(text.substr(cross + 1), 1, longestSide, settings.height);
}

}  // namespace

Command addPictureCommand(CLI::App& program) {
  CLI::App* options = program.add_subcommand("picture", "Draw a plot as a PNG, by Chromium");
  auto settings = std::make_shared<PictureSettings>();
  addShownPlot(*options, settings->plot);
  addOutput(*options, settings->output, "The picture, or - for standard output")->required();
  addValue(
      *options, "--size",
      "a size such as 1200x900, with sides from 1 to " + std::to_string(longestSide),
      [settings](const std::string& text) { return takeSize(text, *settings); },
      "Width and height, in pixels of a page")
      ->type_name("WIDTHxHEIGHT")
      ->default_str("1200x900");
  addNumber(*options, "--scale", settings->scale, 0.1, 10,
            "Pixels of the picture per pixel of a page")
      ->type_name("FACTOR")
      ->default_str("1");
  addTime(*options, settings->page.time);
  options->add_flag("--transparent", settings->isTransparent, "Leave the ground transparent");
  return {options, [settings] { return drawPicture(*settings); }};
}

}  // namespace vantry::zrd
