// The kinds of findings: one table gives each its code, its weight and its words.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "vantry/check/diagnostic.h"
#include "vantry/reader/data_parsing.h"

namespace vantry::check {

enum class Kind : std::uint8_t {
  // Names and their places.
  notWellFormed,
  unknownNamespace,
  unknownElement,
  unknownAttribute,
  wrongRoot,
  secondCanvas,
  misplacedElement,
  misplacedObject,
  tooManyChildren,
  foreignAttribute,
  // Values and data.
  missingAttribute,
  badValue,
  unknownWord,
  valueOutOfRange,
  misplacedPoint,
  mixedPoints,
  wrongCount,
  badNumber,
  badColor,
  tooFewCells,
  // What no file for JavaView can be made of.
  noScene,
  noCoordinateSystem,
  noImage,
  noMap,
  tooFewPoints,
  missingSurfaceType,
  endlessArc,
  endlessTimeRange,
  textNotWritable,
  // What is hardly meant.
  replacedElement,
  strayText,
  textAfterValue,
  clampedValue,
  notFinite,
  oddFamily,
  noImageInHidden,
  imageNotDrawn,
  nothingDrawn,
  leftOut,
  extraPoints,
  oddPoints,
  noPointColors,
  colorsWithoutRange,
  blackCells,
  outsideViewingBox,
  reversedRange,
  missingNumber,
  noTimeRange,
  frameWithoutTime,
  frameOrder,
  styleWithoutObject,
  unusedStyleValue,
  lateStyle,
  textNotInLocale,
};

/// What is found. The texts fill the sentence of the kind.
struct Finding {
  Kind kind;
  std::string subject = {};
  std::string element = {};
  std::string detail = {};
};

std::string_view codeOf(Kind kind);
Severity severityOf(Kind kind);
std::string sentenceOf(const Finding& finding);

/// The kind of what the reader of points refuses.
Kind kindOf(reader::PointError refusal);

}  // namespace vantry::check
