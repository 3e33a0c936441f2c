// How much of a document shows that it is wrong.
#pragma once

#include <cstdint>

struct XML_ParserStruct;

namespace vantry::reader {

/// The parser has just found an error, in a token that begins at `tokenBegin` or in a short one
/// behind it, and has got `size` bytes: how many of them are enough to find it. More than `size` if
/// all of them and their end are needed. Right for documents in UTF-8.
std::int64_t endOfError(XML_ParserStruct* parser, std::int64_t tokenBegin, std::int64_t size);

}  // namespace vantry::reader
