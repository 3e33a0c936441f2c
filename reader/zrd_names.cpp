#include "vantry/reader/zrd_names.h"

namespace vantry::reader {

using base::WordId;

bool isFormatNamespace(std::string_view uri) { return uri.ends_with("/xml/Corvane"); }

bool isForeignNamespace(std::string_view uri) { return !uri.empty() && !isFormatNamespace(uri); }

bool isElementName(WordId word) {
  return base::isElementWord(word) || word == WordId::P2 || word == WordId::P3;
}

bool isAttributeName(WordId word) { return base::isAttributeWord(word); }

}  // namespace vantry::reader
