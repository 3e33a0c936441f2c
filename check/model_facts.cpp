#include "vantry/check/model_facts.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include "vantry/check/names.h"
#include "vantry/plot/document.h"
#include "vantry/plot/element_factory.h"
#include "vantry/reader/attachment_rules.h"
#include "vantry/reader/data_parsing.h"
#include "vantry/reader/zrd_names.h"

namespace vantry::check {

namespace Word = base::Word;
using base::Ref;

namespace {

/// Stands for any type, option or name that a document may make up.
constexpr const char* anyWord = "any";

bool isBefore(Token a, Token b) { return std::string_view(a.str()) < b.str(); }

Token attributeThatIsRequired(Token element) {
  switch (reader::attachmentRule(base::wordOf(element)).required) {
    case reader::Required::nothing:
      return {};
    case reader::Required::typeToken:
      return Word::Type;
    case reader::Required::optToken:
    case reader::Required::optTokenAndVal:
      return Word::Opt;
    case reader::Required::nameText:
      return Word::Name;
    case reader::Required::domToken:
      return Word::Dom;
  }
  return {};
}

/// The classes of the model, found out with elements of a document that is nowhere else.
class Model {
 public:
  Model() : document_(new plot::PlotDocument) {
    for (const Token name : plot::elementNames()) describe(name);
    for (const Token point : {Word::P2, Word::P3}) classes_[point].name = point;
    for (auto& [name, facts] : classes_) findChildren(facts);
    for (auto& [name, facts] : classes_) {
      std::ranges::sort(facts.children, isBefore, &ChildFacts::name);
      std::ranges::sort(facts.parents, isBefore);
    }
    collectReachable();
    std::ranges::transform(reachable, std::back_inserter(elementNames), &ClassFacts::name);
    document_->tearDown();
  }

  const ClassFacts* find(Token name) const {
    const auto found = classes_.find(name);
    return found == classes_.end() ? nullptr : &found->second;
  }

  std::vector<const ClassFacts*> reachable;
  std::vector<Token> elementNames;

 private:
  Ref<PlotElement> make(Token name) const {
    Ref<PlotElement> element = document_->createElement(name);
    const Token required = element ? attributeThatIsRequired(name) : Token();
    if (required) element->setAttributeFromString(required, anyWord);
    return element;
  }

  void describe(Token name) {
    const Ref<PlotElement> element = document_->createElement(name);
    ClassFacts& facts = classes_[name];
    facts.name = name;
    for (const Token word : base::wordTokens) {
      if (const Property* property = element->findProperty(word)) {
        facts.properties.push_back(property);
      }
    }
    const reader::AttachmentRule& rule = reader::attachmentRule(base::wordOf(name));
    facts.holdsText = rule.content != reader::Content::nothing;
    if (const Token required = attributeThatIsRequired(name)) facts.required.push_back(required);
    if (rule.required == reader::Required::optTokenAndVal) facts.required.push_back(Word::Val);
  }

  void findChildren(ClassFacts& parent) {
    for (auto& [name, child] : classes_) {
      if (name == Word::Canvas || !takes(parent.name, name)) continue;
      parent.children.push_back({name, !takesTwo(parent.name, name)});
      child.parents.push_back(parent.name);
    }
  }

  bool takes(Token parentName, Token childName) const {
    const Ref<PlotElement> parent = make(parentName);
    if (!parent) return false;
    if (childName == Word::P2) return reader::pointsInPlane(parent.get());
    if (childName == Word::P3) return reader::pointsInSpace(parent.get());
    return takesFurther(*parent, childName);
  }

  bool takesTwo(Token parentName, Token childName) const {
    if (childName == Word::P2 || childName == Word::P3) return true;
    if (reader::attachmentRule(base::wordOf(childName)).place == reader::Place::unique)
      return false;
    const Ref<PlotElement> parent = make(parentName);
    const Ref<PlotElement> first = make(childName);
    const dom::Node* present = parent->firstChildByName(childName);
    if (present) return present->nextSibling();
    parent->appendChild(first.get());
    const Ref<PlotElement> second = make(childName);
    return parent->canReplaceChildren(nullptr, 0, second.get());
  }

  /// A child may come behind the others, or in the place of one that an element is made with.
  bool takesFurther(const PlotElement& parent, Token childName) const {
    const Ref<PlotElement> child = make(childName);
    if (parent.canReplaceChildren(nullptr, 0, child.get())) return true;
    dom::Node* first = parent.firstChild();
    return first && parent.canReplaceChildren(first, 1, child.get());
  }

  void collectReachable() {
    reachable.push_back(&classes_.at(Word::Canvas));
    for (std::size_t i = 0; i < reachable.size(); ++i) {
      for (const ChildFacts& child : reachable[i]->children) {
        const ClassFacts* facts = find(child.name);
        if (std::ranges::find(reachable, facts) == reachable.end()) reachable.push_back(facts);
      }
    }
  }

  Ref<plot::PlotDocument> document_;
  std::map<Token, ClassFacts> classes_;
};

const Model& model() {
  static const Model& known = *new Model;  // for ever, as the properties are
  return known;
}

// clang-format off
struct KindRow {
  Token editor;
  ValueKind kind;
  std::string_view words;
};

constexpr KindRow kinds[] = {
    {Word::Bool,        ValueKind::yesOrNo,     "1 or true, 0 or false"},
    {Word::Int,         ValueKind::wholeNumber, "a whole number"},
    {Word::NonNegInt,   ValueKind::wholeNumber, "a whole number of at least 0"},
    {Word::PosInt,      ValueKind::wholeNumber, "a whole number of at least 1"},
    {Word::Float,       ValueKind::number,      "a number"},
    {Word::NonNegFloat, ValueKind::number,      "a number of at least 0"},
    {Word::FloatOrNaN,  ValueKind::number,      "a number"},
    {Word::Intensity,   ValueKind::number,      "a number from 0 to 1"},
    {Word::Angle,       ValueKind::number,      "an angle in radians"},
    {Word::PosSize,     ValueKind::number,      "a length above 0, in millimetres"},
    {Word::NonNegSize,  ValueKind::number,      "a length of at least 0, in millimetres"},
    {Word::Color,       ValueKind::color,       "a colour as #RRGGBB or #RRGGBBAA"},
    {Word::P2,          ValueKind::planePoint,  "two numbers with blanks between them"},
    {Word::P3,          ValueKind::spacePoint,  "three numbers with blanks between them"},
    {Word::Font,        ValueKind::font,        "a font as in \"sans-serif 12 Bold\": a family and a size in points"},
    {Word::Token,       ValueKind::word,        "a word"},
    {Word::String,      ValueKind::text,        "a text"},
};
// clang-format on

const KindRow& rowOf(const Property& property) {
  static constexpr KindRow enumeration = {Word::Enum, ValueKind::word, "a word"};
  const auto* row = std::ranges::find(kinds, property.editorWord(), &KindRow::editor);
  return row == std::end(kinds) ? enumeration : *row;
}

}  // namespace

bool ClassFacts::takes(Token child) const {
  return std::ranges::find(children, child, &ChildFacts::name) != children.end();
}

bool ClassFacts::needs(Token attribute) const {
  return std::ranges::find(required, attribute) != required.end();
}

const Property* ClassFacts::property(Token wanted) const {
  const auto found = std::ranges::find(properties, wanted, &Property::name);
  return found == properties.end() ? nullptr : *found;
}

std::vector<Token> ClassFacts::childNames() const {
  std::vector<Token> names;
  std::ranges::transform(children, std::back_inserter(names), &ChildFacts::name);
  return names;
}

std::vector<Token> ClassFacts::propertyNames() const {
  std::vector<Token> names;
  std::ranges::transform(properties, std::back_inserter(names), &Property::name);
  return names;
}

const ClassFacts* factsOf(Token element) { return model().find(element); }

std::span<const ClassFacts* const> documentClasses() { return model().reachable; }

std::span<const Token> elementNames() { return model().elementNames; }

std::string typeInWords(const Property& property) {
  if (const auto words = property.allowedWords(); !words.empty()) {
    return "one of " + listOf(words, "or");
  }
  return std::string(rowOf(property).words);
}

ValueKind valueKind(const Property& property) { return rowOf(property).kind; }

std::string textOf(const Property& property, const base::Variant& value,
                   const std::locale& numbers) {
  std::ostringstream out;
  out.imbue(numbers);
  property.putXml(out, value);
  const std::string attribute = out.str();  // name="value"
  const std::size_t open = attribute.find('"');
  return open == attribute.npos ? "" : attribute.substr(open + 1, attribute.size() - open - 2);
}

std::string defaultText(const Property& property) {
  return textOf(property, property.defaultVariant());
}

}  // namespace vantry::check
