#include "vantry/page/page.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <ostream>

#include "vantry/javaview/frame_times.h"
#include "vantry/page/layout.h"
#include "vantry/page/panel.h"
#include "vantry/plot/elements/canvas.h"

namespace vantry::page {

using namespace plot;

Page::Page() = default;
Page::~Page() = default;

void Page::add(PlotDocument& document, const PlotName& name) {
  for (auto& panel : panelsOf(document, name)) panels_.push_back(std::move(panel));
  names_.push_back(name);
  document_ = names_.size() == 1 ? &document : nullptr;
}

void Page::add(std::istream& model, std::istream* display, const std::string& title) {
  panels_.push_back(panelOf(model, display, title));
  names_.push_back({title, title});
  document_ = nullptr;
}

namespace {

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

/// What a canvas says of the page, for a page that shows nothing else.
Json canvasText(const Canvas& canvas) {
  Json text = {{"aspect", canvas.width() / canvas.height()}};
  if (const std::string name = ownName(canvas); !name.empty()) text["title"] = name;
  putLine(text, canvas, Word::Header, canvas.headerFont(), canvas.headerAlignment());
  putLine(text, canvas, Word::Footer, canvas.footerFont(), canvas.footerAlignment());
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

std::string joinedTitles(std::span<const PlotName> names) {
  std::string text;
  for (const PlotName& name : names) text += (text.empty() ? "" : ", ") + name.title;
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

/// Everything about a page but its frames. `document` is the only plot, or null.
Json pageText(Panels panels, std::span<const PlotName> names, const PlotDocument* document) {
  Json text = {{"title", joinedTitles(names)}};
  const auto* canvas = elementCast<Canvas>(document ? document->firstChild() : nullptr);
  if (canvas) text.update(naming(names.front().source, [&] { return canvasText(*canvas); }));
  for (const auto& panel : panels) text["panels"].push_back(panel->text());
  if (canvas) putPlaces(text, panels, *canvas);
  return text;
}

}  // namespace

void Page::write(std::ostream& out, std::string_view pageTemplate, const Options& options) const {
  constexpr std::string_view mark = "<!--DATA-->";
  const std::size_t place = pageTemplate.find(mark);
  if (place == pageTemplate.npos)
    throw std::invalid_argument("a template without a place for data");
  const std::vector<double> times = frameTimes(panels_, document_, options);
  Json text = pageText(panels_, names_, document_);
  if (times.size() > 1) text["animation"] = animationText(times, document_);

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
