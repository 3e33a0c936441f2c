#include "vantry/javaview/geometry_output.h"

#include <algorithm>
#include <cmath>

#include "vantry/base/vocabulary.h"
#include "vantry/javaview/vector3d.h"

namespace vantry::javaview {

using namespace plot;
using base::RunningNumber;
using base::Token;
namespace Word = base::Word;

void GeometryOutput::pushTransform(const Matrix& matrix) {
  transformStack.push_back(transformStack.empty() ? matrix : transformStack.back() * matrix);
}

void GeometryOutput::beginGeometry() {
  ++geometryCount_;
  *this << "<geometry>\n";
}

void GeometryOutput::writeThicknessAndColor(RGBA color, double size) {
  writeThickness(size);
  writeColor(color);
}

void GeometryOutput::writeEdges(RGBA color, double width) {
  const int lighter = (255 - color.alpha()) / 3;
  const auto lighten = [=](int channel) { return std::min(channel + lighter, 255); };
  *this << "<edges>\n";
  writeThicknessAndColor(
      {lighten(color.red()), lighten(color.green()), lighten(color.blue()), color.alpha()}, width);
  *this << "</edges>\n";
}

void GeometryOutput::writeMaterial(int alpha, bool smooth) {
  *this << "<material" << (smooth ? " shading=\"gouraud\"" : "")
        << ">\n"
           "<ambientIntensity>0.2</ambientIntensity>\n"
           "<diffuse><color>128 128 128</color></diffuse>\n"
           "<emissive><color>0 0 0</color></emissive>\n"
           "<shininess>0.9</shininess>\n"
           "<specular><color>128 128 128</color></specular>\n";
  if (alpha < 255) {
    *this << "<transparency visible=\"show\">" << 1.0 - alpha / 255.0 << "</transparency>\n";
  } else {
    *this << "<transparency visible=\"hide\">0</transparency>\n";
  }
  *this << "</material>\n";
}

namespace {

const char* horizontalWord(Token alignment) {
  if (alignment == Word::Center) return "center";
  if (alignment == Word::End) return "tail";
  return "head";
}

const char* verticalWord(Token alignment) {
  if (alignment == Word::Top) return "top";
  if (alignment == Word::Bottom) return "bottom";
  return "middle";
}

const char* styleWord(const FontStyle& font) {
  if (font.bold) return "bold";
  if (font.italic) return "italic";
  return "plain";
}

}  // namespace

void GeometryOutput::writeLabelAtt(const FontStyle& font, Token horizontalAlignment,
                                   Token verticalAlignment) {
  *this << "<labelAtt visible=\"show\" horAlign=\"" << horizontalWord(horizontalAlignment)
        << "\" verAlign=\"" << verticalWord(verticalAlignment) << "\" style=\"" << styleWord(font)
        << "\" name=\"";
  writeEscapedLocaleText(font.family.c_str());
  *this << "\">\n";
  writeColor(font.color);
  *this << "<size>" << static_cast<unsigned>(font.size) << "</size>\n</labelAtt>\n";
}

void GeometryOutput::writeColorEntry(RGBA color) {
  *this << "<c>" << color.red() << ' ' << color.green() << ' ' << color.blue() << "</c>\n";
}

void GeometryOutput::writeCoordinates(const P2& point) { *this << point.x << ' ' << point.y; }

void GeometryOutput::writeCoordinates(const P3& point) {
  *this << point.x << ' ' << point.y << ' ' << point.z;
}

template <class Point>
Point GeometryOutput::transformed(const Point& point) const {
  return transformStack.empty() ? point : transformStack.back().map(point);
}

void GeometryOutput::writePoint(const P2& point) {
  *this << "<p>";
  writeCoordinates(transformed(point));
  *this << "</p>\n";
}

void GeometryOutput::writePoint(const P3& point) {
  *this << "<p>";
  writeCoordinates(transformed(point));
  *this << "</p>\n";
}

template <class Point>
void GeometryOutput::writePointList(std::span<const Point> points, RGBA color, double size) {
  *this << "<points num=\"" << points.size() << "\">\n";
  for (const Point& point : points) writePoint(point);
  writeThicknessAndColor(color, size * 0.5);
  *this << "</points>\n";
}

void GeometryOutput::writePoints(std::span<const P2> points, RGBA color, double size) {
  writePointList(points, color, size);
}

void GeometryOutput::writePoints(std::span<const P3> points, RGBA color, double size) {
  writePointList(points, color, size);
}

template <class Point>
void GeometryOutput::writeVectorList(std::span<const Point> vectors, RGBA color, double length,
                                     double thickness) {
  *this << "<vectors num=\"" << vectors.size() << "\">\n";
  for (const Point& vector : vectors) {
    *this << "<v>";
    writeCoordinates(transformed(vector));
    *this << "</v>\n";
  }
  writeThickness(thickness);
  *this << "<length>" << length << "</length>\n";
  writeColor(color);
  *this << "</vectors>\n";
}

void GeometryOutput::writeVectors(std::span<const P2> vectors, RGBA color, double length,
                                  double thickness) {
  writeVectorList(vectors, color, length, thickness);
}

void GeometryOutput::writeVectors(std::span<const P3> vectors, RGBA color, double length,
                                  double thickness) {
  writeVectorList(vectors, color, length, thickness);
}

namespace {

/// A copy in which the component of smallest absolute value is 1, so that it is not parallel to
/// the original unless that is 0. Of equal ones the first is taken.
P3 withSmallestReplaced(P3 v) {
  double* smallest = &v.x;
  if (std::fabs(v.y) < std::fabs(*smallest)) smallest = &v.y;
  if (std::fabs(v.z) < std::fabs(*smallest)) smallest = &v.z;
  *smallest = 1;
  return v;
}

}  // namespace

void GeometryOutput::writeCirclePoints(const P3& center, const P3& normal, double radius) {
  const P3 n = unit(normal);
  const P3 u = unit(cross(withSmallestReplaced(n), n));
  const P3 w = cross(u, n);
  pushTransform({u.x, w.x, n.x, center.x,  //
                 u.y, w.y, n.y, center.y,  //
                 u.z, w.z, n.z, center.z,  //
                 0, 0, 0, 1});
  constexpr double step = 0.16534698176788384;  // a full turn by circlePoints
  double angle = 0;
  for (int i = 0; i < circlePoints; ++i, angle += step) {
    writePoint(P3{std::cos(angle) * radius, std::sin(angle) * radius, 0});
  }
  popTransform();
}

void GeometryOutput::writeLine(std::int64_t first, std::int64_t last) {
  *this << "<l>" << first << ' ' << last << "</l>\n";
}

void GeometryOutput::writeLineStrip(std::int64_t count, bool closed) {
  for (std::int64_t i = 1; i < count; ++i) writeLine(i - 1, i);
  if (closed) writeLine(count - 1, 0);
}

void GeometryOutput::writeIndices(std::int64_t first, std::int64_t last) {
  *this << first;
  for (std::int64_t i = first + 1; i <= last; ++i) *this << ' ' << i;
}

void GeometryOutput::writeClosedLine(std::int64_t first, std::int64_t last) {
  *this << "<l>";
  writeIndices(first, last);
  *this << ' ' << first << "</l>\n";
}

void GeometryOutput::writeSingleFace(std::int64_t last, RGBA color) {
  *this << "<faces num=\"1\">\n<f>";
  writeIndices(0, last);
  *this << "</f>\n";
  writeThicknessAndColor(color, noThickness);
  *this << "</faces>\n<neighbours num=\"0\"/>\n";
}

void GeometryOutput::writeGridFaces(std::int64_t columns, std::int64_t rows) {
  for (std::int64_t row = 0; row + 1 < rows; ++row) {
    const std::int64_t first = row * columns;
    RunningNumber a(first);
    RunningNumber b(first + 1);
    RunningNumber c(first + columns + 1);
    RunningNumber d(first + columns);
    for (std::int64_t column = 0; column + 1 < columns; ++column, ++a, ++b, ++c, ++d) {
      *this << "<f>" << a << ' ' << b << ' ' << c << ' ' << d << "</f>\n";
    }
  }
}

void GeometryOutput::writeGridNeighbours(std::int64_t columns, std::int64_t rows,
                                         std::string_view end) {
  const std::int64_t faceColumns = columns - 1;
  const std::int64_t faceRows = rows - 1;
  const RunningNumber none(-1);
  for (std::int64_t row = 0; row < faceRows; ++row) {
    const std::int64_t first = row * faceColumns;
    RunningNumber right(first + 1);
    RunningNumber above(first + faceColumns);
    RunningNumber left(first - 1);
    RunningNumber below(first - faceColumns);
    for (std::int64_t column = 0; column < faceColumns;
         ++column, ++right, ++above, ++left, ++below) {
      *this << "<nb>" << (column + 1 < faceColumns ? right : none) << ' '
            << (row + 1 < faceRows ? above : none) << ' ' << (column > 0 ? left : none) << ' '
            << (row > 0 ? below : none) << end;
    }
  }
}

RGBA lightenColor(RGBA color) {
  const auto lighten = [](int channel) { return (channel + 256) >> 1; };
  return {lighten(color.red()), lighten(color.green()), lighten(color.blue()), color.alpha()};
}

}  // namespace vantry::javaview
