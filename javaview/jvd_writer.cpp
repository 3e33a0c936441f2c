#include "vantry/javaview/jvd_writer.h"

#include "vantry/javaview/header.h"
#include "vantry/javaview/jvd_axes.h"
#include "vantry/javaview/jvd_bounds.h"
#include "vantry/javaview/jvd_cameras.h"
#include "vantry/javaview/jvd_lights.h"

namespace vantry::javaview {

using namespace plot;

void JVDWriter::writeHeader() {
  beginHeader(out_, {"jv-disp", "http://www.javaview.de/rsrc/jv-disp.dtd", "1.04.000"}, date());
  out_ << "</description>\n";
}

void JVDWriter::writeScene(const ExportedScene& exported) {
  const auto& [scene, coordinateSystem, is2d] = exported;
  out_ << "<displays>\n"
       << "<display antiAlias=\"hide\" border=\"hide\" depthcue=\"hide\"";
  out_.writeShowAttribute("sorting", !is2d);
  out_ << ">\n";

  const Bounds bounds = computeBounds(coordinateSystem, is2d);
  const bool extendClip = writeAxes(out_, coordinateSystem, is2d, bounds, isAnimated());
  writeBoundingBox(out_, coordinateSystem, is2d);
  if (is2d) {
    const double ratio = writeBoxRatio2d(out_, coordinateSystem, bounds);
    writeClipRange(out_, bounds, extendClip);
    writeCamera2d(out_, bounds, ratio);
  } else {
    writeBoxRatio3d(out_, scene, coordinateSystem, bounds);
    writeClipRange(out_, bounds, extendClip);
    writeCameras3d(out_, coordinateSystem, bounds, *this);
    const Token lighting = scene.lighting();
    if (lighting == Word::Explicit) writeExplicitLights(out_, coordinateSystem, *this);
    if (lighting == Word::Automatic) writeDefaultLights(out_, bounds);
  }
  writeBackground(out_, scene);

  out_ << "</display>\n"
       << "</displays>\n"
       << "</jv-disp>\n";
}

}  // namespace vantry::javaview
