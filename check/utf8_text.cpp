#include "vantry/check/utf8_text.h"

#include <iterator>

#include "vantry/check/characters.h"
#include "vantry/plot/values/format_limits.h"

namespace vantry::check {

using namespace std::string_view_literals;

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr auto markOfUtf8 = "\xEF\xBB\xBF"sv;
constexpr auto markOfLittleEndian = "\xFF\xFE"sv;
constexpr auto markOfBigEndian = "\xFE\xFF"sv;

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

constexpr std::size_t sizeInUtf8(char32_t code) {
  if (code < 0x80) return 1;
  if (code < 0x800) return 2;
  return code < 0x10000 ? 3 : 4;
}

}  // namespace

std::string_view namedEncoding(std::string_view text) {
  if (!text.starts_with("<?xml")) return {};
  const std::string_view declaration = text.substr(0, text.find("?>"));
  const std::size_t word = declaration.find("encoding");
  if (word == declaration.npos) return {};
  const std::size_t open = declaration.find_first_of("\"'", word);
  if (open == declaration.npos) return {};
  const std::string_view value = declaration.substr(open + 1);
  return value.substr(0, value.find(declaration[open]));
}

bool isSameEncoding(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lowerCase, lowerCase);
}

std::string utf8Of(char32_t code) {
  const std::size_t size = sizeInUtf8(code);
  if (size == 1) return {static_cast<char>(code)};
  std::string bytes(size, '\0');
  for (std::size_t i = size - 1; i > 0; --i, code >>= 6) {
    bytes[i] = static_cast<char>(0x80 | (code & 0x3F));
  }
  constexpr char32_t first[] = {0, 0, 0xC0, 0xE0, 0xF0};
  bytes[0] = static_cast<char>(first[size] | code);
  return bytes;
}

std::size_t sizeOfCharacter(std::string_view utf8) {
  for (std::size_t size = 1; size <= std::min<std::size_t>(utf8.size(), 4); ++size) {
    if (plot::isXml(utf8.substr(0, size))) return size;
  }
  return 0;
}

Utf8Text::Utf8Text(std::string_view document)
    : document_(document), encoding_(encodingOf(document)) {
  if (encoding_ != Encoding::utf8) {
    convert();
    text_ = converted_;
  } else {
    text_ = document.substr(document.starts_with(markOfUtf8) ? markOfUtf8.size() : 0);
  }
}

// By the first bytes, among which a document in UTF-16 has a zero; otherwise by its declaration.
Utf8Text::Encoding Utf8Text::encodingOf(std::string_view document) {
  if (document.starts_with(markOfLittleEndian)) return Encoding::utf16LittleEndian;
  if (document.starts_with(markOfBigEndian)) return Encoding::utf16BigEndian;
  if (document.size() > 1 && document[0] == '\0') return Encoding::utf16BigEndian;
  if (document.size() > 1 && document[1] == '\0') return Encoding::utf16LittleEndian;
  const bool isMarked = document.starts_with(markOfUtf8);
  const std::string_view name = namedEncoding(document.substr(isMarked ? markOfUtf8.size() : 0));
  return isSameEncoding(name, "ISO-8859-1") ? Encoding::latin1 : Encoding::utf8;
}

char32_t Utf8Text::unitAt(std::size_t byte) const {
  const auto first = static_cast<unsigned char>(document_[byte]);
  const auto second = static_cast<unsigned char>(document_[byte + 1]);
  const bool isBig = encoding_ == Encoding::utf16BigEndian;
  return static_cast<char32_t>(isBig ? first << 8 | second : second << 8 | first);
}

Utf8Text::Character Utf8Text::characterAt(std::size_t byte) const {
  if (encoding_ == Encoding::latin1) return {static_cast<unsigned char>(document_[byte]), 1};
  const std::size_t rest = document_.size() - byte;
  if (rest < 2) return {replacement, rest};
  const char32_t unit = unitAt(byte);
  if (!isHighSurrogate(unit)) return {isLowSurrogate(unit) ? replacement : unit, 2};
  const char32_t low = rest < 4 ? 0 : unitAt(byte + 2);
  if (!isLowSurrogate(low)) return {replacement, 2};
  return {0x10000 + ((unit & 0x3FF) << 10 | (low & 0x3FF)), 4};
}

void Utf8Text::convert() {
  constexpr std::size_t distance = 1024;  // of marks, in bytes of the document
  const bool isMarked =
      document_.starts_with(markOfLittleEndian) || document_.starts_with(markOfBigEndian);
  std::size_t byte = isMarked ? markOfLittleEndian.size() : 0;
  marks_.push_back({byte, 0});
  converted_.reserve(document_.size());
  while (byte < document_.size()) {
    if (byte - marks_.back().byte >= distance) marks_.push_back({byte, converted_.size()});
    const Character character = characterAt(byte);
    converted_ += utf8Of(character.code);
    byte += character.size;
  }
}

std::size_t Utf8Text::convertedOffsetOf(std::size_t byte) const {
  if (byte >= document_.size()) return text_.size();
  const auto next = std::ranges::upper_bound(marks_, byte, {}, &Mark::byte);
  if (next == marks_.begin()) return 0;
  Mark mark = *std::prev(next);
  if (last_.byte > mark.byte && last_.byte <= byte) mark = last_;
  for (Character character = characterAt(mark.byte); mark.byte + character.size <= byte;
       character = characterAt(mark.byte)) {
    mark.byte += character.size;
    mark.offset += sizeInUtf8(character.code);
  }
  last_ = mark;
  return mark.offset;
}

}  // namespace vantry::check
