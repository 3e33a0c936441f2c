#include "zrd/view/plot_page.h"

#include <fstream>
#include <memory>
#include <variant>

#include "vantry/check/check.h"
#include "zrd/commands.h"
#include "zrd/file_content.h"
#include "zrd/messages.h"
#include "zrd/plot_file.h"
#include "zrd/progress.h"
#include "zrd/view/model_file.h"
#include "zrd/view/page_template.h"
#include "zrd/whole_output.h"

namespace vantry::zrd {

namespace {

using Plot = std::variant<std::unique_ptr<PlotFile>, std::unique_ptr<ModelFile>>;

Plot readPlot(const std::string& name, const Warn& warn) {
  if (isModelName(name)) return std::make_unique<ModelFile>(name);
  return std::make_unique<PlotFile>(name, warn);
}

void addPlot(page::Page& page, const Plot& plot, const std::string& name) {
  const std::string title = name == "-" ? "plot" : std::filesystem::path(name).filename().string();
  if (const auto* model = std::get_if<std::unique_ptr<ModelFile>>(&plot)) {
    page.add((*model)->model(), (*model)->display(), title);
  } else {
    page.add(std::get<std::unique_ptr<PlotFile>>(plot)->document(), {title, name});
  }
}

/// The first mistake of a document, with its place; the failure itself where that cannot be found.
std::string mistakeBehind(const page::PageError& failure) {
  const std::string& name = failure.source();
  std::error_code none;
  if (name == "-" || !std::filesystem::is_regular_file(name, none)) return failure.what();
  std::ifstream file = openFile(name);
  for (const check::Diagnostic& found : check::check(file)) {
    if (found.severity != check::Severity::error) continue;
    return name + ':' + std::to_string(found.place.line) + ':' +
           std::to_string(found.place.column) + ": " + found.sentence;
  }
  return failure.what();
}

}  // namespace

void refuseInput(const std::filesystem::path& output, const std::vector<std::string>& plots) {
  const auto refuse = [&output](const std::filesystem::path& input, const std::string& what) {
    std::error_code none;
    if (!std::filesystem::equivalent(output, input, none)) return;
    throw Failure(wrongUsage, output.string() + ": is " + what + ", which it would replace");
  };
  for (const std::string& plot : plots) {
    refuse(plot, "the plot itself");
    if (isModelName(plot)) refuse(displayName(plot), "the display of " + plot);
  }
}

void writePlotPage(std::ostream& out, const std::vector<std::string>& plots,
                   const page::Options& options) try {
  const std::string_view pageTemplate = zrd::pageTemplate();
  Progress progress;
  const auto warn = [&progress](const std::string& sentence) {
    progress.hide();
    say(sentence);
  };
  page::Page page;
  std::vector<Plot> read;
  for (const std::string& name : plots) {
    progress.show([&name] { return "reading " + name; });
    addPlot(page, read.emplace_back(readPlot(name, warn)), name);
  }
  page::Options shown = options;
  shown.progress = [&progress](std::size_t frame, std::size_t frames) {
    progress.show([=] {
      return "writing frame " + std::to_string(frame + 1) + " of " + std::to_string(frames);
    });
  };
  page.write(out, pageTemplate, shown);
} catch (const page::TextError& failure) {
  throw Failure(badDocument, std::string(failure.what()) +
                                 ": run zrd in a locale with UTF-8, such as LC_ALL=C.UTF-8");
} catch (const page::PageError& failure) {
  throw BadDocument(mistakeBehind(failure));
} catch (const page::TooManyFrames&) {
  throw Failure(badDocument, "--frames " + std::to_string(options.framesPerUnit) +
                                 " makes more than " + std::to_string(page::mostFrames) +
                                 " frames: choose fewer, or show one time with --time");
}

void writePlotPage(const std::filesystem::path& name, const std::vector<std::string>& plots,
                   const page::Options& options) {
  refuseInput(name, plots);
  writeWhole(name, [&](std::ostream& out) { writePlotPage(out, plots, options); });
}

}  // namespace vantry::zrd
