#include "vantry/plot/metadata/descriptions.h"

#include <algorithm>
#include <iterator>

#include "vantry/base/vocabulary.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::Token;

namespace {

/// A sentence for an element (without a property), for a property wherever it occurs (without an
/// element), or for a property of one element.
struct Description {
  Token element;
  Token property;
  std::string_view text;
};

constexpr Description descriptions[] = {
#define ELEMENT(element, text) {Word::element, Token(), text},
#define PROPERTY(property, text) {Token(), Word::property, text},
#define PROPERTY_OF(element, property, text) {Word::element, Word::property, text},
#include "vantry/plot/metadata/descriptions.def"
};

std::string_view find(Token element, Token property) {
  const auto found = std::find_if(
      std::begin(descriptions), std::end(descriptions), [&](const Description& description) {
        return description.element == element && description.property == property;
      });
  return found == std::end(descriptions) ? std::string_view() : found->text;
}

}  // namespace

std::string_view elementDescription(Token element) { return find(element, Token()); }

std::string_view propertyDescription(Token element, Token property) {
  if (!property) return {};
  const std::string_view own = find(element, property);
  return own.empty() ? find(Token(), property) : own;
}

}  // namespace vantry::plot
