#include "vantry/plot/values/font_style.h"

#include <tuple>

namespace vantry::plot {

bool operator<(const FontStyle& a, const FontStyle& b) {
  if (!(a.family == b.family)) return a.family < b.family;
  const auto rest = [](const FontStyle& font) {
    return std::tuple(font.size, font.italic, font.bold, font.color.word(), font.alignment);
  };
  return rest(a) < rest(b);
}

const FontStyle& FontStyle::standard() {
  static const FontStyle& font = *new FontStyle{
      base::FixedString::permanent("Times"), 11, false, black, false, base::Word::Left};
  return font;
}

}  // namespace vantry::plot
