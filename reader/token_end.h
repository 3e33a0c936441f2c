// The end of a long token.
#pragma once

#include <string>
#include <string_view>

namespace vantry::reader {

/// Looks for the end of one token of XML, which comes in pieces. Right for documents in UTF-8.
class TokenEnd {
 public:
  /// `begin` is what has come of the token so far.
  explicit TokenEnd(std::string_view begin);

  /// Takes the next bytes. True for those that complete the token, and never again.
  bool isIn(std::string_view bytes);

 private:
  enum class Kind { tag, literal, name, blanks, upToMark };

  bool find(std::string_view bytes);
  bool findEndOfTag(std::string_view bytes);
  bool findEndOfLiteral(std::string_view bytes);
  bool findMark(std::string_view bytes);

  Kind kind_ = Kind::name;
  std::string_view mark_;  // of a comment or an instruction
  std::string tail_;       // the last bytes, which may begin the mark
  char quote_ = '\0';      // that is open, or was that of the literal
  bool isClosed_ = false;  // the literal, which ends with the character behind it
  bool isFound_ = false;
};

}  // namespace vantry::reader
