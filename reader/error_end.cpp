#include "vantry/reader/error_end.h"

#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace vantry::reader {

namespace {

/// The bytes of a character, by its first one.
std::int64_t sizeOfCharacter(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0xC0 || byte >= 0xF8) return 1;
  return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// The size of the tag, reference or literal that a text begins with; none if it begins with
/// nothing of the kind, or does not hold the end.
std::optional<std::size_t> sizeOfToken(std::string_view text) {
  if (text.empty() || std::string_view("<&%\"'").find(text.front()) == text.npos) return {};
  const char first = text.front();
  const char last = first == '<' ? '>' : first == '&' || first == '%' ? ';' : first;
  char quote = '\0';
  for (std::size_t at = 1; at < text.size(); ++at) {
    const char c = text[at];
    if (quote == '\0' && c == last) return at + 1;
    if (c == quote) {
      quote = '\0';
    } else if (quote == '\0' && first == '<' && (c == '"' || c == '\'')) {
      quote = c;
    }
  }
  return {};
}

}  // namespace

std::int64_t endOfError(XML_ParserStruct* parser, std::int64_t tokenBegin, std::int64_t size) {
  const std::int64_t beyondAll = size + 1;
  const XML_Error error = XML_GetErrorCode(parser);
  switch (error) {
    case XML_ERROR_NO_MEMORY:
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_PARTIAL_CHAR:
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
      return beyondAll;
    default:
      break;
  }
  const std::int64_t place = XML_GetCurrentByteIndex(parser);
  int offset = 0;
  int contextSize = 0;
  const char* const context = XML_GetInputContext(parser, &offset, &contextSize);
  if (place < 0 || !context || offset >= contextSize) return beyondAll;

  // The place of an invalid token is that of the character which makes it so. All other errors are
  // found when the token is complete.
  const std::string_view text(context, static_cast<std::size_t>(contextSize));
  if (error == XML_ERROR_INVALID_TOKEN) {
    return place + sizeOfCharacter(text[static_cast<std::size_t>(offset)]);
  }
  const std::int64_t begin = std::min(tokenBegin, place);
  if (place - begin > offset) return beyondAll;
  const auto token = sizeOfToken(text.substr(static_cast<std::size_t>(offset - (place - begin))));
  if (!token) return beyondAll;
  return std::max(begin + static_cast<std::int64_t>(*token), place + 1);
}

}  // namespace vantry::reader
