// Documents that grow in one direction.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// How a conversion ends.
enum class End {
  success,
  tooLarge,     ///< the parser refuses what the document makes of itself
  outOfMemory,  ///< the parser refuses what it would have to keep
  notWellFormed
};

/// A document of `n` items and the way that it is converted.
struct Shape {
  const char* name;
  std::size_t items;  ///< enough of them to distinguish a line from a parabola
  std::string (*document)(std::size_t n);
  std::vector<std::string> arguments = {};
  End end = End::success;
};

/// All shapes, each with a name of its own.
const std::vector<Shape>& shapes();
