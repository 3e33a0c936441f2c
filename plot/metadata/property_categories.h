// How the properties are grouped for a host that lets users edit them.
#pragma once

#include <span>

#include "vantry/base/token.h"

namespace vantry::plot {

/// Whether the algebra system has to compute a drawing anew when a property changes.
enum class Recalculation { needless, needed };

/// Some properties of one category. Rows of the same category follow one another.
struct CategoryRow {
  const char* category;
  Recalculation recalculation;
  std::span<const base::Token> properties;
};

/// All categories in the order in which they are shown, with all properties that there are.
std::span<const CategoryRow> propertyCategories();

}  // namespace vantry::plot
