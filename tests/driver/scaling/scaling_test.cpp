// What a document costs grows as the document does, and by no power of it: counted over n, 2n and
// 4n items of each shape, in instructions of the whole program with its libraries, and in its
// memory.

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "../documents.h"
#include "../program.h"
#include "counted_instructions.h"
#include "shapes.h"

void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }

namespace {

const char* complaintOf(End end) {
  switch (end) {
    case End::success:
      return "";
    case End::tooLarge:
      return "Warning: parser error '43'";
    case End::outOfMemory:
      return "Warning: parser error '1'";
    case End::notWellFormed:
      return "Warning: parser error '7'";
  }
  return nullptr;
}

class Scaling : public ProgramTest, public testing::WithParamInterface<Shape> {
 protected:
  /// Converts a document of the shape, and checks how that ends.
  Outcome convert(std::size_t items) const {
    return convert(GetParam().document(items), GetParam().end);
  }

  /// Converts what has nothing in it, in the same way.
  Outcome convertNothing() const {
    return convert(
        "<Canvas><TimeRange TimeBegin='0' TimeEnd='1'/>"
        "<Scene2d><CoordinateSystem2d/></Scene2d></Canvas>",
        End::success);
  }

 private:
  Outcome convert(const std::string& document, End end) const {
    write("in.zrd", document);
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.push_back("in.zrd");
    const Outcome outcome = runInto("/dev/null", arguments);
    EXPECT_EQ(outcome.status, end == End::success ? 0 : 2) << outcome.err;
    const std::string complaint = outcome.err.substr(0, outcome.err.find(" ["));
    EXPECT_EQ(complaint, complaintOf(end));
    return outcome;
  }
};

#ifdef VALGRIND
using Instructions = CountedInstructions<Scaling>;

/// The power with which a cost grows when its cause grows to four times as much.
double exponentOf(double small, double large) { return std::log2(large / small) / 2; }

TEST_P(Instructions, GrowAsTheDocument) {
  const std::size_t n = GetParam().items;
  convertNothing();
  const double start = counted();
  std::vector<double> costs;
  for (const std::size_t items : {n, 2 * n, 4 * n}) {
    convert(items);
    costs.push_back(counted() - start);
  }
  EXPECT_LE(exponentOf(costs[0], costs[2]), largestExponent) << testing::PrintToString(costs);
  EXPECT_LE(std::log2(costs[2] / costs[1]), largestExponent) << testing::PrintToString(costs);
}

INSTANTIATE_TEST_SUITE_P(Shape, Instructions, testing::ValuesIn(shapes()),
                         [](const auto& test) { return test.param.name; });
#endif

class Memory : public Scaling {
 protected:
  static constexpr double megabyte = 1024 * 1024;

  /// How many items make a document of about this size.
  static std::size_t itemsOf(double size) {
    const std::size_t n = GetParam().items;
    return static_cast<std::size_t>(static_cast<double>(n) * size /
                                    static_cast<double>(GetParam().document(n).size()));
  }
};

// Buffers that double make steps, through which no exponent can be laid.
TEST_P(Memory, GrowsAsTheDocument) {
  constexpr double mostOfAByte = 400;
  const auto start = static_cast<double>(convertNothing().memory);
  for (const double size : {0.5 * megabyte, megabyte, 2 * megabyte}) {
    const std::size_t items = itemsOf(size);
    const double cost = static_cast<double>(convert(items).memory) - start;
    EXPECT_LE(cost, mostOfAByte * static_cast<double>(GetParam().document(items).size())) << size;
  }
}

INSTANTIATE_TEST_SUITE_P(Shape, Memory, testing::ValuesIn(shapes()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
