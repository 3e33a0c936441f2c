// The tree of a document as an outline.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "vantry/check/model_facts.h"
#include "zrd/plot_file.h"

namespace vantry::zrd {

/// Which elements of a document are shown, and what of them.
struct OutlineSelection {
  static constexpr unsigned mostLevels = 1'000'000;

  std::string path;  ///< of the element that is looked at with what is in it; empty for the Canvas
  const check::ClassFacts* element =
      nullptr;                  ///< the class of those that are shown; null: that one
  unsigned depth = mostLevels;  ///< so many levels below each are shown too
  bool hasDefaults = false;     ///< whether values that are defaults are shown
};

/// Where the value of a property comes from. A mandatory one may be missing.
enum class Origin { own, style, byDefault, missing };

struct ShownValue {
  std::string name;
  std::string text;  ///< empty if it is missing
  Origin origin;
  std::string style;  ///< the path of the element that gives it, where it is inherited
};

/// The smallest and the largest number along an axis, or of an array.
struct ShownRange {
  std::string name;
  double min;
  double max;
};

struct ShownElement {
  std::string name;
  std::string path;  ///< as in "Canvas/Scene2d[1]/CoordinateSystem2d[1]"
  unsigned depth;    ///< of those that are shown around it
  std::vector<ShownValue> values;
  std::string text;
  std::string data;   ///< what it has of points or cells, as "5 points with colours"; or empty
  std::size_t count;  ///< how many of them
  std::vector<ShownRange> ranges;
};

/// What is to be shown of a document.
class Outline {
 public:
  /// Throws Failure, which names the file, if nothing is selected.
  Outline(const PlotFile& file, const OutlineSelection& selection);

  /// Writes an element per line, indented, with its values below it.
  void writeText(std::ostream& out) const;
  /// Writes each element as a JSON object on a line of its own.
  void writeJson(std::ostream& out) const;

 private:
  std::vector<ShownElement> elements_;
};

}  // namespace vantry::zrd
