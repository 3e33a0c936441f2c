// The check of whole documents.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string_view>
#include <vector>

#include "vantry/check/diagnostic.h"

namespace vantry::check {

/// So many findings of one kind are kept; what is found of it after that is left out.
inline constexpr std::size_t mostOfAKind = 10'000;

/// All that is wrong with a document, in the order of the places, but no more than `mostOfAKind`
/// findings of a kind. A document without an error can be converted: JVXWriter and JVDWriter write
/// it when they are asked for no particular time. Its texts are judged by the character set of the
/// process's locale.
std::vector<Diagnostic> check(std::string_view document);

/// The same for a document that is read to its end. What the stream says after that is left to the
/// caller.
std::vector<Diagnostic> check(std::istream& document);

/// What a code is about, whatever document it is found in.
struct CodeInfo {
  std::string_view code;
  Severity severity;
  std::string_view summary;
};

/// All codes, each once.
std::span<const CodeInfo> codes();

}  // namespace vantry::check
