#include "vantry/javaview/javaview_writer.h"

#include <array>
#include <ctime>
#include <mutex>

#include "vantry/javaview/export_error.h"

namespace vantry::javaview {

using namespace plot;

void JavaViewWriter::write(std::ostream& stream, double time) {
  JavaViewOutput& out = output();
  out.attach(stream);
  try {
    if (!document_) throw JavaViewExportError("no document");
    setTime(time);
    writeHeader();
    writeScene(findScene());
  } catch (...) {
    out.flush();
    throw;
  }
  out.flush();
}

void JavaViewWriter::warning(const char*) {}

const TimeRange* JavaViewWriter::timeRangeElement() const {
  return root() ? firstChildOf<TimeRange>(*root()) : nullptr;
}

bool JavaViewWriter::timeRange(double& begin, double& end) const {
  const TimeRange* range = timeRangeElement();
  if (!range) return false;
  begin = range->timeBegin();
  end = range->timeEnd();
  return true;
}

void JavaViewWriter::setTime(double t) {
  double begin = nan;
  double end = nan;
  if (!timeRange(begin, end)) {
    if (!std::isnan(t)) warning("not an animation");
    time_ = nan;
  } else if (std::isnan(t) || begin > t) {
    time_ = begin;
  } else {
    time_ = t > end ? end : t;
  }
}

namespace {

constexpr auto firstScene = firstOf<SceneBase, Scene2d, Scene3d>;
constexpr auto firstSystem = firstOf<CoordinateSystemBase, CoordinateSystem2d, CoordinateSystem3d>;

}  // namespace

/// The scene to write; null if the canvas has none with that index.
const SceneBase* JavaViewWriter::chosenScene() {
  const SceneBase* scene = firstScene(root()->firstChild());
  if (!scene_) {
    if (scene && firstScene(scene->nextSibling())) warning("more than one scene");
    return scene;
  }
  for (std::size_t i = 0; scene && i < *scene_; ++i) scene = firstScene(scene->nextSibling());
  return scene;
}

ExportedScene JavaViewWriter::findScene() {
  if (!root()) throw JavaViewExportError("no Canvas");

  const SceneBase* scene = chosenScene();
  if (!scene) throw JavaViewExportError("no scene");

  const bool is2d = isElementOf<Scene2d>(*scene);
  const CoordinateSystemBase* system =
      is2d ? static_cast<const CoordinateSystemBase*>(firstChildOf<CoordinateSystem2d>(*scene))
           : firstChildOf<CoordinateSystem3d>(*scene);
  if (!system) throw JavaViewExportError("no coordinate system");
  if (firstSystem(system->nextSibling())) warning("more than one coordinate system");
  return {*scene, *system, is2d};
}

bool JavaViewWriter::isVisibleNow(const ObjectBase& object) const {
  if (!object.visible()) return false;
  if (std::isnan(time_)) return true;
  const double begin = object.timeBegin();
  if (std::isnan(begin)) return true;
  if (begin > time_) return object.visibleBeforeBegin();
  const double end = object.timeEnd();
  if (std::isnan(end)) return true;
  if (time_ > end) return object.visibleAfterEnd();
  return true;
}

namespace {

std::string inWords(const std::tm& time) {
  std::array<char, 26> buffer;
  std::string text = asctime_r(&time, buffer.data());
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

}  // namespace

// The time zone is that of the process. The C library has a lock for it too, but one that a thread
// sanitizer does not see.
std::string JavaViewWriter::timestamp() {
  static std::mutex timeZone;
  const std::lock_guard lock(timeZone);
  const std::time_t now = std::time(nullptr);
  tzset();
  std::tm local{};
  return inWords(*localtime_r(&now, &local));
}

std::string JavaViewWriter::date() const {
  if (!fixedDate_) return timestamp();
  std::tm utc{};
  return inWords(*gmtime_r(&*fixedDate_, &utc));
}

}  // namespace vantry::javaview
