// Writes how a scene is shown as a JVD display.
#pragma once

#include "vantry/javaview/display_output.h"
#include "vantry/javaview/javaview_writer.h"

namespace vantry::javaview {

/// Writes the set-up of a display for the scene that JVXWriter exports: axes, bounding box,
/// clipping, camera, lights and background. It holds no geometry.
class JVDWriter : public JavaViewWriter {
 public:
  using JavaViewWriter::JavaViewWriter;

 private:
  JavaViewOutput& output() override { return out_; }
  void writeHeader() override;
  void writeScene(const ExportedScene& exported) override;

  DisplayOutput out_;
};

}  // namespace vantry::javaview
