#include "vantry/page/panel.h"

#include <algorithm>
#include <array>
#include <istream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ostream>
#include <stdexcept>
#include <vector>

#include "vantry/javaview/jvd_writer.h"
#include "vantry/page/changes.h"
#include "vantry/page/packed_text.h"
#include "vantry/page/recording_writer.h"
#include "vantry/page/scene_text.h"
#include "vantry/plot/elements/group.h"

namespace vantry::page {

using namespace plot;

std::string Blocks::add(const std::function<void(std::ostream& text)>& write) {
  std::string name = "text-" + std::to_string(++count_);
  out_ << "<script type=\"application/octet-stream\" data-name=\"" << name << "\">";
  writePacked(out_, write);
  out_ << "</script>\n";
  return name;
}

namespace {

bool isOfModel(const dom::Node& node) {
  const auto* object = elementCast<ObjectBase, Obj2d, Obj3d>(&node);
  return !object || hasGeometry(*object);
}

bool isOfDisplay(const dom::Node& node) { return !isMovable3d(node); }

/// A text that is written again when something in it has changed.
class ChangingText {
 public:
  ChangingText(const CoordinateSystemBase& system, bool (*isMeant)(const dom::Node&))
      : changes_(system, isMeant) {}

  /// The name of the block with the text of that time.
  const std::string& block(Blocks& blocks, javaview::JavaViewWriter& writer, double time) {
    const Changes::State state = changes_.at(time);
    if (state == state_) return block_;
    block_ = blocks.add([&](std::ostream& text) { writer.write(text, time); });
    state_ = state;
    return block_;
  }

 private:
  Changes changes_;
  std::optional<Changes::State> state_;
  std::string block_;
};

/// A scene of a plot. Its model and its display change by themselves: a camera that moves leaves
/// the model as it is.
class ScenePanel final : public Panel {
 public:
  ScenePanel(PlotDocument& document, std::size_t scene, PlotName name)
      : name_(std::move(name)),
        modelWriter_(&document, scene),
        displayWriter_(&document, scene),
        exported_(modelWriter_.findScene()),
        objects_(objectsOf(exported_.coordinateSystem)),
        model_(exported_.coordinateSystem, isOfModel),
        display_(exported_.coordinateSystem, isOfDisplay) {
    modelWriter_.setObjects(objects_);
  }

  std::optional<TimeSpan> timeSpan() const override {
    TimeSpan span{};
    if (!modelWriter_.timeRange(span.begin, span.end)) return std::nullopt;
    return span;
  }

  const SceneBase* scene() const override { return &exported_.scene; }

  Json text() const override {
    return naming(name_.source, [this] { return sceneText(exported_, objects_, name_.title); });
  }

  Json writeFrame(Blocks& blocks, double time) override {
    return naming(name_.source, [&]() -> Json {
      const double own = ownTime(time);
      Json frame = {{"model", model_.block(blocks, modelWriter_, own)},
                    {"display", display_.block(blocks, displayWriter_, own)}};
      if (runs_ != modelWriter_.runs()) {
        runs_ = modelWriter_.runs();
        frame["runs"] = runs_;
      }
      return frame;
    });
  }

 private:
  /// The time within the span of this plot, whose begin stands for NaN.
  double ownTime(double time) const {
    const std::optional<TimeSpan> span = timeSpan();
    if (!span) return nan;
    return time > span->begin ? std::min(time, span->end) : span->begin;
  }

  PlotName name_;
  RecordingWriter modelWriter_;
  javaview::JVDWriter displayWriter_;
  javaview::ExportedScene exported_;
  std::vector<const ObjectBase*> objects_;
  ChangingText model_;
  ChangingText display_;
  Json runs_;  // of the last frame
};

/// Texts that are there already.
class TextPanel final : public Panel {
 public:
  TextPanel(std::istream& model, std::istream* display, std::string title)
      : model_(model), display_(display), title_(std::move(title)) {}

  Json text() const override { return {{"name", title_}}; }

  Json writeFrame(Blocks& blocks, double) override {
    if (!frame_.empty()) return frame_;
    frame_["model"] = add(blocks, model_);
    if (display_) frame_["display"] = add(blocks, *display_);
    return frame_;
  }

 private:
  std::string add(Blocks& blocks, std::istream& source) const {
    return blocks.add([&](std::ostream& text) {
      std::array<char, std::size_t{16} * 1024> piece;
      while (source.read(piece.data(), std::ssize(piece)) || source.gcount() > 0) {
        text.write(piece.data(), source.gcount());
      }
      if (source.bad()) throw std::runtime_error(title_ + ": cannot be read");
    });
  }

  std::istream& model_;
  std::istream* display_;
  std::string title_;
  Json frame_;
};

}  // namespace

namespace {

bool canBeDrawn(const SceneBase& scene) {
  return scene.firstChildByName(isElementOf<Scene2d>(scene) ? Word::CoordinateSystem2d
                                                            : Word::CoordinateSystem3d);
}

/// The numbers of the scenes that can be drawn, among all scenes of the canvas.
std::vector<std::size_t> drawableScenes(const dom::Node* canvas) {
  std::vector<std::size_t> drawable;
  std::size_t number = 0;
  for (const dom::Node* child = canvas ? canvas->firstChild() : nullptr; child;
       child = child->nextSibling()) {
    const auto* scene = elementCast<SceneBase, Scene2d, Scene3d>(child);
    if (!scene) continue;
    if (canBeDrawn(*scene)) drawable.push_back(number);
    ++number;
  }
  return drawable;
}

}  // namespace

std::vector<std::unique_ptr<Panel>> panelsOf(PlotDocument& document, const PlotName& name) {
  const std::vector<std::size_t> scenes = drawableScenes(document.firstChild());
  if (scenes.empty()) throw PageError(name.source, "there is no scene to show");
  std::vector<std::unique_ptr<Panel>> panels;
  panels.reserve(scenes.size());
  for (const std::size_t scene : scenes) {
    const std::string number = scenes.size() > 1 ? ' ' + std::to_string(panels.size() + 1) : "";
    const PlotName own = {name.title + number, name.source};
    panels.push_back(std::make_unique<ScenePanel>(document, scene, own));
  }
  return panels;
}

std::unique_ptr<Panel> panelOf(std::istream& model, std::istream* display, std::string title) {
  return std::make_unique<TextPanel>(model, display, std::move(title));
}

}  // namespace vantry::page
