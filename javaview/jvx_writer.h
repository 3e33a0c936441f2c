// Writes the geometry of a scene as a JVX model.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "vantry/javaview/geometry_output.h"
#include "vantry/javaview/javaview_writer.h"
#include "vantry/plot/elements/tr.h"

namespace vantry::javaview {

/// Writes one scene: its visible objects, each with the image and under the transforms of the time.
class JVXWriter : public JavaViewWriter {
 public:
  using JavaViewWriter::JavaViewWriter;

  /// So many frames an animation has at most.
  static constexpr std::size_t mostFrames = 1'000'000;

  /// Writes a document with a time range as a series of files, from its begin on with `frames`
  /// (above 0) files to a unit of time, the last one at its end. Their number goes before the last
  /// dot of `fileName`: "movie.jvx" becomes "movie.1.jvx" and so on. Throws
  /// JavaViewExportError, and base::BadUnicodeString for a text that the locale cannot hold; the
  /// files of earlier frames stay then.
  void writeAnimation(int frames, const char* fileName);

  /// Called after a primitive of `object` has been written as `count` geometries (1 or more); does
  /// nothing here. The calls are in the order of the text and account for all its geometries.
  virtual void geometriesWritten(const plot::ObjectBase& object, const plot::PlotElement& primitive,
                                 std::int64_t count);

  /// The name of the frame with this number: "movie.1.jvx" for the first one of "movie.jvx".
  static std::string frameName(std::string_view fileName, std::int64_t number);

  /// Asked before a file that exists is replaced; false ends the animation. When `overwriteAll` is
  /// set it is not asked again. Here it sets that and agrees.
  virtual bool confirmOverwrite(const char* fileName, bool& overwriteAll);

 protected:
  /// Writes the frame of a time. Here the file is emptied first if it exists.
  virtual void writeFrame(double time, const char* fileName);

 private:
  JavaViewOutput& output() override { return out_; }
  void writeHeader() override;
  void writeScene(const ExportedScene& scene) override;

  void writeContainer(const dom::Node& container);
  bool enter(const dom::Node& node);
  void leave(const dom::Node& node);
  void writeObj3d(const plot::Obj3d& object);
  void writeObj2d(const plot::Obj2d& object);
  void writePrimitives(const plot::ObjectBase& object, const plot::ImgBase& image);

  GeometryOutput out_;
};

}  // namespace vantry::javaview
