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

/// All categories in the order in which they are shown.
std::span<const CategoryRow> propertyCategories();

/// The row of what an element is. The properties that no row names go behind its own.
const CategoryRow& definitionRow();
bool isOnlyInTheDefinition(base::Token property);

}  // namespace vantry::plot
