// How the points of a surface form its faces.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "vantry/base/token.h"

namespace vantry::javaview {

/// Room for the indices of one face: up to four vertices or four pairs.
using FaceIndices = std::array<std::int64_t, 8>;

/// The points that each face of a surface is made of. They follow from the number of the face and
/// the number of points alone. With too few points the counts may be 0 or below.
class FaceIterator {
 public:
  explicit FaceIterator(std::int64_t pointCount) : pointCount_(pointCount) {}
  virtual ~FaceIterator() = default;

  virtual std::int64_t faceCount() const = 0;

  /// The number that is declared for a list of all edges. For strips and fans it is one more than
  /// faceEdges() adds up to: the edge from point 0 to point 1 is counted and not written, on
  /// purpose.
  virtual std::int64_t edgeCount() const = 0;

  /// Whether the faces are quadrilaterals and not triangles.
  virtual bool hasFourVertices() const = 0;

  /// Whether the faces touch each other, so that neighbours are written.
  virtual bool hasNeighbours() const = 0;

  /// The indices of the three or four vertices.
  virtual void faceVertices(std::int64_t face, FaceIndices& indices) const = 0;

  /// The ends of the edges that this face adds, as pairs of indices. Returns the number of pairs.
  virtual int faceEdges(std::int64_t face, FaceIndices& indices) const = 0;

  /// The numbers of the faces across the three or four edges, -1 for none.
  virtual void faceNeighbours(std::int64_t face, FaceIndices& indices) const = 0;

 protected:
  std::int64_t pointCount_;
};

/// The iterator for a `Surf3d` type. Throws JavaViewExportError for any other token.
std::unique_ptr<FaceIterator> makeFaceIterator(base::Token type, std::size_t pointCount);

}  // namespace vantry::javaview
