#include <algorithm>
#include <ostream>
#include <string>

#include "vantry/check/report.h"
#include "vantry/check/source.h"
#include "vantry/plot/values/format_limits.h"

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

/// A line of a document that can be shown anywhere: in one column for each of its characters.
std::string shownLine(std::string_view line) {
  const bool isUtf8 = plot::isXml(line);
  std::string shown(line);
  const auto show = [isUtf8](char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte == '\t') return ' ';
    const bool isShown = byte >= ' ' && byte != 0x7F && (byte < 0x80 || isUtf8);
    return isShown ? c : '?';
  };
  std::ranges::transform(shown, shown.begin(), show);
  return shown;
}

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

/// What is shown of a line to either side of a place: characters, and their bytes. In a document
/// that is not in UTF-8 any number of bytes may look like a part of one character.
constexpr int mostCharacters = 100;
constexpr std::size_t mostBytes = 4 * mostCharacters;

/// The line from a place on, or before it, as far as it is shown.
std::string_view behind(std::string_view document, std::size_t at) {
  const std::string_view rest = document.substr(at, mostBytes);
  int characters = 0;
  std::size_t size = 0;
  while (size < rest.size() && rest[size] != '\n' && rest[size] != '\r') {
    if (beginsCharacter(rest[size]) && ++characters > mostCharacters) break;
    ++size;
  }
  return rest.substr(0, size);
}
std::string_view before(std::string_view document, std::size_t at) {
  const std::size_t least = at - std::min(at, mostBytes);
  std::size_t begin = at;
  int characters = 0;
  while (begin > least && characters < mostCharacters && document[begin - 1] != '\n') {
    if (beginsCharacter(document[--begin])) ++characters;
  }
  return document.substr(begin, at - begin);
}

/// Writes the line of a place with a mark below it, or the part of a long line around it.
void writeExcerpt(std::ostream& out, const Diagnostic& diagnostic, std::string_view document,
                  const Colors& colors) {
  const Place& place = diagnostic.place;
  const std::size_t at = std::min(place.offset, document.size());
  const std::string_view left = before(document, at);
  const std::string_view right = behind(document, at);
  const std::size_t begin = at - left.size();
  const bool isCutLeft = begin > 0 && document[begin - 1] != '\n';
  const std::size_t end = at + right.size();
  const bool isCutRight = end < document.size() && document[end] != '\n' && document[end] != '\r';

  const std::string shownLeft = (isCutLeft ? "..." : "") + shownLine(left);
  const std::string number = std::to_string(place.line);
  const std::string margin(number.size() + 2, ' ');
  const int room = std::max(countCharacters(shownLine(right)), 1);
  const int size = std::clamp(place.endColumn - place.column, 1, room);
  out << ' ' << number << " | " << shownLeft << shownLine(right) << (isCutRight ? "..." : "")
      << '\n'
      << margin << "| " << std::string(static_cast<std::size_t>(countCharacters(shownLeft)), ' ')
      << colors.mark << '^' << std::string(static_cast<std::size_t>(size - 1), '~') << colors.end
      << '\n';
  for (const std::string& help : diagnostic.help) out << margin << "= " << help << '\n';
}

}  // namespace

void writeText(std::ostream& out, const FileReport& report, std::string_view document, bool color) {
  const Colors colors(color);
  for (const Diagnostic& diagnostic : report.diagnostics) {
    const bool isError = diagnostic.severity == Severity::error;
    out << colors.bold << report.name << ':' << diagnostic.place.line << ':'
        << diagnostic.place.column << ": " << (isError ? colors.error : colors.warning)
        << (isError ? "error: " : "warning: ") << colors.end << colors.bold << diagnostic.sentence
        << colors.end << " [" << diagnostic.code << "]\n";
    writeExcerpt(out, diagnostic, document, colors);
  }
}

}  // namespace vantry::check
