// The way along the styles from which an element inherits.
#pragma once

#include <cstdint>

namespace vantry::plot {

class PlotElement;

/// Which styles of a chain are visited.
enum class Styles : std::uint8_t {
  all,
  effective  ///< those may be left out that nearer ones hide, as these have all of their attributes
};

/// Sees the styles of an element, see PlotElement::visitStyles().
class StyleVisitor {
 public:
  explicit StyleVisitor(Styles wanted) : wanted_(wanted) {}

  Styles wanted() const { return wanted_; }

  /// True if no further style is wanted.
  virtual bool visit(const PlotElement& style) = 0;

 protected:
  ~StyleVisitor() = default;

 private:
  Styles wanted_;
};

}  // namespace vantry::plot
