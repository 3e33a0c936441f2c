// The reasons of the XML parser, in words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantry::check {

struct XmlError {
  std::string reason;        ///< a sentence
  std::string help;          ///< empty where there is none
  bool concernsOpenElement;  ///< whether it helps to know which element is open
};

/// What an error of the parser means for a document.
XmlError describeXmlError(std::int32_t code, std::string_view document);

}  // namespace vantry::check
