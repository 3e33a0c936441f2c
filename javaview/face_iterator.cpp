#include "vantry/javaview/face_iterator.h"

#include "vantry/base/vocabulary.h"
#include "vantry/javaview/export_error.h"

namespace vantry::javaview {

namespace {

/// Faces that share no points: each takes the next `vertices` of them.
template <int vertices>
class SeparateFacesIterator final : public FaceIterator {
 public:
  using FaceIterator::FaceIterator;

  std::int64_t faceCount() const override { return pointCount_ / vertices; }
  std::int64_t edgeCount() const override { return faceCount() * vertices; }
  bool hasFourVertices() const override { return vertices == 4; }
  bool hasNeighbours() const override { return false; }

  void faceVertices(std::int64_t face, FaceIndices& indices) const override {
    for (int i = 0; i < vertices; ++i) at(indices, i) = vertices * face + i;
  }

  int faceEdges(std::int64_t face, FaceIndices& indices) const override {
    for (int i = 0; i < vertices; ++i) {
      at(indices, 2 * i) = vertices * face + i;
      at(indices, 2 * i + 1) = vertices * face + (i + 1) % vertices;
    }
    return vertices;
  }

  void faceNeighbours(std::int64_t, FaceIndices& indices) const override { indices.fill(-1); }

 private:
  static std::int64_t& at(FaceIndices& indices, int i) {
    return indices[static_cast<std::size_t>(i)];
  }
};

using TrianglesIterator = SeparateFacesIterator<3>;
using QuadsIterator = SeparateFacesIterator<4>;

/// Triangles each of which shares an edge with the one before it.
class ConnectedTrianglesIterator : public FaceIterator {
 public:
  using FaceIterator::FaceIterator;

  std::int64_t faceCount() const final { return pointCount_ - 2; }
  std::int64_t edgeCount() const final { return 2 * pointCount_ - 3; }
  bool hasFourVertices() const final { return false; }
  bool hasNeighbours() const final { return pointCount_ > 3; }

  // In a fan the second pair joins two points of the rim, not one of them and the hub: on purpose.
  int faceEdges(std::int64_t face, FaceIndices& indices) const final {
    indices = {face + 1, face + 2, face + 2, face};
    return 2;
  }

 protected:
  std::int64_t next(std::int64_t face) const { return face < pointCount_ - 3 ? face + 1 : -1; }
};

class TriangleStripIterator final : public ConnectedTrianglesIterator {
 public:
  using ConnectedTrianglesIterator::ConnectedTrianglesIterator;

  // Every other face is turned round, so that all have the same winding.
  void faceVertices(std::int64_t face, FaceIndices& indices) const override {
    if (face % 2 == 0) {
      indices = {face, face + 1, face + 2};
    } else {
      indices = {face, face + 2, face + 1};
    }
  }

  void faceNeighbours(std::int64_t face, FaceIndices& indices) const override {
    if (face % 2 == 0) {
      indices = {next(face), -1, face - 1};
    } else {
      indices = {next(face), face - 1, -1};
    }
  }
};

class TriangleFanIterator final : public ConnectedTrianglesIterator {
 public:
  using ConnectedTrianglesIterator::ConnectedTrianglesIterator;

  void faceVertices(std::int64_t face, FaceIndices& indices) const override {
    indices = {0, face + 1, face + 2};
  }

  void faceNeighbours(std::int64_t face, FaceIndices& indices) const override {
    indices = {-1, next(face), face - 1};
  }
};

class QuadStripIterator final : public FaceIterator {
 public:
  using FaceIterator::FaceIterator;

  std::int64_t faceCount() const override { return (pointCount_ - 2) / 2; }
  std::int64_t edgeCount() const override { return faceCount() * 3 + 1; }
  bool hasFourVertices() const override { return true; }
  bool hasNeighbours() const override { return pointCount_ > 4; }

  void faceVertices(std::int64_t face, FaceIndices& indices) const override {
    indices = {2 * face, 2 * face + 1, 2 * face + 3, 2 * face + 2};
  }

  int faceEdges(std::int64_t face, FaceIndices& indices) const override {
    indices = {2 * face + 1, 2 * face + 2, 2 * face + 2, 2 * face + 3, 2 * face + 3, 2 * face};
    return 3;
  }

  void faceNeighbours(std::int64_t face, FaceIndices& indices) const override {
    indices = {-1, face < faceCount() - 1 ? face + 1 : -1, -1, face - 1};
  }
};

}  // namespace

std::unique_ptr<FaceIterator> makeFaceIterator(base::Token type, std::size_t pointCount) {
  namespace Word = base::Word;
  const auto n = static_cast<std::int64_t>(pointCount);
  if (type == Word::Triangles) return std::make_unique<TrianglesIterator>(n);
  if (type == Word::TriangleStrip) return std::make_unique<TriangleStripIterator>(n);
  if (type == Word::TriangleFan) return std::make_unique<TriangleFanIterator>(n);
  if (type == Word::Quads) return std::make_unique<QuadsIterator>(n);
  if (type == Word::QuadStrip) return std::make_unique<QuadStripIterator>(n);
  throw JavaViewExportError("unknown Surf3d type");
}

}  // namespace vantry::javaview
