#include "vantry/page/page.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ostream>

#include "vantry/javaview/frame_times.h"
#include "vantry/page/layout.h"
#include "vantry/page/panel.h"
#include "vantry/plot/elements/canvas.h"

namespace vantry::page {

using namespace plot;

/// A plot and its panels.
struct ShownPlot {
  PlotName name;
  const PlotDocument* document;  // null for JVX texts
  std::size_t panels;

  /// Null without one.
  const Canvas* canvas() const {
    return elementCast<Canvas>(document ? document->firstChild() : nullptr);
  }
};

Page::Page() = default;
Page::~Page() = default;

void Page::add(PlotDocument& document, const PlotName& name) {
  auto panels = panelsOf(document, name);
  plots_.push_back({name, &document, panels.size()});
  std::ranges::move(panels, std::back_inserter(panels_));
}

void Page::add(std::istream& model, std::istream* display, const std::string& title) {
  panels_.push_back(panelOf(model, display, title));
  plots_.push_back({{title, title}, nullptr, 1});
}

namespace {

using Plots = std::span<const ShownPlot>;

using Panels = std::span<const std::unique_ptr<Panel>>;

/// From the first begin to the last end.
std::optional<TimeSpan> wholeSpan(Panels panels) {
  std::optional<TimeSpan> whole;
  for (const auto& panel : panels) {
    const auto span = panel->timeSpan();
    if (!span) continue;
    if (!whole) whole = span;
    whole->begin = std::min(whole->begin, span->begin);
    whole->end = std::max(whole->end, span->end);
  }
  return whole;
}

const char* animationStyle(Token style) {
  if (style == Word::Loop) return "loop";
  return style == Word::BackAndForth ? "backAndForth" : "once";
}

void putHeader(Json& text, const Canvas& canvas) {
  putLine(text, canvas, Word::Header, canvas.headerFont(), canvas.headerAlignment());
}

void putFooter(Json& text, const Canvas& canvas) {
  putLine(text, canvas, Word::Footer, canvas.footerFont(), canvas.footerAlignment());
}

/// What a canvas says of the page, for a page that shows nothing else.
Json canvasText(const Canvas& canvas) {
  Json text = {{"aspect", canvas.width() / canvas.height()}};
  if (const std::string name = ownName(canvas); !name.empty()) text["title"] = name;
  putHeader(text, canvas);
  putFooter(text, canvas);
  if (canvas.hasAttribute(Word::BackgroundColor)) {
    text["background"] = colorText(canvas.backgroundColor());
  }
  return text;
}

Json animationText(std::span<const double> times, const PlotDocument* document) {
  Json text = {{"times", times}};
  const auto* canvas = elementCast<Canvas>(document ? document->firstChild() : nullptr);
  if (!canvas) return text;
  text["style"] = animationStyle(canvas->animationStyle());
  text["autoPlay"] = canvas->autoPlay();
  const double initial = document->currentTime();
  if (std::isnan(initial)) return text;
  // The last frame that is not later.
  const auto later = std::ranges::upper_bound(times, initial);
  text["initial"] = std::max<std::ptrdiff_t>(later - times.begin() - 1, 0);
  return text;
}

Json placeText(const Place& place) {
  return {
      {"left", place.left}, {"top", place.top}, {"width", place.width}, {"height", place.height}};
}

std::string joinedTitles(Plots plots) {
  std::string text;
  for (const ShownPlot& plot : plots) text += (text.empty() ? "" : ", ") + plot.name.title;
  return text;
}

/// Nothing in the text ends the element that holds it.
void writeText(std::ostream& out, const Json& text) {
  out << "<script type=\"application/json\" data-name=\"page\">";
  const std::string json = text.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::string_view rest = json;
  for (std::size_t at = rest.find('<'); at != rest.npos; at = rest.find('<')) {
    out << rest.substr(0, at) << "\\u003c";
    rest.remove_prefix(at + 1);
  }
  out << rest << "</script>\n";
}

/// The times of all frames of a page; NaN, where that is asked for, asks for no certain time.
std::vector<double> frameTimes(Panels panels, const PlotDocument* document,
                               const Options& options) {
  if (!std::isnan(options.time)) return {options.time};
  const auto span = wholeSpan(panels);
  if (options.framesPerUnit == 0 || !span || !(span->begin < span->end)) {
    return {document ? document->currentTime() : nan};
  }
  auto times = javaview::frameTimes(span->begin, span->end, options.framesPerUnit, mostFrames);
  if (times.empty()) throw TooManyFrames();
  return times;
}

void putPlaces(Json& text, Panels panels, const Canvas& canvas) {
  std::vector<const SceneBase*> scenes;
  scenes.reserve(panels.size());
  for (const auto& panel : panels) scenes.push_back(panel->scene());
  const std::vector<Place> places = placesOf(canvas, scenes);
  for (std::size_t i = 0; i < places.size(); ++i) {
    text["panels"][i]["place"] = placeText(places[i]);
  }
}

/// Shows what a canvas says at the panels of its plot, beside those of others.
void putCanvasLines(Json& panels, Plots plots) {
  std::size_t first = 0;
  for (const ShownPlot& plot : plots) {
    Json& top = panels[first];
    Json& bottom = panels[first + plot.panels - 1];
    first += plot.panels;
    const Canvas* canvas = plot.canvas();
    if (!canvas) continue;
    naming(plot.name.source, [&] {
      if (!top.contains("header")) putHeader(top, *canvas);
      if (!bottom.contains("footer")) putFooter(bottom, *canvas);
    });
  }
}

/// The plot that has the page for itself; null if there are others.
const ShownPlot* onlyPlot(Plots plots) { return plots.size() == 1 ? &plots.front() : nullptr; }

/// Everything about a page but its frames.
Json pageText(Panels panels, Plots plots) {
  Json text = {{"title", joinedTitles(plots)}};
  const ShownPlot* only = onlyPlot(plots);
  const Canvas* canvas = only ? only->canvas() : nullptr;
  if (canvas) text.update(naming(only->name.source, [&] { return canvasText(*canvas); }));
  for (const auto& panel : panels) text["panels"].push_back(panel->text());
  if (canvas) putPlaces(text, panels, *canvas);
  if (plots.size() > 1) putCanvasLines(text["panels"], plots);
  return text;
}

}  // namespace

void Page::write(std::ostream& out, std::string_view pageTemplate, const Options& options) const {
  constexpr std::string_view mark = "<!--DATA-->";
  const std::size_t place = pageTemplate.find(mark);
  if (place == pageTemplate.npos)
    throw std::invalid_argument("a template without a place for data");
  const ShownPlot* only = onlyPlot(plots_);
  const PlotDocument* document = only ? only->document : nullptr;
  const std::vector<double> times = frameTimes(panels_, document, options);
  Json text = pageText(panels_, plots_);
  if (times.size() > 1) text["animation"] = animationText(times, document);

  out << pageTemplate.substr(0, place);
  Blocks blocks(out);
  for (std::size_t frame = 0; frame < times.size(); ++frame) {
    if (options.progress && times.size() > 1) options.progress(frame, times.size());
    for (std::size_t i = 0; i < panels_.size(); ++i) {
      Json frameText = panels_[i]->writeFrame(blocks, times[frame]);
      text["panels"][i]["frames"].push_back(std::move(frameText));
    }
  }
  writeText(out, text);
  out << pageTemplate.substr(place + mark.size());
}

}  // namespace vantry::page
