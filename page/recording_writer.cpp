#include "vantry/page/recording_writer.h"

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
};

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
  if (run != lastRun_) {
    runs_.push_back(run);
    runs_.back()["count"] = std::int64_t{0};
    lastRun_ = std::move(run);
  }
  auto& total = runs_.back()["count"].get_ref<std::int64_t&>();
  total += count;
}

}  // namespace vantry::page
