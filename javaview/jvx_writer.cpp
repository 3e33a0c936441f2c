#include "vantry/javaview/jvx_writer.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/emitters.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/frame_times.h"
#include "vantry/javaview/header.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/transform.h"

namespace vantry::javaview {

using namespace plot;

namespace {

Matrix matrixOf(const Tr3d& tr) {
  const P3& row1 = tr.row1();
  const P3& row2 = tr.row2();
  const P3& row3 = tr.row3();
  const P3& shift = tr.shift();
  return {row1.x, row1.y, row1.z, shift.x,  //
          row2.x, row2.y, row2.z, shift.y,  //
          row3.x, row3.y, row3.z, shift.z,  //
          0,      0,      0,      1};
}

Matrix matrixOf(const Tr2d& tr) {
  const P2& row1 = tr.row1();
  const P2& row2 = tr.row2();
  const P2& shift = tr.shift();
  // The third row is zero on purpose: a flat map has no height.
  return {row1.x, row1.y, 0, shift.x,  //
          row2.x, row2.y, 0, shift.y,  //
          0,      0,      0, 0,        //
          0,      0,      0, 1};
}

template <class Min, class Max>
ValueRange rangeOf(const CoordinateSystemBase& coordinateSystem) {
  const auto* min = firstChildOf<Min>(coordinateSystem);
  const auto* max = firstChildOf<Max>(coordinateSystem);
  const bool isKnown = min && max && max->value() > min->value();
  return isKnown ? ValueRange{min->value(), max->value()} : ValueRange{};
}

/// The viewing box on the height axis; both bounds 0 if it is unknown, empty or upside down.
ValueRange heightRange(const ExportedScene& scene) {
  return scene.is2d ? rangeOf<ViewingBoxYMin, ViewingBoxYMax>(scene.coordinateSystem)
                    : rangeOf<ViewingBoxZMin, ViewingBoxZMax>(scene.coordinateSystem);
}

}  // namespace

void JVXWriter::writeHeader() { writeJvxHeader(out_, date()); }

void JVXWriter::writeScene(const ExportedScene& scene) {
  out_.heightRange = heightRange(scene);
  out_.transformStack.clear();
  out_ << "<geometries>\n";
  writeContainer(scene.coordinateSystem);
  out_ << "</geometries>\n</jvx-model>\n";
}

void JVXWriter::writeContainer(const dom::Node& container) {
  dom::walkSubtree(
      container, [&](const dom::Node& node) { return &node == &container || enter(node); },
      [this](const dom::Node& node) { leave(node); });
}

/// Writes the node if it is an object. Returns whether to go on with its children.
bool JVXWriter::enter(const dom::Node& node) {
  if (const auto* object = elementCast<Obj3d>(&node)) {
    writeObj3d(*object);
    return false;
  }
  if (const auto* object = elementCast<Obj2d>(&node)) {
    writeObj2d(*object);
    return false;
  }
  if (const auto* group = elementCast<GroupBase, Group3d, Group2d>(&node)) {
    return group->visible();
  }
  if (isElementOf<Transform3d>(node)) {
    out_.pushTransform(matrixOf(requireTimed<Tr3d>(node, "no Tr3d")));
    return true;
  }
  if (isElementOf<Transform2d>(node)) {
    out_.pushTransform(matrixOf(requireTimed<Tr2d>(node, "no Tr2d")));
    return true;
  }
  return false;
}

void JVXWriter::leave(const dom::Node& node) {
  if (isElementOf<Transform3d, Transform2d>(node)) out_.popTransform();
}

void JVXWriter::writeObj3d(const Obj3d& object) {
  if (!isVisibleNow(object)) return;
  writePrimitives(object, requireTimed<Img3d>(object, "no Img3d"));
}

void JVXWriter::writeObj2d(const Obj2d& object) {
  if (!isVisibleNow(object)) return;
  writePrimitives(object, requireTimed<Img2d>(object, "no Img2d"));
}

void JVXWriter::writePrimitives(const ObjectBase& object, const ImgBase& image) {
  for (const dom::Node* child = image.firstChild(); child; child = child->nextSibling()) {
    const Emitter emit = emitterFor(*child);
    if (!emit) continue;
    const std::int64_t before = out_.geometryCount();
    emit(out_, *child);
    const std::int64_t count = out_.geometryCount() - before;
    if (count > 0) geometriesWritten(object, static_cast<const PlotElement&>(*child), count);
  }
}

void JVXWriter::geometriesWritten(const ObjectBase&, const PlotElement&, std::int64_t) {}

namespace {

bool fileExists(const std::string& name) { return access(name.c_str(), F_OK) == 0; }

}  // namespace

std::string JVXWriter::frameName(std::string_view fileName, std::int64_t number) {
  const std::size_t dot = std::min(fileName.rfind('.'), fileName.size());
  std::string name(fileName.substr(0, dot));
  name += '.';
  name += std::to_string(number);
  name += fileName.substr(dot);
  return name;
}

void JVXWriter::writeAnimation(int frames, const char* fileName) {
  double begin = nan;
  double end = nan;
  if (!timeRange(begin, end)) throw JavaViewExportError("not an animation");
  const std::vector<double> times = frameTimes(begin, end, frames, mostFrames);
  if (times.empty()) throw JavaViewExportError("time range too large");

  bool overwriteAll = false;
  std::int64_t frameNumber = 1;
  for (const double time : times) {
    const std::string name = frameName(fileName, frameNumber++);
    if (!overwriteAll && fileExists(name) && !confirmOverwrite(name.c_str(), overwriteAll)) return;
    writeFrame(time, name.c_str());
  }
}

void JVXWriter::writeFrame(double time, const char* fileName) {
  std::ofstream file(fileName, std::ios::binary);
  if (!file) throw JavaViewExportError("Can not open output file.");
  write(file, time);
  file.close();
  if (!file) throw JavaViewExportError("Can not write output file.");
}

bool JVXWriter::confirmOverwrite(const char*, bool& overwriteAll) {
  overwriteAll = true;
  return true;
}

}  // namespace vantry::javaview
