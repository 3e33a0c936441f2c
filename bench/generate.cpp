// Writes a document for the measurements to standard output: the same bytes for the same arguments
// on every machine.

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

/// A coordinate of point `i` of `n` between -2 and 2.
double between(int i, int n) { return n > 1 ? -2 + 4.0 * i / (n - 1) : 0; }

/// The surface of all documents.
double height(double x, double y) {
  return std::sin(3 * x) * std::cos(2 * y) / (1 + x * x + y * y);
}

void mesh(int n) {
  std::printf(
      "<Scene3d>\n<CoordinateSystem3d>\n<Obj3d Type=\"Function3d\">\n<Img3d>\n"
      "<Mesh3d UMesh=\"%d\" VMesh=\"%d\">\n",
      n, n);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const double x = between(j, n);
      const double y = between(i, n);
      std::printf("<P3>%.8g %.8g %.8g</P3>\n", x, y, height(x, y));
    }
  }
  std::puts("</Mesh3d>\n</Img3d>\n</Obj3d>\n</CoordinateSystem3d>\n</Scene3d>");
}

void curve(int n) {
  std::puts(
      "<Scene2d>\n<CoordinateSystem2d>\n<ViewingBoxYMin Val=\"-1\"/>\n<ViewingBoxYMax Val=\"1\"/>\n"
      "<Obj2d Type=\"Function2d\" LinesVisible=\"true\" "
      "LineColorType=\"Rainbow\">\n<Img2d>\n<Poly2d>");
  for (int i = 0; i < n; ++i) {
    const double x = between(i, n);
    std::printf("<P2>%.8g %.8g</P2>\n", x, height(x, 0.5));
  }
  std::puts("</Poly2d>\n</Img2d>\n</Obj2d>\n</CoordinateSystem2d>\n</Scene2d>");
}

void density(int n) {
  std::printf(
      "<Scene2d>\n<CoordinateSystem2d>\n<Obj2d Type=\"Density\">\n<Img2d>\n"
      "<DensityArray2d XMesh=\"%d\" YMesh=\"%d\" XMin=\"-2\" XMax=\"2\" YMin=\"-2\" YMax=\"2\">\n",
      n, n);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      std::printf("%.8g%c", height(between(j, n), between(i, n)), j + 1 < n ? ' ' : '\n');
    }
  }
  std::puts("</DensityArray2d>\n</Img2d>\n</Obj2d>\n</CoordinateSystem2d>\n</Scene2d>");
}

void objects(int n) {
  constexpr int styles = 20;
  std::puts("<Scene2d>\n<CoordinateSystem2d>");
  for (int i = 0; i < styles; ++i) {
    std::printf("<ObjStyle Type=\"Kind%d\" LineWidth=\"0.%d\" LineColor=\"#%02x0080\"/>\n", i,
                i + 1, 10 * i);
  }
  for (int i = 0; i < n; ++i) {
    const double x = between(i, n);
    std::printf(
        "<Obj2d Type=\"Kind%d\">\n<Img2d>\n<Line2d From=\"%.8g 0\" To=\"%.8g %.8g\"/>\n</Img2d>\n"
        "</Obj2d>\n",
        i % styles, x, x, height(x, 0.5));
  }
  std::puts("</CoordinateSystem2d>\n</Scene2d>");
}

struct Kind {
  std::string_view name;
  void (*write)(int n);
};

constexpr std::array kinds = {Kind{"mesh", mesh}, Kind{"curve", curve}, Kind{"density", density},
                              Kind{"objects", objects}};

}  // namespace

int main(int argc, char** argv) {
  const int n = argc == 3 ? std::atoi(argv[2]) : 0;
  for (const Kind& kind : kinds) {
    if (n <= 0 || kind.name != argv[1]) continue;
    std::puts("<?xml version=\"1.0\"?>\n<Canvas xmlns=\"http://plots.example/xml/Corvane\">");
    kind.write(n);
    std::puts("</Canvas>");
    return std::fflush(stdout) == 0 ? 0 : 2;
  }
  std::fputs(
      "usage: bench_generate <kind> <n>\n"
      "       mesh     a surface of n by n points\n"
      "       curve    a curve of n points in rainbow colours\n"
      "       density  a density array of n by n cells\n"
      "       objects  n objects of one line each, under twenty styles\n",
      stderr);
  return 1;
}
