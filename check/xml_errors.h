// The reasons of the XML parser, in words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "vantry/check/markup_mistakes.h"

namespace vantry::check {

struct XmlError {
  MarkupMistake mistake;
  bool concernsOpenElement;  ///< whether it helps to know which element is open
};

/// What an error of the parser, which has come to `offset`, means for a document. An element is
/// open there or none is.
XmlError describeXmlError(std::int32_t code, std::string_view document, std::size_t offset,
                          bool isInElement);

}  // namespace vantry::check
