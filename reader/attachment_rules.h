// How each element of the input is put into the tree.
#pragma once

#include <cstdint>

#include "vantry/base/vocabulary.h"

namespace vantry::reader {

/// Where an element goes.
enum class Place : std::uint8_t {
  append,      ///< behind the children of the current element
  unique,      ///< in the place of the first child with its name, or else behind the children
  positional,  ///< in the place of the child at the running index, or else behind the children
  root         ///< in the place of the document's root, wherever it is in the input
};

/// The attribute that must be there and hold something.
enum class Required : std::uint8_t {
  nothing,
  typeToken,
  optToken,
  optTokenAndVal,
  nameText,
  domToken
};

/// What the characters inside the element are.
enum class Content : std::uint8_t {
  nothing,
  text,  ///< becomes a text child at the end tag
  words  ///< a list of colours or numbers
};

/// What the reader does with the elements of a class.
struct AttachmentRule {
  Place place = Place::append;
  Required required = Required::nothing;
  Content content = Content::nothing;
};

/// The rule of an element class.
const AttachmentRule& attachmentRule(base::WordId element);

}  // namespace vantry::reader
