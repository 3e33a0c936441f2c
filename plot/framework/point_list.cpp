#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

namespace {

// Whether each list is empty or as long as that of the points.
template <class... Lists>
bool fitThePoints(const PlotElement& element, std::size_t points, const Lists&... lists) {
  return ((lists.empty() || lists.size() == points) && ...) ||
         element.refuse(RefusalKind::listsOfOtherLength);
}

}  // namespace

bool P2List::canBeWritten() const {
  return PrimitiveBase::canBeWritten() && fitThePoints(*this, points.size(), colors);
}

bool P3List::canBeWritten() const {
  // A single colour would be read as the first one.
  const bool lacksFirst = colors.empty() && !secondColors.empty();
  return PrimitiveBase::canBeWritten() &&
         fitThePoints(*this, points.size(), normals, colors, secondColors) &&
         (!lacksFirst || refuse(RefusalKind::listsOfOtherLength));
}

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

}  // namespace vantry::plot
