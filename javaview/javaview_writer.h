// What all JavaView documents have in common: which scene is written, and how it is at which time.
#pragma once

#include <cmath>
#include <cstddef>
#include <ctime>
#include <iosfwd>
#include <optional>
#include <string>

#include "vantry/javaview/export_error.h"
#include "vantry/javaview/javaview_output.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/time_range.h"

namespace vantry::javaview {

/// What of a document is exported: one scene, and in it the first coordinate system.
struct ExportedScene {
  const plot::SceneBase& scene;
  const plot::CoordinateSystemBase& coordinateSystem;
  bool is2d;
};

/// Writes one scene of a document. The document is read only, and may be null: then `write` throws.
class JavaViewWriter {
 public:
  /// For the first scene of the canvas, with a warning if there are others.
  explicit JavaViewWriter(plot::PlotDocument* document) : document_(document) {}

  /// For the scene with that index among all scenes of the canvas, those of the plane and those of
  /// space, from 0 on. `write` throws JavaViewExportError if there is no such scene.
  JavaViewWriter(plot::PlotDocument* document, std::size_t scene)
      : document_(document), scene_(scene) {}

  JavaViewWriter(const JavaViewWriter&) = delete;
  JavaViewWriter& operator=(const JavaViewWriter&) = delete;
  virtual ~JavaViewWriter() = default;

  /// Writes the whole document as it is at `time`; NaN asks for no certain time. Throws
  /// JavaViewExportError, and base::BadUnicodeString for a text that the locale cannot hold.
  /// However it ends, `stream` has all that was written so far.
  virtual void write(std::ostream& stream, double time);

  /// Called with what does not stop the export; does nothing here.
  virtual void warning(const char* text);

  /// Whether the document has a time range.
  bool isAnimated() const { return timeRangeElement() != nullptr; }

  /// The time range of the document; false if there is none.
  bool timeRange(double& begin, double& end) const;

  /// Sets the time of the output: `t`, or the nearest time in the time range; for NaN its begin.
  /// For a document without time range it is NaN, with a warning of any other `t`.
  void setTime(double t);

  /// Finds what is to be exported; warns if there is more. Throws JavaViewExportError.
  ExportedScene findScene();

  /// Whether the object appears at the time of the output.
  bool isVisibleNow(const plot::ObjectBase& object) const;

  /// The child of class `Frame` that holds at the time of the output: the last one that is not
  /// later, if the frames are in the order of their times. Otherwise the first one; null if there
  /// is none.
  template <class Frame>
  const Frame* findTimed(const dom::Node& parent) const;
  const plot::Img3d* findImg3d(const plot::Obj3d& object) const {
    return findTimed<plot::Img3d>(object);
  }
  const plot::Img2d* findImg2d(const plot::Obj2d& object) const {
    return findTimed<plot::Img2d>(object);
  }

  /// The same as findTimed(), but throws JavaViewExportError with that message if there is none.
  template <class Frame>
  const Frame& requireTimed(const dom::Node& parent, const char* error) const {
    const Frame* frame = findTimed<Frame>(parent);
    if (!frame) throw JavaViewExportError(error);
    return *frame;
  }

  /// The date and time of now, local, in the form "Thu Jan  1 00:00:00 1970".
  static std::string timestamp();

  /// Gives the output this date, in seconds since 1970, shown in UTC, in place of now: what is
  /// written is the same on every machine. The year must have four digits.
  void fixDate(std::time_t date) { fixedDate_ = date; }

 protected:
  /// The date for the header.
  std::string date() const;

 private:
  virtual JavaViewOutput& output() = 0;
  virtual void writeHeader() = 0;
  virtual void writeScene(const ExportedScene& scene) = 0;

  const dom::Node* root() const { return document_ ? document_->firstChild() : nullptr; }
  const plot::TimeRange* timeRangeElement() const;

  const plot::SceneBase* chosenScene();

  plot::PlotDocument* document_;
  std::optional<std::size_t> scene_;
  double time_ = plot::nan;
  std::optional<std::time_t> fixedDate_;
};

template <class Frame>
const Frame* JavaViewWriter::findTimed(const dom::Node& parent) const {
  if (std::isnan(time_)) return plot::firstChildOf<Frame>(parent);
  const Frame* best = nullptr;
  for (const dom::Node* child = parent.firstChild(); child; child = child->nextSibling()) {
    const auto* frame = plot::elementCast<Frame>(child);
    if (!frame) continue;
    const double frameTime = frame->frameTime();
    if (std::isnan(frameTime)) return frame;
    if (frameTime > time_) break;
    best = frame;
  }
  return best ? best : plot::firstChildOf<Frame>(parent);
}

}  // namespace vantry::javaview
