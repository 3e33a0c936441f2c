#include "vantry/javaview/matrix.h"

namespace vantry::javaview {

Matrix operator*(const Matrix& a, const Matrix& b) {
  Matrix product{};
  for (std::size_t row = 0; row < 16; row += 4) {
    for (std::size_t column = 0; column < 4; ++column) {
      product.m[row + column] = a.m[row] * b.m[column] + a.m[row + 1] * b.m[column + 4] +
                                a.m[row + 2] * b.m[column + 8] + a.m[row + 3] * b.m[column + 12];
    }
  }
  return product;
}

}  // namespace vantry::javaview
