#include "vantry/plot/framework/refusal.h"

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

namespace {

/// What a format names of a refusal.
enum class Part : std::uint8_t { nothing, subject, detail, element };

struct Row {
  RefusalKind kind;
  const char* format;
  Part first = Part::nothing;
  Part second = Part::nothing;
};

// clang-format off
constexpr Row rows[] = {
    {RefusalKind::unknownProperty,     "unknown property '%s' [node '%s']\n",               Part::subject, Part::element},
    {RefusalKind::attributeMissing,    "illegal attribute '%s' [node '%s']\n",              Part::subject, Part::element},
    {RefusalKind::foreignAttribute,    "illegal attribute '%s'\n",                          Part::subject},
    {RefusalKind::mandatoryMissing,    "mandatory property '%s' missing [node '%s']\n",     Part::subject, Part::element},
    {RefusalKind::illegalText,         "illegal value string [attribute '%s']\n",           Part::subject},
    {RefusalKind::unsuitableValue,     "illegal value: %s [attribute '%s']\n",              Part::detail,  Part::subject},
    {RefusalKind::illegalValue,        "illegal value [attribute '%s']\n",                  Part::subject},
    {RefusalKind::unwritableValue,     "value that cannot be written: %s [attribute '%s']\n", Part::detail, Part::subject},
    {RefusalKind::emptyOptionName,     "empty option name\n"},
    {RefusalKind::illegalNumber,       "illegal value string [Val='%s']\n",                 Part::detail},
    {RefusalKind::illegalType,         "illegal type '%s' [parent '%s']\n",                 Part::subject, Part::element},
    {RefusalKind::foreignChild,        "not a valid content child '%s' [parent '%s']\n",    Part::subject, Part::element},
    {RefusalKind::optionTwice,         "option child '%s' defined twice [parent '%s']\n",   Part::subject, Part::element},
    {RefusalKind::illegalOption,       "illegal option child [parent '%s']\n",              Part::element},
    {RefusalKind::optionMissing,       "missing option child [parent '%s']\n",              Part::element},
    {RefusalKind::notText,             "not a text node child [parent '%s']\n",             Part::element},
    {RefusalKind::unwritableChildren,  "children that cannot be written [node '%s']\n",     Part::element},
    {RefusalKind::listsOfOtherLength,  "lists that do not fit the points [node '%s']\n",    Part::element},
    {RefusalKind::colorsMissing,       "colors missing [node '%s']\n",                      Part::element},
    {RefusalKind::valuesMissing,       "values missing [node '%s']\n",                      Part::element},
    {RefusalKind::categoryWithoutName, "category without a name [node '%s']\n",             Part::element},
    {RefusalKind::classNotOfItsName,   "not of the class of its name '%s'\n",               Part::subject},
    {RefusalKind::textOutsideOfXml,    "text with characters that XML does not have\n"},
    {RefusalKind::wordOutsideOfXml,    "word with characters that XML does not have\n"},
    {RefusalKind::noCanvas,            "no canvas to be written\n"},
};
// clang-format on

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    if (rows[i].kind != static_cast<RefusalKind>(i)) return false;
  }
  return std::size(rows) == static_cast<std::size_t>(RefusalKind::noCanvas) + 1;
}
static_assert(isInOrder(), "a row for each kind, in their order");

const char* textOf(Part part, const Refusal& refusal) {
  switch (part) {
    case Part::subject:
      return refusal.subject;
    case Part::detail:
      return refusal.detail;
    case Part::element:
      return refusal.element->tagName().str();
    case Part::nothing:
      return "";
  }
  return "";
}

}  // namespace

RefusalReport reportOf(const Refusal& refusal) {
  const Row& row = rows[static_cast<std::size_t>(refusal.kind)];
  return {row.format, textOf(row.first, refusal), textOf(row.second, refusal)};
}

}  // namespace vantry::plot
