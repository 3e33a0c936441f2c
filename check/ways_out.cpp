#include "vantry/check/ways_out.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "vantry/check/characters.h"
#include "vantry/check/names.h"
#include "vantry/check/values.h"
#include "vantry/plot/document.h"

namespace vantry::check {

namespace Word = base::Word;

namespace {

/// A longer list of names helps nobody.
constexpr std::size_t few = 8;

std::string whereListed(const ClassFacts& facts, const std::string& what) {
  return std::string("zrd reference ") + facts.name.str() + " lists " + what;
}

/// The names of the children of an element that are so.
template <class Condition>
std::vector<Token> childrenThat(const ClassFacts& facts, Condition condition) {
  std::vector<Token> names;
  for (const ChildFacts& child : facts.children) {
    if (condition(*factsOf(child.name))) names.push_back(child.name);
  }
  return names;
}

std::vector<std::string_view> viewsOf(const std::vector<std::string>& words) {
  return {words.begin(), words.end()};
}

}  // namespace

std::string contentInWords(const ClassFacts& facts) {
  const std::string name = facts.name.str();
  if (facts.children.size() > few) return whereListed(facts, "what it takes");
  if (!facts.children.empty()) return name + " takes " + listOf(facts.childNames());
  return name + (facts.holdsText ? " takes text alone" : " takes no elements");
}

std::string attributesInWords(const ClassFacts& facts) {
  const std::string name = facts.name.str();
  if (facts.properties.empty()) return name + " has no attributes";
  if (facts.properties.size() > few) return whereListed(facts, "its attributes");
  return name + " has " + listOf(facts.propertyNames());
}

std::string wayInto(const ClassFacts& parent, Token name) {
  const auto takesIt = [name](const ClassFacts& facts) { return facts.takes(name); };
  std::vector<std::string> ways;
  for (const Token child : childrenThat(parent, takesIt)) ways.emplace_back(child.str());
  if (ways.empty()) {
    for (const ChildFacts& child : parent.children) {
      for (const Token inner : childrenThat(*factsOf(child.name), takesIt)) {
        ways.push_back(std::string(inner.str()) + " in " + child.name.str());
      }
    }
  }
  if (ways.empty() || ways.size() > few) return {};
  return "put it into " + listOf(viewsOf(ways), "or") + ", which " + parent.name.str() + " takes";
}

std::string parentsInWords(Token element) {
  const ClassFacts* facts = factsOf(element);
  if (!facts || facts->parents.empty()) return {};
  return std::string(element.str()) + " can be in " + listOf(facts->parents, "or");
}

std::string inOtherDimension(const ClassFacts& parent, std::string name) {
  const std::size_t digit = name.find_first_of("23");
  if (digit == name.npos) return {};
  name[digit] = name[digit] == '2' ? '3' : '2';
  const Token other = base::tokenOf(base::findWord(name));
  if (!other || !parent.takes(other)) return {};
  const bool isPlane = name[digit] == '2';
  return std::string(parent.name.str()) + " is in " + (isPlane ? "the plane" : "space") +
         ", where this is " + name;
}

namespace {

// clang-format off
constexpr struct {
  Token element;
  Token attribute;
  std::string_view value;
} exampleValues[] = {
    {Word::Obj2d,       Word::Type, "Curve2d"},
    {Word::Obj3d,       Word::Type, "Surface"},
    {Word::ObjStyle,    Word::Type, "Default"},
    {Word::ObjType,     Word::Type, "Curve2d"},
    {Word::Transform2d, Word::Type, "Translate2d"},
    {Word::Transform3d, Word::Type, "Translate3d"},
    {Word::Expr,        Word::Opt,  "Function"},
    {Word::ExprSeq,     Word::Opt,  "XRange"},
    {Word::ColorFunc,   Word::Opt,  "FillColorFunction"},
    {Word::Prop,        Word::Opt,  "Mesh"},
    {Word::Prop,        Word::Val,  "100"},
    {Word::PropCat,     Word::Name, "Colours"},
    {Word::PropInfo,    Word::Dom,  "LineColor"},
};
// clang-format on

}  // namespace

std::string exampleOf(const ClassFacts& element, Token attribute) {
  const Property* property = element.property(attribute);
  if (property && !property->allowedWords().empty()) {
    return std::string(attribute.str()) + " is " + typeInWords(*property);
  }
  const auto* row = std::ranges::find_if(exampleValues, [&](const auto& example) {
    return example.element == element.name && example.attribute == attribute;
  });
  if (row == std::end(exampleValues)) return {};
  return "write for example " + std::string(attribute.str()) + "=\"" + std::string(row->value) +
         '"';
}

namespace {

// clang-format off
/// What other languages of graphics call an attribute, in small letters, and what there is in its
/// place: attributes or points, or else what the remark says.
constexpr struct {
  std::string_view words;
  std::array<Token, 8> names;
  std::string_view remark = {};
} usualWords[] = {
    {" color colour ",
     {Word::LineColor, Word::FillColor, Word::PointColor, Word::TextFont, Word::LightColor, Word::BackgroundColor}},
    {" stroke strokecolor ", {Word::LineColor, Word::PointColor}},
    {" fill background ",    {Word::FillColor, Word::Filled, Word::BackgroundColor}},
    {" opacity fillopacity strokeopacity alpha transparency ",
     {Word::LineColor, Word::FillColor, Word::PointColor}, helpForOpacity},
    {" thickness strokewidth weight ", {Word::LineWidth, Word::PointSize}},
    {" size ",               {Word::PointSize, Word::TextFont, Word::Radius, Word::Width, Word::Height}},
    {" radius r ",
     {Word::Radius, Word::SemiAxisX, Word::SemiAxisY, Word::SemiAxisZ, Word::BaseRadius, Word::TopRadius, Word::TubeDiameter, Word::PointSize}},
    {" x y z ",
     {Word::Position, Word::Center, Word::From, Word::To, Word::Base, Word::Top, Word::Shift}},
    {" cx cy cz ",           {Word::Center, Word::Position}},
    {" x1 y1 z1 ",           {Word::From, Word::XMin, Word::YMin, Word::ZMin}},
    {" x2 y2 z2 ",           {Word::To, Word::XMax, Word::YMax, Word::ZMax}},
    {" start begin ",        {Word::From, Word::StartAngle, Word::TimeBegin}},
    {" end stop ",           {Word::To, Word::EndAngle, Word::TimeEnd}},
    {" dash strokedasharray linetype ", {Word::LineStyle}},
    {" marker symbol ",      {Word::PointStyle}},
    {" font fontfamily fontsize fontweight fontstyle ", {Word::TextFont}},
    {" align anchor textanchor ", {Word::HorizontalAlignment, Word::VerticalAlignment}},
    {" label text title caption ", {}, helpForTexts},
    {" value number ",       {Word::Val}},
    {" points vertices coordinates data ", {Word::P2, Word::P3}},
};
// clang-format on

/// A name in small letters, and without what is between its words.
std::string inSmallLetters(std::string_view name) {
  std::string letters;
  for (const char c : name) {
    const char letter = lowerCase(c);
    if ((letter >= 'a' && letter <= 'z') || (c >= '0' && c <= '9')) letters += letter;
  }
  return letters;
}

/// What an element has in place of an attribute that others call so.
std::vector<std::string> inPlaceOfUsualWord(const ClassFacts& facts, std::string_view name) {
  const auto* row = std::ranges::find_if(
      usualWords,
      [word = ' ' + inSmallLetters(name) + ' '](std::string_view words) {
        return words.find(word) != words.npos;
      },
      &std::remove_cvref_t<decltype(usualWords[0])>::words);
  if (row == std::end(usualWords)) return {};
  std::vector<std::string> names;
  for (const Token there : row->names) {
    if (there && facts.property(there)) names.emplace_back(there.str());
    if (there && facts.takes(there)) names.push_back(tagsOf(there));
  }
  if (names.empty()) {
    const bool isElsewhere = !row->names.front() && !facts.holdsText;
    return std::vector<std::string>(isElsewhere ? 1 : 0, std::string(row->remark));
  }
  return {
      "in place of " + shortened(name) + ", " + facts.name.str() + " has " + listOf(viewsOf(names)),
      std::string(row->remark)};
}

/// The attributes of an element that have a word in their names.
std::string attributesWith(const ClassFacts& facts, std::string_view word) {
  std::vector<Token> names = facts.propertyNames();
  std::erase_if(names, [word](Token name) {
    return std::string_view(name.str()).find(word) == std::string_view::npos;
  });
  if (word.size() < 3 || names.empty() || names.size() > few) return {};
  return facts.name.str() + std::string(" has ") + listOf(names);
}

/// What of an element's content an attribute belongs to.
std::string ownersWithin(const ClassFacts& facts, Token attribute) {
  if (!attribute) return {};
  const std::vector<Token> owners = childrenThat(
      facts, [attribute](const ClassFacts& child) { return child.property(attribute); });
  if (owners.empty() || owners.size() > few) return {};
  return "put it on " + listOf(owners, "or") + ", which " + facts.name.str() + " takes";
}

/// How an element is written whose name is used as that of an attribute.
std::string asElement(const ClassFacts& parent, Token name) {
  if (!parent.takes(name)) return {};
  const std::string word = name.str();
  const bool hasNumber = factsOf(name)->property(Word::Val);
  return word + " is an element: put " +
         (hasNumber ? '<' + word + " Val=\"...\"/>" : tagsOf(name)) + " into it";
}

}  // namespace

std::vector<std::string> helpForAttribute(const ClassFacts& facts, std::string_view name) {
  if (facts.name == Word::P2 || facts.name == Word::P3) {
    return {"a point has its numbers and colours between its tags"};
  }
  const Token known = base::tokenOf(base::findWord(name));
  if (std::string element = asElement(facts, known); !element.empty()) return {element};
  if (auto help = inPlaceOfUsualWord(facts, name); !help.empty()) return help;
  const std::string alike = attributesWith(facts, name);
  const std::string owners = alike.empty() ? ownersWithin(facts, known) : alike;
  return {owners.empty() ? attributesInWords(facts) : owners,
          facts.holdsText ? "text is between its tags: " + tagsOf(facts.name) : ""};
}

}  // namespace vantry::check
