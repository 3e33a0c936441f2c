// Vectors in space.
#pragma once

#include <cmath>
#include <limits>

#include "vantry/plot/values/point.h"

namespace vantry::javaview {

inline plot::P3 operator-(const plot::P3& a, const plot::P3& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline plot::P3 operator+(const plot::P3& a, const plot::P3& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline plot::P3 operator*(double s, const plot::P3& v) { return {s * v.x, s * v.y, s * v.z}; }
inline plot::P3 operator/(const plot::P3& v, double s) { return {v.x / s, v.y / s, v.z / s}; }

inline double dot(const plot::P3& a, const plot::P3& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline plot::P3 cross(const plot::P3& a, const plot::P3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(const plot::P3& v) { return std::sqrt(dot(v, v)); }

/// Whether a length is too short to give a direction. A NaN is not.
inline bool isVanishing(double length) { return length < std::numeric_limits<double>::epsilon(); }

/// The vector of length 1 in the direction of `v`; zero if `v` vanishes.
inline plot::P3 unit(const plot::P3& v) {
  const double l = length(v);
  return isVanishing(l) ? plot::P3{} : v / l;
}

}  // namespace vantry::javaview
