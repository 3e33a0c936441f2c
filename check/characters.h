// Characters as bytes of UTF-8, and those that markup is made of.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantry::check {

/// Whether a byte is the first of a character.
constexpr bool beginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// A letter of ASCII as a small one; any other byte as it is.
constexpr char lowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline constexpr std::string_view blanks = " \t\r\n";

constexpr bool isBlank(char c) { return blanks.find(c) != std::string_view::npos; }
constexpr bool isBlank(std::string_view text) {
  return text.find_first_not_of(blanks) == std::string_view::npos;
}

constexpr bool isQuote(char c) { return c == '"' || c == '\''; }

/// Whether a name may have this in it; of what is not ASCII, all is taken for a part of names.
constexpr bool isNameCharacter(char c) {
  const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  const bool isDigit = c >= '0' && c <= '9';
  const bool isAscii = static_cast<unsigned char>(c) < 0x80;
  return isLetter || isDigit || !isAscii ||
         std::string_view("_:-.").find(c) != std::string_view::npos;
}

/// Whether a name may begin with this.
constexpr bool beginsName(char c) {
  const bool isDigit = c >= '0' && c <= '9';
  return isNameCharacter(c) && !isDigit && c != '-' && c != '.';
}

/// The name that begins at a place; empty where there is none.
constexpr std::string_view nameAt(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && isNameCharacter(text[end])) ++end;
  return text.substr(begin, end - begin);
}

}  // namespace vantry::check
