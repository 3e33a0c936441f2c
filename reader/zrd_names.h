// Which words of the vocabulary are names of elements and attributes in the ZRD format.
#pragma once

#include <string_view>

#include "vantry/base/vocabulary.h"

namespace vantry::reader {

/// Whether a namespace identifier is the format's. Documents carry the host of their maker in front
/// of its fixed end.
bool isFormatNamespace(std::string_view uri);

/// Whether it is another one. Names without a namespace are taken for the format's.
bool isForeignNamespace(std::string_view uri);

/// The namespace of attributes such as xml:lang, which are in every language.
inline constexpr std::string_view xmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// Whether the word is the name of an element: a class of the model, or P2 or P3, which are data.
bool isElementName(base::WordId word);

/// Whether the word is the name of an attribute.
bool isAttributeName(base::WordId word);

}  // namespace vantry::reader
