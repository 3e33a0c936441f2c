#include "vantry/check/entity_mistakes.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "vantry/check/characters.h"
#include "vantry/check/markup.h"
#include "vantry/check/values.h"

namespace vantry::check {

namespace {

/// What entities stand for, by their names; an empty text for one that is in another file.
using Entities = std::unordered_map<std::string_view, std::string_view>;

/// Takes a name from the beginning of a text, and the blanks before it.
std::string_view takeName(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  const std::string_view name = nameAt(text, 0);
  text.remove_prefix(name.size());
  return name;
}

/// Of two declarations of a name the first holds. None is behind the outermost element's beginning.
Entities entitiesOf(std::string_view document) {
  constexpr std::string_view declaration = "<!ENTITY";
  Entities entities;
  for (auto markup = nextMarkup(document, 0); markup;
       markup = nextMarkup(document, markup->end())) {
    std::string_view text = markup->text;
    if (!text.starts_with("<!") && !text.starts_with("<?")) break;
    if (!text.starts_with(declaration)) continue;
    text.remove_prefix(declaration.size());
    const std::string_view name = takeName(text);  // empty for that of a parameter entity
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const bool isInFile = text.empty() || !isQuote(text[0]);
    entities.try_emplace(name, isInFile ? "" : text.substr(1, text.find(text[0], 1) - 1));
  }
  return entities;
}

/// Takes the next reference to an entity that is not one of XML, and what is before it. Empty where
/// there is none.
std::string_view takeReference(std::string_view& text) {
  constexpr std::array<std::string_view, 5> ofXml = {"lt", "gt", "amp", "quot", "apos"};
  for (std::size_t at = text.find('&'); at != text.npos; at = text.find('&')) {
    text.remove_prefix(at + 1);
    const std::string_view name = nameAt(text, 0);
    const bool isReference = !name.empty() && text.substr(name.size()).starts_with(';');
    if (isReference && std::ranges::find(ofXml, name) == ofXml.end()) return name;
  }
  text = {};
  return {};
}

/// The text whose references are read when the parser has come to a place: one of them alone, or
/// the values of a tag.
std::string_view textWithReferences(std::string_view document, std::size_t offset) {
  const std::string_view rest = document.substr(std::min(offset, document.size()));
  if (rest.starts_with('&')) return rest.substr(0, rest.find(';') + 1);
  return rest.starts_with('<') ? nextMarkup(document, offset)->text : std::string_view();
}

struct BadEntity {
  std::string_view name;
  std::string_view reference;  ///< the name in the text itself that leads to it
  bool isDeclared;
};

/// The first reference that cannot be followed, in the order in which the parser follows them.
std::optional<BadEntity> firstBadEntity(std::string_view text, const Entities& entities) {
  struct Reading {
    std::string_view name;
    std::string_view rest;
  };
  std::vector<Reading> readings = {{{}, text}};
  std::unordered_map<std::string_view, bool> isOpen;  // of all that have been come to
  std::string_view reference;
  while (!readings.empty()) {
    const std::string_view name = takeReference(readings.back().rest);
    if (name.empty()) {
      isOpen[readings.back().name] = false;
      readings.pop_back();
      continue;
    }
    if (readings.size() == 1) reference = name;
    const auto entity = entities.find(name);
    if (entity == entities.end()) return BadEntity{name, reference, false};
    const auto [known, isNew] = isOpen.try_emplace(name, true);
    if (!isNew && known->second) return BadEntity{name, reference, true};
    if (isNew) readings.push_back({name, entity->second});
  }
  return {};
}

std::optional<BadEntity> badEntityAt(std::string_view document, std::size_t offset) {
  return firstBadEntity(textWithReferences(document, offset), entitiesOf(document));
}

std::size_t placeOf(const BadEntity& entity, std::string_view document) {
  return static_cast<std::size_t>(entity.reference.data() - document.data()) - 1;  // of the &
}

}  // namespace

std::optional<MarkupMistake> mistakeInUndefinedEntity(std::string_view document,
                                                      std::size_t offset) {
  const auto entity = badEntityAt(document, offset);
  if (!entity || entity->isDeclared) return {};
  const bool isNested = entity->name.data() != entity->reference.data();
  const std::string user = isNested ? ", which " + shortened(entity->reference) + " contains" : "";
  return {{"there is no entity " + shortened(entity->name) + user, {}, placeOf(*entity, document)}};
}

std::optional<MarkupMistake> mistakeInRecursiveEntity(std::string_view document,
                                                      std::size_t offset) {
  const auto entity = badEntityAt(document, offset);
  if (!entity || !entity->isDeclared) return {};
  return {{"the entity " + shortened(entity->name) + " contains itself",
           {},
           placeOf(*entity, document)}};
}

}  // namespace vantry::check
