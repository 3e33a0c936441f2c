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

/// The size of a text up to the end of a mark, which is looked for from `from` on; none if the text
/// does not hold it.
std::optional<std::size_t> sizeUpTo(std::string_view mark, std::string_view text,
                                    std::size_t from) {
  const std::size_t at = text.find(mark, from);
  if (at == text.npos) return {};
  return at + mark.size();
}

/// The same for a name, which ends with the character behind it.
std::optional<std::size_t> sizeOfName(std::string_view text, std::size_t from) {
  const std::size_t at = text.find_first_of(" \t\r\n<>[]()|,*+?;%\"'", from);
  if (at == text.npos) return {};
  return at + 1;
}

std::optional<std::size_t> sizeOfTag(std::string_view text) {
  char quote = '\0';
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (quote == '\0' && c == '>') return at + 1;
    if (c == quote) {
      quote = '\0';
    } else if (quote == '\0' && (c == '"' || c == '\'')) {
      quote = c;
    }
  }
  return {};
}

/// The part of the document in which an error was found.
enum class Region { prolog, content, epilog };

Region regionOf(XML_Error error) {
  return error == XML_ERROR_SYNTAX                   ? Region::prolog
         : error == XML_ERROR_JUNK_AFTER_DOC_ELEMENT ? Region::epilog
                                                     : Region::content;
}

/// What has to be read of a text to find the token that it begins with; none if it is more. Outside
/// of the root a tag is known by its beginning, and behind it a name is.
std::optional<std::size_t> sizeOfToken(std::string_view text, Region region) {
  if (text.starts_with("<!--")) return sizeUpTo("-->", text, 4);
  if (text.starts_with("<?")) return sizeUpTo("?>", text, 2);
  if (text.starts_with("<!")) return sizeOfName(text, 2);
  if (text.starts_with('<')) return region == Region::content ? sizeOfTag(text) : 2;
  if (text.starts_with('&') || text.starts_with('%')) return sizeOfName(text, 1);
  if (region == Region::epilog) return 1;
  if (text.starts_with('"') || text.starts_with('\'')) {
    const auto literal = sizeUpTo(text.substr(0, 1), text, 1);
    return literal ? *literal + 1 : literal;  // the character behind it may make it wrong
  }
  return sizeOfName(text, 0);
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
  const Region region = regionOf(error);
  const std::int64_t textBegin = place - offset;
  if (std::min(tokenBegin, place) < textBegin) return beyondAll;
  const auto errorAt = static_cast<std::size_t>(offset);
  const auto endOfTokenAt = [=](std::size_t at) -> std::size_t {
    const auto token = sizeOfToken(text.substr(at), region);
    return token ? at + *token : text.size() + 1;
  };
  // The token that was not complete, or one that came with its end.
  auto at = static_cast<std::size_t>(std::min(tokenBegin, place) - textBegin);
  std::size_t end = endOfTokenAt(at);
  while (end <= errorAt) {
    at = std::min(text.find('<', end), errorAt);
    end = endOfTokenAt(at);
  }
  return textBegin + static_cast<std::int64_t>(end);
}

}  // namespace vantry::reader
