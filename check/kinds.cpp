#include "vantry/check/kinds.h"

#include <algorithm>
#include <iterator>

#include "vantry/check/check.h"

namespace vantry::check {

using reader::PointError;

namespace {

struct Row {
  Kind kind;
  CodeInfo info;
  std::string_view sentence;  // {subject}, {element} and {detail} are those of the finding
};

constexpr Severity error = Severity::error;
constexpr Severity warning = Severity::warning;

// clang-format off
constexpr Row rows[] = {
    {Kind::notWellFormed,      {"not-well-formed",      error,   "The document is not well-formed XML."},
     "{detail}"},
    {Kind::unknownNamespace,   {"unknown-namespace",    error,   "A name is in a namespace that is not that of the format."},
     "the namespace \"{subject}\" is not that of plot documents"},
    {Kind::unknownElement,     {"unknown-element",      error,   "There is no element of that name."},
     "there is no element {subject}"},
    {Kind::unknownAttribute,   {"unknown-attribute",    error,   "There is no attribute of that name."},
     "there is no attribute {subject}"},
    {Kind::wrongRoot,          {"wrong-root",           error,   "The outermost element is not Canvas."},
     "the outermost element of a plot document is Canvas, not {subject}"},
    {Kind::secondCanvas,       {"second-canvas",        error,   "There is more than one Canvas."},
     "a document has one Canvas"},
    {Kind::misplacedElement,   {"misplaced-element",    error,   "An element is where it cannot be."},
     "{element} takes no {subject}"},
    {Kind::misplacedObject,    {"misplaced-object",     error,   "An object has a type that cannot be where it is."},
     "{element} takes no object of the type {subject}"},
    {Kind::tooManyChildren,    {"too-many-children",    error,   "An element has more children of a name than it can."},
     "{element} takes no further {subject}"},
    {Kind::foreignAttribute,   {"foreign-attribute",    error,   "An attribute is on an element that does not have it."},
     "{element} has no attribute {subject}"},

    {Kind::missingAttribute,   {"missing-attribute",    error,   "An attribute that must be given is missing or empty."},
     "{element} needs the attribute {subject}"},
    {Kind::badValue,           {"bad-value",            error,   "A value is not of the type of its attribute."},
     "\"{detail}\" is no value for {subject}"},
    {Kind::unknownWord,        {"unknown-word",         error,   "A word is none of those that an attribute knows."},
     "{subject} knows no word \"{detail}\""},
    {Kind::valueOutOfRange,    {"value-out-of-range",   error,   "A value is outside of the range of its attribute."},
     "the value {detail} is outside of the range of {subject}"},
    {Kind::misplacedPoint,     {"misplaced-point",      error,   "A point is in an element that takes none of its dimension."},
     "{element} takes no {subject}"},
    {Kind::mixedPoints,        {"mixed-points",         error,   "Only some points of a list have a normal or colours."},
     "this point does not have the form of the points before it: all of a list have a colour or a normal, or none has"},
    {Kind::wrongCount,         {"wrong-count",          error,   "A point has too few or too many numbers or colours."},
     "this {subject} has {detail}"},
    {Kind::badNumber,          {"bad-number",           error,   "A number was expected."},
     "\"{detail}\" is no number"},
    {Kind::badColor,           {"bad-color",            error,   "A colour was expected."},
     "\"{detail}\" is no colour"},
    {Kind::tooFewCells,        {"too-few-cells",        error,   "An array has fewer entries than cells."},
     "this {element} has fewer entries than cells: {detail}"},

    {Kind::noScene,            {"no-scene",             error,   "There is no scene."},
     "the document has no Scene2d or Scene3d"},
    {Kind::noCoordinateSystem, {"no-coordinate-system", error,   "The first scene has no coordinate system."},
     "{element} has no {subject}"},
    {Kind::noImage,            {"no-image",             error,   "A visible object has no image."},
     "this {element} has no {subject}, so there is nothing to show"},
    {Kind::noMap,              {"no-map",               error,   "A transform has no map."},
     "this {element} has no {subject}, which says how it maps"},
    {Kind::tooFewPoints,       {"too-few-points",       error,   "A list has fewer points than its element needs."},
     "this {element} has too few points: {detail}"},
    {Kind::missingSurfaceType, {"missing-surface-type", error,   "A Surf3d does not say how its points become faces."},
     "a Surf3d needs a Type that says how its points become faces"},
    {Kind::endlessArc,         {"endless-arc",          error,   "The angles of an arc are too far apart."},
     "the angles of this arc are too far apart"},
    {Kind::endlessTimeRange,   {"endless-time-range",   error,   "The time range is not finite."},
     "a time range has a finite begin and end"},
    {Kind::textNotWritable,    {"text-not-writable",    error,   "A text cannot be written in the character set of the locale."},
     "the character set of the locale does not have all characters of a text that is to be written"},

    {Kind::replacedElement,    {"replaced-element",     warning, "An element that there can be once takes the place of another."},
     "this {subject} takes the place of the one before it"},
    {Kind::strayText,          {"stray-text",           warning, "Text in an element that holds no text is ignored."},
     "{element} holds no text, so this is ignored"},
    {Kind::textAfterValue,     {"text-after-value",     warning, "What follows a value is ignored."},
     "\"{detail}\" behind the value of {subject} is ignored"},
    {Kind::clampedValue,       {"clamped-value",        warning, "A value is moved into the range of its attribute."},
     "the value {detail} is outside of the range of {subject} and is moved into it"},
    {Kind::notFinite,          {"not-finite",           warning, "A number is not finite."},
     "\"{detail}\" is no finite number"},
    {Kind::oddFamily,          {"odd-family",           warning, "What is in the place of a font's family is hardly one."},
     "\"{detail}\" is taken for the family of {subject}"},
    {Kind::noImageInHidden,    {"no-hidden-image",      warning, "A hidden object has no image."},
     "this {element}, which is hidden, has no {subject}"},
    {Kind::imageNotDrawn,      {"image-not-drawn",      warning, "The image of an object holds what its type does not draw."},
     "an object of the type {detail} does not draw a {subject}"},
    {Kind::nothingDrawn,       {"nothing-drawn",        warning, "Nothing of a primitive is drawn."},
     "nothing of this {element} is drawn: {detail}"},
    {Kind::leftOut,            {"left-out",             warning, "An element does not reach the files for JavaView."},
     "this {subject} is left out: {detail}"},
    {Kind::extraPoints,        {"extra-points",         warning, "A list has more points than its element needs."},
     "this {element} has more points than it needs: {detail}"},
    {Kind::oddPoints,          {"odd-points",           warning, "Lines in pairs of points have an odd number of them."},
     "lines in pairs need an even number of points: {detail}"},
    {Kind::noPointColors,      {"no-point-colors",      warning, "Colours of the points are wanted, and they have none."},
     "{subject} is Functional, but the points of this {element} have no colours for it"},
    {Kind::colorsWithoutRange, {"colors-without-range", warning, "Colours by height are wanted without a viewing box."},
     "{subject} is {detail}, but without the height of the viewing box all of this {element} has one colour"},
    {Kind::blackCells,         {"black-cells",          warning, "All cells of a density array are black."},
     "{subject} is {detail}, with which all cells of this {element} are black"},
    {Kind::outsideViewingBox,  {"outside-viewing-box",  warning, "An object is outside of the viewing box."},
     "nothing of this {element} is in the viewing box: {detail}"},
    {Kind::reversedRange,      {"reversed-range",       warning, "The end of a range is not above its beginning."},
     "{subject} is not above {element}: {detail}"},
    {Kind::missingNumber,      {"missing-number",       warning, "An element has no effect without a number that is missing."},
     "a number is missing: {detail}"},
    {Kind::noTimeRange,        {"no-time-range",        warning, "Values of an animation have no effect without a time range."},
     "this {element} is animated, but without a TimeRange in the Canvas nothing moves"},
    {Kind::frameWithoutTime,   {"frame-without-time",   warning, "One of several frames of an animation has no time."},
     "this {element} is one of several frames and has no time, so that it hides others"},
    {Kind::frameOrder,         {"frame-order",          warning, "The frames of an animation are not in the order of their times."},
     "the frames are not in the order of their times: this {element} is for the time {detail}"},
    {Kind::styleWithoutObject, {"unused-style",         warning, "A style has nothing that it is for."},
     "there is no {subject} that this style is for"},
    {Kind::unusedStyleValue,   {"unused-style-value",   warning, "No object takes a value of a style."},
     "none of the objects that this style is for takes {subject}"},
    {Kind::lateStyle,          {"late-style",           warning, "A style comes after an object that it is for."},
     "this style comes after an object that it is for, and has no effect on its primitives"},
    {Kind::textNotInLocale,    {"text-not-in-locale",   warning, "The character set of the locale does not have a character."},
     "the character set of the locale does not have all characters of this text"},
};

struct PointRow {
  PointError error;
  Kind kind;
};

constexpr PointRow points[] = {
    {PointError::misplaced,    Kind::misplacedPoint},
    {PointError::unlikeOthers, Kind::mixedPoints},
    {PointError::wrongCount,   Kind::wrongCount},
    {PointError::badNumber,    Kind::badNumber},
    {PointError::badColor,     Kind::badColor},
};
// clang-format on

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    if (rows[i].kind != static_cast<Kind>(i)) return false;
  }
  return std::size(rows) == static_cast<std::size_t>(Kind::textNotInLocale) + 1;
}
static_assert(isInOrder(), "a row for each kind, in their order");

constexpr auto codeInfos = [] {
  std::array<CodeInfo, std::size(rows)> infos;
  std::ranges::transform(rows, infos.begin(), &Row::info);
  return infos;
}();

const Row& rowOf(Kind kind) { return rows[static_cast<std::size_t>(kind)]; }

const std::string& textOf(std::string_view part, const Finding& finding) {
  if (part == "subject") return finding.subject;
  return part == "element" ? finding.element : finding.detail;
}

}  // namespace

std::span<const CodeInfo> codes() { return codeInfos; }

std::string_view codeOf(Kind kind) { return rowOf(kind).info.code; }

Severity severityOf(Kind kind) { return rowOf(kind).info.severity; }

std::string sentenceOf(const Finding& finding) {
  std::string sentence;
  std::string_view rest = rowOf(finding.kind).sentence;
  for (std::size_t open = rest.find('{'); open != rest.npos; open = rest.find('{')) {
    const std::size_t close = rest.find('}', open);
    sentence += rest.substr(0, open);
    sentence += textOf(rest.substr(open + 1, close - open - 1), finding);
    rest.remove_prefix(close + 1);
  }
  return sentence.append(rest);
}

Kind kindOf(PointError refusal) {
  return std::ranges::find(points, refusal, &PointRow::error)->kind;
}

}  // namespace vantry::check
