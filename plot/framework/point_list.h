// The primitives with point data.
#pragma once

#include <vector>

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A primitive with points in the plane. `colors` is empty or as long as `points`.
class P2List : public PrimitiveBase {
 public:
  using PrimitiveBase::PrimitiveBase;

  std::vector<P2> points;
  std::vector<RGBA> colors;

  /// Writes each point as a P2 element.
  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;

 protected:
  P2List(const P2List&) = default;
};

/// A primitive with points in space. The other lists are empty or as long as `points`.
class P3List : public PrimitiveBase {
 public:
  using PrimitiveBase::PrimitiveBase;

  std::vector<P3> points;
  std::vector<P3> normals;
  std::vector<RGBA> colors;        ///< the first colour of each point
  std::vector<RGBA> secondColors;  ///< the second colour of each point, only beside a first one

  /// Writes each point as a P3 element.
  std::ostream& writeContent(std::ostream& out) const override;
  bool canBeWritten() const override;

 protected:
  P3List(const P3List&) = default;
};

}  // namespace vantry::plot
