// The text of a document, whatever its encoding is.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantry::check {

/// A document in UTF-8, without a byte order mark. Its encoding is taken for what the XML parser
/// takes it for. What is no character in UTF-16 becomes U+FFFD; a document that is in UTF-8, or
/// says so, stays as it is, whatever it holds.
class Utf8Text {
 public:
  /// `document` must outlive it.
  explicit Utf8Text(std::string_view document);
  Utf8Text(const Utf8Text&) = delete;
  Utf8Text& operator=(const Utf8Text&) = delete;

  std::string_view text() const { return text_; }

  /// Where in the text the character begins that a byte of the document belongs to.
  std::size_t offsetOf(std::size_t byte) const {
    if (encoding_ != Encoding::utf8) return convertedOffsetOf(byte);
    return byte - std::min(byte, document_.size() - text_.size());
  }

 private:
  enum class Encoding : std::uint8_t { utf8, latin1, utf16LittleEndian, utf16BigEndian };

  /// A character of the document, which takes so many bytes of it.
  struct Character {
    char32_t code;
    std::size_t size;
  };

  /// A character that begins at a byte of the document, and where it is in the text.
  struct Mark {
    std::size_t byte;
    std::size_t offset;
  };

  static Encoding encodingOf(std::string_view document);
  Character characterAt(std::size_t byte) const;
  char32_t unitAt(std::size_t byte) const;
  void convert();
  std::size_t convertedOffsetOf(std::size_t byte) const;

  std::string_view document_;
  Encoding encoding_;
  std::string converted_;
  std::string_view text_;
  std::vector<Mark> marks_;  // at some distance from each other; the first is that of the beginning
  mutable Mark last_ = {};   // that was asked for; the next is often close behind it
};

/// The encoding that the declaration of a document names; empty where there is none.
std::string_view namedEncoding(std::string_view text);

/// Whether two names of encodings are the same but for the case of their letters.
bool isSameEncoding(std::string_view a, std::string_view b);

/// A character in UTF-8.
std::string utf8Of(char32_t code);

/// The number of bytes of the character that a text begins with; 0 if it begins with none that XML
/// has.
std::size_t sizeOfCharacter(std::string_view utf8);

}  // namespace vantry::check
