// Affine maps.
#pragma once

#include <array>

#include "vantry/plot/values/point.h"

namespace vantry::javaview {

/// A 4 by 4 matrix, row by row. It maps points by its upper three rows, divided by its last entry.
struct Matrix {
  std::array<double, 16> m;

  friend Matrix operator*(const Matrix& a, const Matrix& b);

  plot::P3 map(const plot::P3& p) const {
    return {(m[0] * p.x + m[1] * p.y + m[2] * p.z + m[3]) / m[15],
            (m[4] * p.x + m[5] * p.y + m[6] * p.z + m[7]) / m[15],
            (m[8] * p.x + m[9] * p.y + m[10] * p.z + m[11]) / m[15]};
  }
  plot::P2 map(const plot::P2& p) const {
    return {(m[0] * p.x + m[1] * p.y + m[3]) / m[15], (m[4] * p.x + m[5] * p.y + m[7]) / m[15]};
  }
};

}  // namespace vantry::javaview
