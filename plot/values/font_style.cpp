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

const char* familyOfKind(std::string_view name) {
  static constexpr struct {
    std::string_view kind;
    const char* family;
  } kinds[] = {
      {"serif", "Times"},
      {"sans-serif", "Helvetica"},
      {"monospace", "Courier"},
  };
  for (const auto& [kind, family] : kinds) {
    if (name == kind) return family;
  }
  return nullptr;
}

const FontStyle& FontStyle::standard() {
  static const FontStyle& font = *new FontStyle{
      base::FixedString::permanent("Times"), 11, false, black, false, base::Word::Left};
  return font;
}

}  // namespace vantry::plot
