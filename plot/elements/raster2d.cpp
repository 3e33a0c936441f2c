#include "vantry/plot/elements/raster2d.h"

namespace vantry::plot {

bool Raster2d::areEnough(std::size_t count, RefusalKind missing) const {
  const std::int64_t cells = std::int64_t{xMesh()} * yMesh();
  return static_cast<std::int64_t>(count) >= cells || refuse(missing);
}

}  // namespace vantry::plot
