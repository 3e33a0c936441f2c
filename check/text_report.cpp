#include <algorithm>
#include <cwchar>
#include <limits>
#include <optional>
#include <ostream>
#include <string>

#include "vantry/base/hexadecimal.h"
#include "vantry/check/characters.h"
#include "vantry/check/report.h"
#include "vantry/check/utf8_text.h"

namespace vantry::check {

namespace {

/// The colours of a terminal, or nothing.
struct Colors {
  explicit Colors(bool isUsed) {
    if (!isUsed) return;
    bold = "\x1b[1m";
    error = "\x1b[1;31m";
    warning = "\x1b[1;35m";
    mark = "\x1b[1;32m";
    end = "\x1b[0m";
  }

  const char* bold = "";
  const char* error = "";
  const char* warning = "";
  const char* mark = "";
  const char* end = "";
};

/// Whether a terminal may take a character for something else than a letter: a control character,
/// or one that turns the direction of the text around it.
bool isControl(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

/// A character of a text, and its bytes; no character where they are none.
struct Character {
  std::optional<char32_t> code;
  std::string_view bytes;
};

/// Takes the first character of a text.
Character takeCharacter(std::string_view& text) {
  const std::size_t size = sizeOfCharacter(text);
  const std::string_view bytes = text.substr(0, std::max<std::size_t>(size, 1));
  text.remove_prefix(bytes.size());
  if (size == 0) return {{}, bytes};
  const auto first = static_cast<unsigned char>(bytes[0]);
  char32_t code = size == 1 ? first : first & (0x7F >> size);
  for (const char byte : bytes.substr(1)) {
    code = code << 6 | (static_cast<unsigned char>(byte) & 0x3F);
  }
  return {code, bytes};
}

/// How many columns of a terminal a character takes, as far as the locale knows.
int columnsOf(char32_t code) {
  const int columns = code < 0x80 ? 1 : wcwidth(static_cast<wchar_t>(code));
  return columns < 0 ? 1 : columns;
}

/// A part of a line as it can be shown anywhere.
struct Shown {
  std::string text;
  int columns = 0;
};

/// Of a part of a line, at most so many characters.
Shown shown(std::string_view part, int most = std::numeric_limits<int>::max()) {
  Shown all;
  for (; !part.empty() && most > 0; --most) {
    const bool isTab = part[0] == '\t';
    const Character character = takeCharacter(part);
    if (isTab) {
      all.text += ' ';
    } else if (!character.code || isControl(*character.code)) {
      all.text += '?';
    } else {
      all.text += character.bytes;
      all.columns += columnsOf(*character.code) - 1;
    }
    ++all.columns;
  }
  return all;
}

bool isLineBreak(char c) { return c == '\n' || c == '\r'; }

/// What is shown of a line to either side of a place: characters, and their bytes. In a document
/// that is not in UTF-8, as it should be, any number of bytes may look like a part of one
/// character.
constexpr int mostCharacters = 100;
constexpr std::size_t mostBytes = 4 * mostCharacters;

/// The line from a place on, as far as it is shown.
std::string_view behind(std::string_view text, std::size_t at) {
  const std::string_view rest = text.substr(at, mostBytes);
  int characters = 0;
  std::size_t size = 0;
  while (size < rest.size() && !isLineBreak(rest[size])) {
    if (beginsCharacter(rest[size]) && ++characters > mostCharacters) break;
    ++size;
  }
  return rest.substr(0, size);
}

/// The line before a place, as far as it is shown.
std::string_view before(std::string_view text, std::size_t at) {
  const std::size_t least = at - std::min(at, mostBytes);
  std::size_t begin = at;
  int characters = 0;
  while (begin > least && characters < mostCharacters && !isLineBreak(text[begin - 1])) {
    if (beginsCharacter(text[--begin])) ++characters;
  }
  return text.substr(begin, at - begin);
}

std::string blanksOf(int count) { return std::string(static_cast<std::size_t>(count), ' '); }

/// Writes the line of a place with a mark below it, or the part of a long line around it.
void writeExcerpt(std::ostream& out, const Diagnostic& diagnostic, std::string_view text,
                  const Colors& colors) {
  const Place& place = diagnostic.place;
  const std::size_t at = std::min(place.offset, text.size());
  const std::string_view left = before(text, at);
  const std::string_view right = behind(text, at);
  const std::size_t begin = at - left.size();
  const bool isCutLeft = begin > 0 && !isLineBreak(text[begin - 1]);
  const std::size_t end = at + right.size();
  const bool isCutRight = end < text.size() && !isLineBreak(text[end]);

  const std::string ellipsis = "...";
  const Shown shownLeft = shown(left);
  const int indent = shownLeft.columns + (isCutLeft ? static_cast<int>(ellipsis.size()) : 0);
  const int marked = shown(right, place.endColumn - place.column).columns;
  const std::string number = std::to_string(place.line);
  const std::string margin(number.size() + 2, ' ');
  out << ' ' << number << " | " << (isCutLeft ? ellipsis : "") << shownLeft.text
      << shown(right).text << (isCutRight ? ellipsis : "") << '\n'
      << margin << "| " << blanksOf(indent) << colors.mark << '^'
      << std::string(static_cast<std::size_t>(std::max(marked, 1) - 1), '~') << colors.end << '\n';
  for (const std::string& help : diagnostic.help) {
    out << margin << "= " << printable(help) << '\n';
  }
}

}  // namespace

std::string printable(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const Character character = takeCharacter(text);
    if (character.code && !isControl(*character.code)) {
      line += character.bytes;
      continue;
    }
    for (const char c : character.bytes) {
      line += "\\x" + base::hexadecimal(static_cast<unsigned char>(c));
    }
  }
  return line;
}

void writeText(std::ostream& out, const FileReport& report, std::string_view document, bool color) {
  const Colors colors(color);
  const Utf8Text utf8(document);
  const std::string name = printable(report.name);
  for (const Diagnostic& diagnostic : report.diagnostics) {
    const bool isError = diagnostic.severity == Severity::error;
    out << colors.bold << name << ':' << diagnostic.place.line << ':' << diagnostic.place.column
        << ": " << (isError ? colors.error : colors.warning) << (isError ? "error: " : "warning: ")
        << colors.end << colors.bold << printable(diagnostic.sentence) << colors.end << " ["
        << diagnostic.code << "]\n";
    writeExcerpt(out, diagnostic, utf8.text(), colors);
  }
}

}  // namespace vantry::check
