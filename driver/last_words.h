// What is said before the program ends by an exception that nobody catches.
#pragma once

#include "vantry/reader/xml_parser.h"

namespace vantry::driver {

/// From now on an end by an exception is announced: one line on standard error says in words what
/// was wrong with the document. Everything else about the end stays as it is.
void announceAbnormalEnds();

/// While this lives, the announcement names the place that the parser has reached.
class PlaceInInput {
 public:
  explicit PlaceInInput(const reader::Parser& parser);
  PlaceInInput(const PlaceInInput&) = delete;
  PlaceInInput& operator=(const PlaceInInput&) = delete;
  ~PlaceInInput();
};

}  // namespace vantry::driver
