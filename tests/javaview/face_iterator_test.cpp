#include "vantry/javaview/face_iterator.h"

#include <gtest/gtest.h>

#include <vector>

#include "vantry/base/vocabulary.h"
#include "vantry/javaview/export_error.h"

namespace vantry::javaview {

namespace {

namespace Word = base::Word;
using base::Token;
using Numbers = std::vector<std::int64_t>;

Numbers firstOf(const FaceIndices& indices, std::size_t count) {
  return {indices.begin(), indices.begin() + static_cast<std::ptrdiff_t>(count)};
}

Numbers vertices(Token type, std::size_t points, std::int64_t face) {
  const auto faces = makeFaceIterator(type, points);
  FaceIndices indices;
  faces->faceVertices(face, indices);
  return firstOf(indices, faces->hasFourVertices() ? 4 : 3);
}

Numbers edges(Token type, std::size_t points, std::int64_t face) {
  FaceIndices indices;
  const int pairs = makeFaceIterator(type, points)->faceEdges(face, indices);
  return firstOf(indices, static_cast<std::size_t>(2 * pairs));
}

Numbers neighbours(Token type, std::size_t points, std::int64_t face) {
  const auto faces = makeFaceIterator(type, points);
  FaceIndices indices;
  faces->faceNeighbours(face, indices);
  return firstOf(indices, faces->hasFourVertices() ? 4 : 3);
}

struct Counts {
  Token type;
  std::size_t points;
  std::int64_t faces;
  std::int64_t edges;
  bool fourVertices;
  bool neighbours;
};

}  // namespace

TEST(FaceIteratorTest, CountsFacesAndEdges) {
  for (const Counts& c : {
           Counts{Word::Triangles, 0, 0, 0, false, false},
           Counts{Word::Triangles, 2, 0, 0, false, false},
           Counts{Word::Triangles, 5, 1, 3, false, false},
           Counts{Word::Triangles, 6, 2, 6, false, false},
           Counts{Word::TriangleStrip, 1, -1, -1, false, false},
           Counts{Word::TriangleStrip, 2, 0, 1, false, false},
           Counts{Word::TriangleStrip, 3, 1, 3, false, false},
           Counts{Word::TriangleStrip, 4, 2, 5, false, true},
           Counts{Word::TriangleFan, 0, -2, -3, false, false},
           Counts{Word::TriangleFan, 1, -1, -1, false, false},
           Counts{Word::TriangleFan, 2, 0, 1, false, false},
           Counts{Word::TriangleFan, 3, 1, 3, false, false},
           Counts{Word::TriangleFan, 5, 3, 7, false, true},
           Counts{Word::Quads, 3, 0, 0, true, false},
           Counts{Word::Quads, 7, 1, 4, true, false},
           Counts{Word::Quads, 8, 2, 8, true, false},
           Counts{Word::QuadStrip, 0, -1, -2, true, false},
           Counts{Word::QuadStrip, 1, 0, 1, true, false},
           Counts{Word::QuadStrip, 4, 1, 4, true, false},
           Counts{Word::QuadStrip, 5, 1, 4, true, true},
           Counts{Word::QuadStrip, 6, 2, 7, true, true},
       }) {
    SCOPED_TRACE(std::string(c.type.str()) + " " + std::to_string(c.points));
    const auto faces = makeFaceIterator(c.type, c.points);
    EXPECT_EQ(faces->faceCount(), c.faces);
    EXPECT_EQ(faces->edgeCount(), c.edges);
    EXPECT_EQ(faces->hasFourVertices(), c.fourVertices);
    EXPECT_EQ(faces->hasNeighbours(), c.neighbours);
  }
}

TEST(FaceIteratorTest, RefusesAnyOtherType) {
  for (const Token type : {Word::Lines, Word::LineStrip, Token()}) {
    try {
      makeFaceIterator(type, 9);
      ADD_FAILURE() << "no error";
    } catch (const JavaViewExportError& error) {
      EXPECT_STREQ(error.what(), "unknown Surf3d type");
    }
  }
}

TEST(FaceIteratorTest, NamesVertices) {
  EXPECT_EQ(vertices(Word::Triangles, 6, 1), (Numbers{3, 4, 5}));
  EXPECT_EQ(vertices(Word::TriangleStrip, 6, 0), (Numbers{0, 1, 2}));
  EXPECT_EQ(vertices(Word::TriangleStrip, 6, 2), (Numbers{2, 3, 4}));
  EXPECT_EQ(vertices(Word::TriangleFan, 6, 2), (Numbers{0, 3, 4}));
  EXPECT_EQ(vertices(Word::Quads, 8, 1), (Numbers{4, 5, 6, 7}));
  EXPECT_EQ(vertices(Word::QuadStrip, 4, 0), (Numbers{0, 1, 3, 2}));
  EXPECT_EQ(vertices(Word::QuadStrip, 6, 1), (Numbers{2, 3, 5, 4}));
}

TEST(FaceIteratorTest, TurnsEveryOtherTriangleOfAStripRound) {
  EXPECT_EQ(vertices(Word::TriangleStrip, 6, 1), (Numbers{1, 3, 2}));
  EXPECT_EQ(vertices(Word::TriangleStrip, 6, 3), (Numbers{3, 5, 4}));
}

TEST(FaceIteratorTest, NamesEdges) {
  EXPECT_EQ(edges(Word::Triangles, 6, 1), (Numbers{3, 4, 4, 5, 5, 3}));
  EXPECT_EQ(edges(Word::TriangleStrip, 6, 1), (Numbers{2, 3, 3, 1}));
  EXPECT_EQ(edges(Word::Quads, 8, 1), (Numbers{4, 5, 5, 6, 6, 7, 7, 4}));
  EXPECT_EQ(edges(Word::QuadStrip, 6, 1), (Numbers{3, 4, 4, 5, 5, 2}));
}

// The edge from 0 to 1 belongs to the first face and is not named there: one edge fewer than the
// number that is declared. That is deliberate.
TEST(FaceIteratorTest, LeavesOutTheFirstEdgeOfStripsAndFans) {
  EXPECT_EQ(edges(Word::TriangleStrip, 3, 0), (Numbers{1, 2, 2, 0}));
  EXPECT_EQ(edges(Word::TriangleFan, 3, 0), (Numbers{1, 2, 2, 0}));
  EXPECT_EQ(edges(Word::QuadStrip, 4, 0), (Numbers{1, 2, 2, 3, 3, 0}));
}

// The second edge of a triangle of a fan does not lead to the hub. That is deliberate.
TEST(FaceIteratorTest, JoinsPointsOfTheRimInAFan) {
  EXPECT_EQ(edges(Word::TriangleFan, 6, 2), (Numbers{3, 4, 4, 2}));
}

TEST(FaceIteratorTest, NamesNeighbours) {
  EXPECT_EQ(neighbours(Word::Triangles, 6, 1), (Numbers{-1, -1, -1}));
  EXPECT_EQ(neighbours(Word::TriangleStrip, 6, 0), (Numbers{1, -1, -1}));
  EXPECT_EQ(neighbours(Word::TriangleStrip, 6, 1), (Numbers{2, 0, -1}));
  EXPECT_EQ(neighbours(Word::TriangleStrip, 6, 2), (Numbers{3, -1, 1}));
  EXPECT_EQ(neighbours(Word::TriangleStrip, 6, 3), (Numbers{-1, 2, -1}));
  EXPECT_EQ(neighbours(Word::TriangleFan, 5, 0), (Numbers{-1, 1, -1}));
  EXPECT_EQ(neighbours(Word::TriangleFan, 5, 1), (Numbers{-1, 2, 0}));
  EXPECT_EQ(neighbours(Word::TriangleFan, 5, 2), (Numbers{-1, -1, 1}));
  EXPECT_EQ(neighbours(Word::Quads, 8, 1), (Numbers{-1, -1, -1, -1}));
  EXPECT_EQ(neighbours(Word::QuadStrip, 8, 0), (Numbers{-1, 1, -1, -1}));
  EXPECT_EQ(neighbours(Word::QuadStrip, 8, 1), (Numbers{-1, 2, -1, 0}));
  EXPECT_EQ(neighbours(Word::QuadStrip, 8, 2), (Numbers{-1, -1, -1, 1}));
  EXPECT_EQ(neighbours(Word::QuadStrip, 5, 0), (Numbers{-1, -1, -1, -1}));
}

}  // namespace vantry::javaview
