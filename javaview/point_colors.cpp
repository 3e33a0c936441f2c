#include "vantry/javaview/point_colors.h"

#include <algorithm>
#include <array>

namespace vantry::javaview {

using namespace plot;

namespace {

double heightOf(const P2& point) { return point.y; }
double heightOf(const P3& point) { return point.z; }

}  // namespace

template <class Point>
PointColors<Point>::PointColors(GeometryOutput& out, std::span<const Point> points,
                                std::span<const RGBA> list, const ColorScale& scale)
    : out_(out),
      points_(points.data()),
      count_(std::ssize(points)),
      list_(scale.type() == Word::Functional && !list.empty() ? list.data() : nullptr),
      scale_(scale),
      isColored_(list_ || (scale.type() != Word::Functional && scale.type() != Word::Flat)) {}

template <class Point>
template <class... Index>
void PointColors<Point>::writeMean(Index... indices) {
  constexpr int n = sizeof...(indices);
  const std::array<std::int64_t, n> at{std::min(indices, count_ - 1)...};
  if (list_) {
    int r = 0;
    int g = 0;
    int b = 0;
    for (const std::int64_t i : at) {
      r += list_[i].red();
      g += list_[i].green();
      b += list_[i].blue();
    }
    out_.writeColorEntry({r / n, g / n, b / n});
  } else {
    double sum = heightOf(points_[at[0]]);
    for (std::size_t i = 1; i < at.size(); ++i) sum += heightOf(points_[at[i]]);
    out_.writeColorEntry(scale_.colorOf(sum / n));
  }
}

template <class Point>
void PointColors<Point>::writeColor(std::int64_t i) {
  writeMean(i);
}

template <class Point>
void PointColors<Point>::writeMeanColor(std::int64_t i, std::int64_t j) {
  writeMean(i, j);
}

template <class Point>
void PointColors<Point>::writeMeanColor(std::int64_t i, std::int64_t j, std::int64_t k) {
  writeMean(i, j, k);
}

template <class Point>
void PointColors<Point>::writeMeanColor(std::int64_t i, std::int64_t j, std::int64_t k,
                                        std::int64_t l) {
  writeMean(i, j, k, l);
}

template <class Point>
void PointColors<Point>::writeColors() {
  out_ << "<colors num=\"" << count_ << "\">\n";
  for (std::int64_t i = 0; i < count_; ++i) writeColor(i);
  out_ << "</colors>\n";
}

template <class Point>
void PointColors<Point>::writeLineStripColors(std::int64_t count, bool closed) {
  for (std::int64_t i = 1; i < count; ++i) writeMeanColor(i - 1, i);
  if (closed) writeMeanColor(count - 1, 0);
}

template class PointColors<P2>;
template class PointColors<P3>;

}  // namespace vantry::javaview
