#include "made_document.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Word = vantry::base::Word;
using namespace std::string_view_literals;
using namespace vantry::check;

namespace {

/// Numbers that are no ordinary ones.
constexpr const char* rareNumbers[] = {"nan", "inf", "-inf", "-1", "-2.5", "1e300", "0"};

}  // namespace

std::string DocumentMaker::number() {
  if (oneIn(40)) return oneOf(rareNumbers);
  return std::to_string(below(9)) + '.' + std::to_string(below(100));
}

std::string DocumentMaker::numbers(int count) {
  std::string text = number();
  while (--count > 0) text += ' ' + number();
  return text;
}

std::string DocumentMaker::color() {
  static constexpr const char* const colors[] = {"#FF0000", "#00ff00", "#0000FF80", "#123456"};
  return oneOf(colors);
}

std::string DocumentMaker::value(const Property& property) {
  const auto words = property.allowedWords();
  if (!words.empty()) return oneOf(words).str();
  switch (valueKind(property)) {
    case ValueKind::yesOrNo:
      return oneIn(2) ? "1" : "0";
    case ValueKind::wholeNumber:
      return std::to_string(1 + below(3));
    case ValueKind::number:
      if (oneIn(100)) return oneOf(rareNumbers);
      return std::to_string(1 + below(4)) + (oneIn(2) ? ".5" : "");
    case ValueKind::color:
      return color();
    case ValueKind::planePoint:
      return numbers(2);
    case ValueKind::spacePoint:
      return numbers(3);
    case ValueKind::word: {
      static constexpr Token types[] = {Word::Default, Word::Curve2d, Word::Sphere, Word::Box};
      static constexpr Token placedTypes[] = {Word::Camera, Word::PointLight, Word::SpotLight};
      return (oneIn(8) ? oneOf(placedTypes) : oneOf(types)).str();
    }
    case ValueKind::font:
      return oneIn(4) ? "Caf\xC3\xA9 10" : "serif 10 Bold";
    case ValueKind::text:
      return "some text";
  }
  return "";
}

std::string DocumentMaker::attributes(const ClassFacts& facts, const std::string& fixed) {
  std::string text = fixed;
  int further = mostAttributes_;
  for (const Property* property : facts.properties) {
    const std::string name = property->name().str();
    const bool isRequired =
        facts.needs(property->name()) || (property->isMandatory() && name == "Type");
    const bool isFixed = fixed.find(' ' + name + '=') != fixed.npos;
    if (isFixed || !(isRequired || (oneIn(5) && further-- > 0))) continue;
    text += ' ' + name + "=\"" + value(*property) + '"';
  }
  return text;
}

std::string DocumentMaker::points(Token name, int count) {
  const bool isPlane = name == Word::P2;
  const bool hasNormals = !isPlane && oneIn(4);
  const int colors = below(isPlane ? 2 : 3);
  std::string text;
  for (; count > 0; --count) {
    text += std::string("<") + name.str() + '>' + numbers(isPlane ? 2 : hasNormals ? 6 : 3);
    for (int i = 0; i < colors; ++i) text += ' ' + color();
    text += std::string("</") + name.str() + '>';
  }
  return text;
}

/// An element with data, as many as it needs.
std::string DocumentMaker::list(const ClassFacts& facts) {
  const std::string name = facts.name.str();
  const int columns = 1 + below(3);
  const int rows = 1 + below(3);
  std::string fixed;
  int count = below(3) * 12;
  if (facts.name == Word::Mesh3d) {
    fixed = " UMesh=\"" + std::to_string(columns) + "\" VMesh=\"" + std::to_string(rows) +
            "\" USubmesh=\"0\" VSubmesh=\"0\"";
    count = columns * rows;
  }
  std::string data;
  if (facts.holdsText) {
    fixed = " XMesh=\"" + std::to_string(columns) + "\" YMesh=\"" + std::to_string(rows) + '"';
    for (int i = 0; i < columns * rows; ++i) {
      data += ' ' + (facts.name == Word::ColorArray2d ? color() : number());
    }
  } else {
    data = points(facts.children.front().name, count);
  }
  return '<' + name + attributes(facts, fixed) + '>' + data + "</" + name + '>';
}

std::string DocumentMaker::children(const ClassFacts& facts, int depth) {
  static constexpr std::array needed = {Word::Scene2d,
                                        Word::Scene3d,
                                        Word::CoordinateSystem2d,
                                        Word::CoordinateSystem3d,
                                        Word::Img2d,
                                        Word::Img3d,
                                        Word::Tr2d,
                                        Word::Tr3d};
  std::string text;
  bool hasNeeded = false;
  for (const ChildFacts& child : facts.children) {
    if (std::ranges::find(needed, child.name) == needed.end() || hasNeeded) continue;
    if (facts.name == Word::Canvas && oneIn(2) && child.name == Word::Scene2d) continue;
    hasNeeded = true;
    text += element(*factsOf(child.name), depth + 1);
  }
  for (int i = below(depth < 5 ? 5 : 3); i > 0 && !facts.children.empty(); --i) {
    const ChildFacts& child = oneOf(facts.children);
    if (child.isSingle && oneIn(2)) continue;
    if (--elementsLeft_ > 0) text += element(*factsOf(child.name), depth + 1);
  }
  return text;
}

std::string DocumentMaker::element(const ClassFacts& facts, int depth) {
  const std::string name = facts.name.str();
  const bool isArray = facts.name == Word::ColorArray2d || facts.name == Word::DensityArray2d;
  const bool hasPoints = !facts.children.empty() && (facts.children.front().name == Word::P2 ||
                                                     facts.children.front().name == Word::P3);
  if (isArray || hasPoints) return list(facts);
  const std::string text = oneIn(20) ? "caf\xC3\xA9" : "a text";
  const std::string content = facts.holdsText ? text : children(facts, depth);
  return '<' + name + attributes(facts, "") + '>' + content + "</" + name + '>';
}

std::string DocumentMaker::make() {
  elementsLeft_ = 60;
  return element(*factsOf(Word::Canvas), 0);
}

namespace {

/// What does not belong where it comes. The last ones are bytes that are no text in UTF-8.
// clang-format off
constexpr std::array pieces = {
    "x"sv, "2"sv, " "sv, "#"sv, "-"sv, "nan"sv, "1e999"sv, "#FF"sv, "Flat"sv, "\xC3\xA9"sv, ""sv,
    "\""sv, "<"sv, ">"sv, "/>"sv, "&"sv, "<!-- -- -->"sv, "a=\"1\" a=\"2\""sv, "Type=\"\""sv,
    "Obj3d"sv, "<Canvas>"sv, "<Img2d/>"sv, "<Sphere/>"sv, "<Obj3d Type=\"Camera\"/>"sv,
    "<P2>1 2</P2>"sv, "<P3>1 2 3</P3>"sv,
    "\xE9"sv, "\x80"sv, "\xFF\xFE"sv, "\xEF\xBF\xBE"sv, "\xED\xA0\x80"sv, "\0"sv,
};
// clang-format on

constexpr std::array piecesThatComeOften = {
    "<P2>a b</P2>"sv, "<P3>1 2 nan</P3>"sv, "<Unknown/>"sv, "<Img2d/>"sv,
    "<Header/>"sv,    "<IExpr/>"sv,         "text"sv,       "<Text2d Position=\"1 x\"/>"sv};

}  // namespace

std::string DocumentMaker::withMistake(std::string document) {
  const auto size = static_cast<int>(document.size());
  const auto at = static_cast<std::size_t>(below(size));
  const std::size_t edge = document.find_first_of("<>\" ", at);
  const std::size_t begin = edge == document.npos ? at : edge;
  switch (below(6)) {
    case 0:
      return document.erase(at, 1);
    case 1:
      return document.insert(begin, oneOf(pieces));
    case 2: {
      const std::size_t end = document.find_first_of("<>\" ", begin + 1);
      return document.erase(begin, end == document.npos ? end : end - begin);
    }
    case 3: {
      const std::size_t from = document.find('<', at);
      const std::size_t to = from == document.npos ? from : document.find('<', from + 1);
      if (to == document.npos) return document;
      return document.insert(begin, document.substr(from, to - from));
    }
    case 4: {
      const std::size_t close = document.find('>', at);
      return close == document.npos ? document : document.insert(close + 1, manyPieces());
    }
    default: {
      const std::size_t quote = document.find("=\"", at);
      const std::size_t close = quote == document.npos ? quote : document.find('"', quote + 2);
      if (close == document.npos) return document;
      return document.replace(quote + 2, close - quote - 2, oneOf(pieces));
    }
  }
}

/// One piece again and again, all in one line.
std::string DocumentMaker::manyPieces() {
  const std::string_view piece = oneOf(piecesThatComeOften);
  std::string line;
  for (int count = below(200); count > 0; --count) line += piece;
  return line;
}
