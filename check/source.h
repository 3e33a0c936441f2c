// The text of a document, as it was given: its lines, and the parts of its tags.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vantry/check/diagnostic.h"
#include "vantry/check/utf8_text.h"

namespace vantry::check {

/// A part of the text of a document, in bytes.
struct Span {
  std::size_t begin = 0;
  std::size_t size = 0;
};

/// A document and its text in UTF-8. All places are in the text, except for those of bytes. Where
/// there is no tag at a place, it gives the place alone. No question costs more than the part that
/// it is about, in whatever order they come.
class Source {
 public:
  /// `document` must outlive it.
  explicit Source(std::string_view document)
      : document_(document), utf8_(document), text_(utf8_.text()) {}

  std::string_view document() const { return document_; }
  /// Where in the text a byte of the document is.
  std::size_t offsetOf(std::size_t byte) const { return utf8_.offsetOf(byte); }

  std::string_view text() const { return text_; }
  /// The text of a part, as far as it is within the document.
  std::string_view textOf(Span span) const {
    return text_.substr(std::min(span.begin, text_.size()), span.size);
  }
  /// The same with blanks in place of markup, so that each character keeps its place. The content
  /// of CDATA sections is text. No markup may be open where the part begins.
  std::string charactersOf(Span part) const;

  /// Where a part begins and where it ends, but at the latest at the end of its first line.
  Place placeOf(Span span) const;

  /// The name in the tag that begins at `tag`, with its prefix.
  Span nameIn(std::size_t tag) const;
  /// The value of an attribute in it, by the name without a prefix, if it has one of that name.
  std::optional<Span> valueIn(std::size_t tag, std::string_view attribute) const;
  /// The name of that attribute.
  std::optional<Span> attributeIn(std::size_t tag, std::string_view attribute) const;

  /// The place behind the tag that begins at `tag`.
  std::size_t behindTag(std::size_t tag) const;
  /// The content of the element whose start tag begins at `tag`, up to `end`, without blanks,
  /// comments and instructions at either end. Where there is nothing else, all that is there.
  Span contentOf(std::size_t tag, std::size_t end) const;
  /// The reference to an entity or a character that begins at a place; the place alone if none
  /// does.
  Span referenceAt(std::size_t place) const;
  /// The first word of exactly these letters in a part of the document, outside of its markup. None
  /// may be open where the part begins.
  std::optional<Span> findWord(Span part, std::string_view word) const;

 private:
  struct RawAttribute {
    Span name;
    Span value;
  };
  /// The tag that was asked for last, with its attributes by their names without prefixes.
  struct Tag {
    std::size_t begin = std::string_view::npos;
    std::unordered_map<std::string_view, RawAttribute> attributes;
  };
  /// What is known of all of the text from the first question for a place on.
  struct Index {
    std::vector<std::size_t> lines;       ///< where each begins
    std::vector<std::size_t> characters;  ///< that begin before each block of bytes
  };

  const RawAttribute* findAttribute(std::size_t tag, std::string_view name) const;
  void readAttributes(std::size_t tag) const;
  const Index& index() const;
  std::size_t charactersBefore(std::size_t offset) const;

  std::string_view document_;
  Utf8Text utf8_;
  std::string_view text_;
  mutable std::optional<Index> index_;
  mutable Tag tag_;
};

/// How many characters some bytes of UTF-8 are.
int countCharacters(std::string_view text);

}  // namespace vantry::check
