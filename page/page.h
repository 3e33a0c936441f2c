// A page that shows plots in any browser.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "vantry/plot/document.h"

namespace vantry::page {

/// How people know a plot, in UTF-8.
struct PlotName {
  std::string title;   ///< on the page
  std::string source;  ///< in messages: the file
};

/// A plot cannot be shown. The message is for people, and begins with the source of the plot.
class PageError : public std::runtime_error {
 public:
  PageError(const std::string& source, const std::string& reason)
      : runtime_error(source + ": " + reason), source_(source) {}

  const std::string& source() const { return source_; }

 private:
  std::string source_;
};

/// A text of a plot has letters that are not in the character set of the locale.
class TextError : public PageError {
 public:
  explicit TextError(const std::string& source)
      : PageError(source, "a text has letters that are not in the character set of the locale") {}
};

/// So many frames an animation can have at most.
inline constexpr std::size_t mostFrames = 100'000;

/// The animation of a page would have more frames than that.
class TooManyFrames : public std::runtime_error {
 public:
  TooManyFrames() : runtime_error("the animation is too long for so many frames") {}
};

/// What of animated plots a page shows.
struct Options {
  /// The only time; NaN for an animation over the time ranges of all plots, or without one for the
  /// time with which the plot begins.
  double time = std::numeric_limits<double>::quiet_NaN();

  /// How many frames an animation has in a unit of time; 0 for no animation.
  int framesPerUnit = 25;

  /// Called before each frame is written, if there are several.
  std::function<void(std::size_t frame, std::size_t frames)> progress = nullptr;
};

class Panel;
struct ShownPlot;

/// Gathers plots, and writes the one page that shows them all. A plot has a panel for each of its
/// scenes. The page of a single plot has the layout of its canvas. Beside others, the first panel
/// of a plot has the header of its canvas and the last one the footer, unless their scenes have
/// their own.
class Page {
 public:
  Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  ~Page();

  /// Adds a plot, which must outlive the page. Throws PageError if it has no scene to show.
  void add(plot::PlotDocument& document, const PlotName& name);

  /// Adds a JVX text, with a JVD text unless that is null. They are read when the page is written,
  /// and become part of it as they are; one that cannot be read to its end has write() throw
  /// std::runtime_error.
  void add(std::istream& model, std::istream* display, const std::string& title);

  /// Writes the page. `pageTemplate` is what the build makes of the folder `page`: the page without
  /// data, which is installed as share/vantry/template.html. Throws PageError or TooManyFrames, and
  /// leaves an incomplete page behind then. Throws std::invalid_argument for a template that has no
  /// place for data.
  void write(std::ostream& out, std::string_view pageTemplate, const Options& options) const;

 private:
  std::vector<std::unique_ptr<Panel>> panels_;
  std::vector<ShownPlot> plots_;
};

}  // namespace vantry::page
