#include "vantry/check/prolog_mistakes.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "vantry/check/characters.h"
#include "vantry/check/values.h"

namespace vantry::check {

namespace {

// clang-format off
constexpr struct Declaration {
  std::string_view name;
  const char* form;
  bool isOutermost;
} declarations[] = {
    {"<!DOCTYPE",  "<!DOCTYPE Canvas [ ... ]>",                true},
    {"<!ELEMENT",  "<!ELEMENT Canvas ANY>",                    false},
    {"<!ATTLIST",  "<!ATTLIST Canvas Width CDATA #IMPLIED>",   false},
    {"<!ENTITY",   "<!ENTITY name \"text\">",                  false},
    {"<!NOTATION", "<!NOTATION name SYSTEM \"address\">",      false},
};
// clang-format on

constexpr const char* wayOut =
    "a plot document needs no document type, unless it has entities of its own";

/// What a declaration begins with, up to its first blank, bracket or quote.
std::string_view keywordAt(std::string_view document, std::size_t begin) {
  const std::string_view rest = document.substr(begin);
  return rest.substr(0, rest.find_first_of(" \t\r\n[]<>\"'", 1));
}

/// The place behind the first `end` from a place on; the end of the document if there is none.
std::size_t behind(std::string_view document, std::string_view end, std::size_t from) {
  const std::size_t found = document.find(end, from);
  return found == document.npos ? document.size() : found + end.size();
}

/// A place before the outermost element.
struct PrologPlace {
  std::vector<std::size_t> open;  ///< where the declarations begin that are open, the outer first
  bool isInText = false;          ///< between quotes
};

/// No declaration is open behind the beginning of the outermost element.
PrologPlace findPlace(std::string_view document, std::size_t offset) {
  PrologPlace place;
  std::size_t at = 0;
  while (at < offset) {
    const std::string_view rest = document.substr(at);
    place.isInText = false;
    if (rest.starts_with("<!--")) {
      at = behind(document, "-->", at + 4);
    } else if (rest.starts_with("<?")) {
      at = behind(document, "?>", at + 2);
    } else if (rest.starts_with("<!")) {
      place.open.push_back(at++);
    } else if (place.open.empty()) {
      if (!isBlank(rest[0])) return {};
      ++at;
    } else if (isQuote(rest[0])) {
      at = behind(document, rest.substr(0, 1), at + 1);
      place.isInText = at > offset;
    } else {
      if (rest[0] == '>') place.open.pop_back();
      ++at;
    }
  }
  return place;
}

/// The declaration of a name; null if there is none.
const Declaration* findDeclaration(std::string_view name) {
  const auto* found = std::ranges::find(declarations, name, &Declaration::name);
  return found == std::end(declarations) ? nullptr : found;
}

/// About a declaration that is none, or cannot be where it begins.
MarkupMistake wrongDeclaration(std::string_view document, std::size_t begin, bool isOutermost) {
  const std::string_view name = keywordAt(document, begin);
  const Declaration* known = findDeclaration(name);
  if (!known) {
    return {"there is no declaration " + shortened(name),
            {isOutermost ? "a document type begins with <!DOCTYPE, in capitals"
                         : "there are <!ELEMENT, <!ATTLIST, <!ENTITY and <!NOTATION, in capitals",
             wayOut},
            begin};
  }
  return {std::string(name) + " cannot be here",
          {known->isOutermost ? "a document has one document type at most, before its elements"
                              : "it is between the brackets of <!DOCTYPE Canvas [ ... ]>",
           wayOut},
          begin};
}

}  // namespace

std::optional<MarkupMistake> mistakeInProlog(std::string_view document, std::size_t offset) {
  const std::size_t place = std::min(offset, document.size());
  const auto [open, isInText] = findPlace(document, place);
  const std::string_view rest = document.substr(place);
  const bool beginsDeclaration =
      rest.starts_with("<!") && !rest.starts_with("<!-") && !rest.starts_with("<![");
  if (beginsDeclaration && open.size() < 2) return wrongDeclaration(document, place, open.empty());
  if (open.empty()) return {};
  const bool isInner = open.size() > 1;
  const Declaration* known = findDeclaration(keywordAt(document, open.back()));
  if (!known) return wrongDeclaration(document, open.back(), !isInner);
  const std::vector<std::string> help = {std::string("it is written as in ") + known->form, wayOut};
  const bool ends = rest.empty() || rest[0] == '<' || (rest[0] == ']' && isInner);
  if (ends && !isInText && !rest.starts_with("<![")) {
    return {{"the declaration " + std::string(known->name) + " that begins here has no >", help,
             open.back()}};
  }
  return {{"this cannot be here in " + std::string(known->name), help, place}};
}

}  // namespace vantry::check
