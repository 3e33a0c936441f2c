// Labels, in the plane and in space.
#pragma once

#include "vantry/dom/node.h"
#include "vantry/javaview/geometry_output.h"

namespace vantry::javaview {

/// Writes a Text2d or Text3d: a single point whose name is the text. Its place does not follow the
/// transforms around it. Throws base::BadUnicodeString.
template <class Label>
void writeLabel(GeometryOutput& out, const Label& label) {
  const plot::FontStyle& font = label.textFont();
  out.beginGeometry();
  out << "<pointSet dim=\"" << dimensionOf(label.position())
      << "\" point=\"show\">\n<points num=\"1\">\n<p name=\"";
  for (const dom::Node* child = label.firstChild(); child; child = child->nextSibling()) {
    out.writeEscapedLocaleText(child->nodeValue());
  }
  out << "\">";
  out.writeCoordinates(label.position());
  out << "</p>\n<thickness>0</thickness>\n";
  out.writeColor(font.color);
  out.writeLabelAtt(font, label.horizontalAlignment(), label.verticalAlignment());
  out << "</points>\n</pointSet>\n";
  out.endGeometry();
}

}  // namespace vantry::javaview
