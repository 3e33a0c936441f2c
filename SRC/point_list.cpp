#include "SRC/point_list.h"

namespace PlotDom {

std::ostream& P2List::writeContent(std::ostream& out) const {
  for (std::size_t i = 0; i < points.size(); ++i) {
    out << "<P2>" << points[i];
    if (!colors.empty()) out << ' ' << colors[i];
    out << "</P2>";
  }
  return out;
}

std::ostream& P3List::writeContent(std::ostream& out) const {
  for (std::size_t i = 0; i < points.size(); ++i) {
    out << "<P3>" << points[i];
    if (!normals.empty()) out << ' ' << normals[i];
    if (!colors.empty()) out << ' ' << colors[i];
    if (!secondColors.empty()) out << ' ' << secondColors[i];
    out << "</P3>";
  }
  return out;
}

}  // namespace PlotDom
