#include "vantry/javaview/javaview_output.h"

#include <cmath>

#include "vantry/base/escape_writers.h"

namespace vantry::javaview {

using namespace plot;

void JavaViewOutput::writeShowAttribute(std::string_view name, bool show) {
  *this << ' ' << name << (show ? "=\"show\"" : "=\"hide\"");
}

void JavaViewOutput::writeColor(RGBA color) {
  *this << "<color>" << color.red() << ' ' << color.green() << ' ' << color.blue() << "</color>\n";
}

void JavaViewOutput::writeThickness(double size) {
  if (std::isnan(size)) return;
  const double pixels = size * pixelsPerMillimetre;
  *this << "<thickness>" << (pixels < 1 ? 1 : pixels) << "</thickness>\n";
}

void JavaViewOutput::writeEscapedLocaleText(const char* text) {
  base::writeEscapedLocaleText(sink_, text);
}

}  // namespace vantry::javaview
