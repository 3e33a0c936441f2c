#include "vantry/page/recording_writer.h"

#include <cmath>
#include <utility>

namespace vantry::page {

using namespace plot;

namespace {

/// A style that has no place in a model: its property, and what a page takes for granted.
struct Style {
  const char* name;
  Token property;
  Token standard;
};

constexpr Style styles[] = {
    {"line", Word::LineStyle, Word::Solid},
    {"line", Word::VerticalAsymptotesStyle, Word::Solid},
    {"point", Word::PointStyle, Word::FilledCircles},
    {"fill", Word::FillPattern, Word::Solid},
    {"rule", Word::FillStyle, Word::Winding},
};

/// What the document says of the tips of arrows.
Json tipText(const PlotElement& primitive) {
  Json text = Json::object();
  if (!primitive.hasProperty(Word::TipStyle)) return text;
  const auto style = propertyValue<Token>(primitive, Word::TipStyle);
  const auto length = propertyValue<double>(primitive, Word::TipLength);
  const auto angle = propertyValue<double>(primitive, Word::TipAngle);
  if (style != Word::Filled) text["style"] = wordText(style);
  if (length > 0 && isSaid(primitive, Word::TipLength)) text["length"] = pixels(length);
  if (angle != 0 && isSaid(primitive, Word::TipAngle)) text["angle"] = std::abs(angle) / 2;
  return text;
}

}  // namespace

void RecordingWriter::setObjects(std::span<const ObjectBase* const> objects) {
  for (const ObjectBase* object : objects) numbers_.emplace(object, numbers_.size());
}

void RecordingWriter::write(std::ostream& stream, double time) {
  runs_ = Json::array();
  lastRun_ = nullptr;
  JVXWriter::write(stream, time);
}

void RecordingWriter::geometriesWritten(const ObjectBase& object, const PlotElement& primitive,
                                        std::int64_t count) {
  Json run = {{"object", numbers_.at(&object)}};
  for (const Style& style : styles) {
    if (!primitive.hasProperty(style.property)) continue;
    const auto value = propertyValue<Token>(primitive, style.property);
    if (value != style.standard) run[style.name] = wordText(value);
  }
  if (Json tip = tipText(primitive); !tip.empty()) run["tip"] = std::move(tip);
  if (run != lastRun_) {
    runs_.push_back(run);
    runs_.back()["count"] = std::int64_t{0};
    lastRun_ = std::move(run);
  }
  auto& total = runs_.back()["count"].get_ref<std::int64_t&>();
  total += count;
}

}  // namespace vantry::page
