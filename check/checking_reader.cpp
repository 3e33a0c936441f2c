#include "vantry/check/checking_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "vantry/base/scan.h"
#include "vantry/check/characters.h"
#include "vantry/check/names.h"
#include "vantry/check/values.h"
#include "vantry/check/ways_out.h"
#include "vantry/check/xml_errors.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/reader/attachment_rules.h"
#include "vantry/reader/zrd_names.h"

namespace vantry::check {

namespace Word = base::Word;
using base::WordId;
using dom::DomException;
using reader::AttributeList;

namespace {

/// The namespaces of codes: names of the format, and others.
constexpr std::uint32_t knownNames = 0;
constexpr std::uint32_t unknownNames = 1;

constexpr const char* formatNamespace = "http://www.example.org/xml/Corvane";

/// So much of a namespace is kept with each name that is in it. It is as long as its document
/// likes, and what differs behind that is taken for the same.
std::string_view beginningOf(std::string_view namespaceUri) { return namespaceUri.substr(0, 256); }

constexpr const char* formOfColor = "a colour is #RRGGBB or #RRGGBBAA";
constexpr const char* formOfNumber = "a number is as in 2, -0.5 or 1e-3";

/// What is wrong with a point that differs from those before it: it may be bad by itself.
Kind kindOfUnlike(std::string_view text, WordId point) {
  if (countNumbers(text) < (point == WordId::P2 ? 2 : 3)) return Kind::wrongCount;
  if (!firstBadNumber(text).empty()) return Kind::badNumber;
  return firstBadColor(text).empty() ? Kind::mixedPoints : Kind::badColor;
}

std::string formOf(const std::string& point) {
  return "a " + point +
         (point == "P2" ? " has two numbers, and perhaps a colour"
                        : " has three numbers, or six with its normal, and up to two colours");
}

/// Whether a refusal of a reader is one of those that it is meant to raise; any other ends the
/// check.
template <class Action>
bool passes(Action action) {
  try {
    action();
    return true;
  } catch (const DomException&) {
    return false;
  }
}

}  // namespace

std::size_t Origins::tagOf(const dom::Node& element) const {
  const auto tag = tags.find(&element);
  return tag == tags.end() ? 0 : tag->second;
}

CheckingReader::CheckingReader(plot::PlotDocument& document, const Source& source,
                               Findings& findings)
    : ZrdParserHandler(&document, true, nullptr),
      document_(document),
      source_(source),
      findings_(findings),
      parser_(this, true, nullptr) {
  document_.setRefusalListener(this);
}

CheckingReader::~CheckingReader() { document_.setRefusalListener(nullptr); }

// In blocks of the size that vantry takes, so that both make the same of every document.
bool CheckingReader::read() {
  constexpr std::size_t blockSize = 512;
  std::string_view rest = source_.document();
  for (bool isLast = false; !isLast;) {
    const std::string_view block = rest.substr(0, blockSize);
    rest.remove_prefix(block.size());
    isLast = block.size() < blockSize;
    if (parser_.parse(block.data(), static_cast<int>(block.size()), isLast)) continue;
    reportNotWellFormed();
    return false;
  }
  return true;
}

std::size_t CheckingReader::here() const {
  return source_.offsetOf(
      static_cast<std::size_t>(std::max<std::int64_t>(parser_.byteOffset(), 0)));
}

Span CheckingReader::placeOfValue(Token attribute) const {
  return source_.valueIn(here(), attribute.str()).value_or(source_.nameIn(here()));
}

Span CheckingReader::placeOfAttribute(std::string_view attribute) const {
  return source_.attributeIn(here(), attribute).value_or(source_.nameIn(here()));
}

void CheckingReader::markDamaged() {
  if (current()) origins_.damaged.insert(current());
}

void CheckingReader::refused(const plot::Refusal& refusal) { refusal_ = refusal.kind; }

// Names.

std::uint32_t CheckingReader::numberOf(std::string_view namespaceUri, const char* localName,
                                       bool isForeign) {
  unknownNames_.push_back({std::string(beginningOf(namespaceUri)), localName, isForeign});
  return static_cast<std::uint32_t>(unknownNames_.size() - 1);
}

bool CheckingReader::lookupElement(std::string_view namespaceUri, const char* localName,
                                   std::uint32_t& outNamespaceId, std::uint32_t& outElementId) {
  outNamespaceId = knownNames;
  if (ZrdParserHandler::lookupElement(namespaceUri, localName, outNamespaceId, outElementId)) {
    return true;
  }
  const bool isForeign = reader::isForeignNamespace(namespaceUri);
  outNamespaceId = unknownNames;
  outElementId = numberOf(namespaceUri, localName, isForeign);
  return true;
}

bool CheckingReader::lookupAttribute(std::string_view namespaceUri, const char* localName,
                                     std::uint32_t& outNamespaceId, std::uint32_t& outAttributeId) {
  outNamespaceId = knownNames;
  if (ZrdParserHandler::lookupAttribute(namespaceUri, localName, outNamespaceId, outAttributeId)) {
    return true;
  }
  if (namespaceUri == reader::xmlNamespace) return false;
  const bool isForeign = reader::isForeignNamespace(namespaceUri);
  outNamespaceId = unknownNames;
  outAttributeId = numberOf(namespaceUri, localName, isForeign);
  return true;
}

bool CheckingReader::reportForeignNamespace(const UnknownName& name, Span where) {
  if (!name.isForeign) return false;
  const std::optional<Span> declaration = source_.valueIn(here(), "xmlns");
  if (declaration && beginningOf(source_.textOf(*declaration)) == name.namespaceUri) {
    where = *declaration;
  }
  if (foreignNamespaces_.insert(name.namespaceUri).second) {
    findings_.add({.kind = Kind::unknownNamespace, .subject = shortened(name.namespaceUri)}, where,
                  {"plot documents have one that ends in /xml/Corvane, such as " +
                       std::string(formatNamespace) + ", or none",
                   "what is in another namespace is left out"});
  }
  return true;
}

void CheckingReader::reportUnknownElement(const UnknownName& name) {
  const Span where = source_.nameIn(here());
  if (reportForeignNamespace(name, where) || findings_.isFull(Kind::unknownElement)) return;
  const ClassFacts* parent = current() ? factsOf(current()->tagName()) : nullptr;
  std::vector<std::string> help;
  if (name.localName == "jvx-model" || name.localName == "jv-disp") {
    help.emplace_back("this is a file for JavaView, as vantry writes it, and no plot document");
  } else if (!parent) {
    help.emplace_back("the outermost element of a plot document is Canvas");
  } else {
    const std::vector<Token> children = parent->childNames();
    std::string_view nearest = nearestName(name.localName, children);
    const bool isHere = !nearest.empty();
    if (!isHere) nearest = nearestName(name.localName, elementNames());
    help.push_back(question(nearest));
    if (!isHere) {
      const std::string way = wayInto(*parent, base::tokenOf(base::findWord(nearest)));
      help.push_back(way.empty() ? contentInWords(*parent) : way);
    }
  }
  findings_.add({.kind = Kind::unknownElement, .subject = shortened(name.localName)}, where,
                std::move(help));
}

void CheckingReader::reportUnknownAttribute(Token element, const UnknownName& name) {
  const Span where = placeOfAttribute(name.localName);
  if (reportForeignNamespace(name, where) || findings_.isFull(Kind::unknownAttribute)) return;
  const Finding finding = {.kind = Kind::unknownAttribute, .subject = shortened(name.localName)};
  const ClassFacts* facts = factsOf(element);
  if (!facts) return findings_.add(finding, where);
  const std::string_view nearest = nearestName(name.localName, facts->propertyNames());
  if (!nearest.empty()) {
    meantAttributes_.push_back(nearest);
    return findings_.add(finding, where, {question(nearest)});
  }
  findings_.add(finding, where, helpForAttribute(*facts, name.localName));
}

AttributeList CheckingReader::knownAttributes(Token element, const AttributeList& attributes) {
  AttributeList known;
  meantAttributes_.clear();
  for (const reader::Attribute& attribute : attributes) {
    if (attribute.namespaceId == knownNames) {
      known.push_back(attribute);
    } else {
      reportUnknownAttribute(element, unknownNames_[attribute.attributeId]);
    }
  }
  return known;
}

// Start tags.

void CheckingReader::startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                                  const AttributeList& attributes) {
  if (namespaceId == unknownNames) {
    reportUnknownElement(unknownNames_[elementId]);
    markDamaged();
    return enterSkipped();
  }
  const Token name = base::tokenById(static_cast<int>(elementId));
  if (name == Word::Canvas && reportSecondCanvas()) return enterSkipped();

  const bool isPoint = name == Word::P2 || name == Word::P3;
  if (isPoint && isInPoint_) {
    reportNestedPoint(name);
    return enterSkipped();
  }
  const AttributeList known = knownAttributes(name, attributes);
  if (isPoint) {
    for (const reader::Attribute& attribute : known) {
      const Token foreign = base::tokenById(static_cast<int>(attribute.attributeId));
      findings_.add(
          {.kind = Kind::foreignAttribute, .subject = foreign.str(), .element = name.str()},
          placeOfAttribute(foreign.str()), helpForAttribute(*factsOf(name), foreign.str()));
    }
  } else if (current()) {
    reportReplacement(name);
  }
  refusal_.reset();
  if (!passes([&] { ZrdParserHandler::startElement(knownNames, elementId, known); })) {
    reportMisplaced(name, known);
    markDamaged();
    return enterSkipped();
  }
  open_.push_back(here());
  if (isPoint) {
    isInPoint_ = true;
    return;
  }
  origins_.tags[current()] = here();
  if (!meantAttributes_.empty()) markDamaged();
}

void CheckingReader::enterSkipped() {
  ZrdParserHandler::enterSkipped();
  open_.push_back(here());
}

void CheckingReader::leaveSkipped() {
  ZrdParserHandler::leaveSkipped();
  open_.pop_back();
}

bool CheckingReader::reportSecondCanvas() {
  if (!canvas_) {
    canvas_ = here();
    return false;
  }
  const int line = source_.placeOf({*canvas_, 0}).line;
  findings_.add({.kind = Kind::secondCanvas}, source_.nameIn(here()),
                {"put what it holds into the one in line " + std::to_string(line) +
                 ", or into a file of its own"});
  markDamaged();
  return true;
}

// What is left of the point around it is not judged.
void CheckingReader::reportNestedPoint(Token name) {
  const Span outer = source_.nameIn(open_.back());
  findings_.add({.kind = Kind::misplacedElement,
                 .subject = name.str(),
                 .element = std::string(source_.textOf(outer))},
                source_.nameIn(here()), {"each point has its own tags, one after the other"});
  markDamaged();
  hasNestedPoint_ = true;
}

// What an element is made with, and nobody has written, is not replaced but filled.
void CheckingReader::reportReplacement(Token name) {
  if (reader::attachmentRule(base::wordOf(name)).place != reader::Place::unique) return;
  const dom::Node* present = current()->firstChildByName(name);
  const auto tag = present ? origins_.tags.find(present) : origins_.tags.end();
  if (tag == origins_.tags.end()) return;
  const int line = source_.placeOf({tag->second, 0}).line;
  findings_.add({.kind = Kind::replacedElement, .subject = name.str()}, source_.nameIn(here()),
                {"the one before it is in line " + std::to_string(line)});
}

void CheckingReader::reportMisplaced(Token name, const AttributeList& attributes) {
  const Span where = source_.nameIn(here());
  if (!current()) {
    const Kind kind = canvas_ ? Kind::misplacedElement : Kind::wrongRoot;
    findings_.add({.kind = kind, .subject = name.str(), .element = "the document"}, where,
                  {parentsInWords(name)});
    return;
  }
  const ClassFacts& parent = *factsOf(current()->tagName());
  Finding finding = {
      .kind = Kind::tooManyChildren, .subject = name.str(), .element = parent.name.str()};
  std::vector<std::string> help;
  if (!parent.takes(name)) {
    finding.kind = Kind::misplacedElement;
    if (findings_.isFull(finding.kind)) return;
    help = {inOtherDimension(parent, name.str()), wayInto(parent, name)};
    if (help[0].empty() && help[1].empty()) help.push_back(contentInWords(parent));
    help.push_back(parentsInWords(name));
  } else if (refusal_ == plot::RefusalKind::foreignChild) {
    // It is refused for its type, as its name may be here.
    const auto type = std::ranges::find_if(attributes, [](const reader::Attribute& attribute) {
      return attribute.attributeId == static_cast<std::uint32_t>(WordId::Type);
    });
    finding.kind = Kind::misplacedObject;
    finding.subject = type == attributes.end() ? "" : shortened(type->value);
    findings_.add(finding, placeOfValue(Word::Type),
                  {"cameras and lights belong directly into the coordinate system"});
    return;
  } else if (const dom::Node* present = current()->firstChildByName(name)) {
    const int line = source_.placeOf({origins_.tagOf(*present), 0}).line;
    help.push_back("the first one is in line " + std::to_string(line));
  }
  findings_.add(finding, where, std::move(help));
}

// Attributes.

void CheckingReader::setAttribute(PlotElement& element, Token name, const char* value) {
  refusal_.reset();
  const bool isTaken = passes([&] { ZrdParserHandler::setAttribute(element, name, value); });
  const Property* property = element.findProperty(name);
  if (!isTaken) {
    origins_.damaged.insert(&element);
    return reportValue(element, name, value);
  }
  if (!property) return;
  const Span where = placeOfValue(name);
  if (!reviewValue(*property, element.getAttribute(name), value, where, findings_)) {
    origins_.damaged.insert(&element);
  }
}

void CheckingReader::reportValue(const PlotElement& element, Token name, const char* value) {
  const Property* property = element.findProperty(name);
  const ClassFacts& facts = *factsOf(element.tagName());
  const bool isOutOfRange = refusal_ == plot::RefusalKind::illegalValue;
  Finding finding = {.kind = isOutOfRange ? Kind::valueOutOfRange : Kind::badValue,
                     .subject = name.str(),
                     .element = element.tagName().str(),
                     .detail = shortened(value)};
  if (!property) {
    const std::string_view nearest = nearestName(name.str(), facts.propertyNames());
    finding.kind = Kind::foreignAttribute;
    if (findings_.isFull(finding.kind)) return;
    return findings_.add(
        finding, placeOfAttribute(name.str()),
        nearest.empty() ? helpForAttribute(facts, name.str()) : std::vector{question(nearest)});
  }
  if (isBlank(value) && facts.needs(name)) {
    finding.kind = Kind::missingAttribute;
    findings_.add(finding, placeOfValue(name), {exampleOf(facts, name)});
    return;
  }
  findings_.add(finding, placeOfValue(name), helpForValue(*property, value));
}

// An element without what it needs gets something in its place, so that what is in it is read.
void CheckingReader::requireAttributes(PlotElement& element) {
  if (passes([&] { ZrdParserHandler::requireAttributes(element); })) return;
  const ClassFacts& facts = *factsOf(element.tagName());
  for (const Token name : facts.required) {
    const std::optional<Span> value = source_.valueIn(here(), name.str());
    if (value && origins_.isDamaged(element)) continue;                  // it was refused
    if (std::ranges::count(meantAttributes_, name.str()) > 0) continue;  // it is misspelt
    findings_.add(
        {.kind = Kind::missingAttribute, .subject = name.str(), .element = element.tagName().str()},
        value.value_or(source_.nameIn(here())), {exampleOf(facts, name)});
  }
  origins_.damaged.insert(&element);
  if (facts.children.empty()) return;
  for (const Token name : facts.required) {
    passes([&] { element.setAttributeFromString(name, Word::Default.str()); });
  }
}

// Content and end tags.

void CheckingReader::characters(const char* data, std::size_t length) {
  if (isCollecting()) {
    ZrdParserHandler::characters(data, length);
    return;
  }
  const std::string_view text(data, length);
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == text.npos || !current() || !withStrayText_.insert(current()).second) return;
  const std::string_view stray = text.substr(first, text.find_last_not_of(blanks) + 1 - first);
  const Span where{here() + first, stray.size()};
  const bool isAsWritten = source_.textOf(where) == stray;
  const ClassFacts& facts = *factsOf(current()->tagName());
  findings_.add({.kind = Kind::strayText, .element = current()->tagName().str()},
                isAsWritten ? where : source_.referenceAt(here()),
                {facts.children.empty() ? attributesInWords(facts) : contentInWords(facts)});
}

void CheckingReader::endElement(std::uint32_t namespaceId, std::uint32_t elementId) {
  const auto word = static_cast<WordId>(elementId);
  const bool isPoint = word == WordId::P2 || word == WordId::P3;
  ZrdParserHandler::endElement(namespaceId, elementId);
  if (isPoint && !isPointRefused_ && !hasNestedPoint_) reviewPoint(word);
  if (isPoint) isInPoint_ = isPointRefused_ = hasNestedPoint_ = false;
  open_.pop_back();
}

void CheckingReader::endContent(WordId element) {
  if (reader::attachmentRule(element).content != reader::Content::words) {
    return ZrdParserHandler::endContent(element);  // any text is taken
  }
  if (passes([&] { ZrdParserHandler::endContent(element); })) return reportInfiniteCell();
  if (origins_.isDamaged(*current())) return;  // what is missing was refused before
  markDamaged();
  reportTooFewCells();
}

namespace {

constexpr const char* helpForCells = "the entries are finite numbers with blanks between them";

}  // namespace

void CheckingReader::reportTooFewCells() {
  const auto compare = [](std::size_t entries, std::int64_t columns, std::int64_t rows) {
    return std::to_string(entries) + " for " + counted(columns, "column") + " and " +
           counted(rows, "row");
  };
  const auto* colors = plot::elementCast<plot::ColorArray2d>(current());
  const auto* values = plot::elementCast<plot::DensityArray2d>(current());
  const std::string detail = colors
                                 ? compare(colors->colors.size(), colors->xMesh(), colors->yMesh())
                                 : compare(values->values.size(), values->xMesh(), values->yMesh());
  findings_.add(
      {.kind = Kind::tooFewCells, .element = current()->tagName().str(), .detail = detail},
      source_.nameIn(open_.back()),
      {"write an entry for each of them, or make XMesh or YMesh smaller; either is 1 where it "
       "is not given"});
}

// The first of an array is enough. One that is not in the text comes from an entity.
void CheckingReader::reportInfiniteCell() {
  const auto* array = plot::elementCast<plot::DensityArray2d>(current());
  if (!array) return;
  const auto cell =
      std::ranges::find_if_not(array->values, [](double v) { return std::isfinite(v); });
  if (cell == array->values.end()) return;
  const Span content = source_.contentOf(open_.back(), here());
  const std::string characters = source_.charactersOf(content);
  const std::string_view number = firstNotFinite(characters, std::numeric_limits<int>::max());
  if (number.empty()) {
    findings_.add({.kind = Kind::notFinite, .detail = std::to_string(*cell)},
                  source_.nameIn(open_.back()), {helpForCells});
  } else {
    const auto offset = static_cast<std::size_t>(number.data() - characters.data());
    findings_.add({.kind = Kind::notFinite, .detail = shortened(number)},
                  {content.begin + offset, number.size()}, {helpForCells});
  }
}

void CheckingReader::refusePoint(WordId point, reader::PointError error) {
  isPointRefused_ = true;
  if (hasNestedPoint_) return;
  const Token name = base::tokenOf(point);
  const ClassFacts& facts = *factsOf(current() ? current()->tagName() : Word::Canvas);
  const bool isUnlike = error == reader::PointError::unlikeOthers;
  Finding finding = {.kind = isUnlike ? kindOfUnlike(text(), point) : kindOf(error),
                     .subject = name.str(),
                     .element = facts.name.str()};
  Span where = source_.contentOf(open_.back(), here());
  std::vector<std::string> help;
  if (error == reader::PointError::misplaced) {
    where = source_.nameIn(open_.back());
    help = {inOtherDimension(facts, name.str()), parentsInWords(name)};
  } else {
    describePoint(finding, where, help);
  }
  findings_.add(finding, where, std::move(help));
  markDamaged();
}

// What is wrong with a point that its list could take, by the words in its text.
void CheckingReader::describePoint(Finding& finding, Span& where,
                                   std::vector<std::string>& help) const {
  if (finding.kind == Kind::wrongCount) {
    finding.detail = countsInWords(text());
    help.push_back(helpForCommas(text()));
  } else if (finding.kind == Kind::badNumber || finding.kind == Kind::badColor) {
    const bool isColor = finding.kind == Kind::badColor;
    const std::string_view bad = isColor ? firstBadColor(text()) : firstBadNumber(text());
    finding.detail = shortened(bad.empty() ? text() : bad);
    if (!bad.empty()) where = source_.findWord(where, bad).value_or(where);
    help = isColor ? std::vector<std::string>{helpForColorName(std::string(bad)), formOfColor}
                   : std::vector<std::string>{helpForCommas(bad)};
  }
  help.push_back(formOf(finding.subject));
}

bool CheckingReader::isLastPointFinite(WordId point) const {
  if (point == WordId::P2) {
    const plot::P2& last = reader::pointsInPlane(current())->points.back();
    return std::isfinite(last.x) && std::isfinite(last.y);
  }
  const plot::P3& last = reader::pointsInSpace(current())->points.back();
  return std::isfinite(last.x) && std::isfinite(last.y) && std::isfinite(last.z);
}

// Where a part of the text of the point that ends is in the document.
Span CheckingReader::placeInPoint(std::string_view part) const {
  const Span data = source_.contentOf(open_.back(), here());
  const std::size_t at = source_.charactersOf(data).rfind(part);
  return at == std::string::npos ? data : Span{data.begin + at, part.size()};
}

// The first of a list is enough.
void CheckingReader::reportNotFinite(WordId point) {
  if (!withInfinitePoint_.insert(current()).second) return;
  const std::string_view number = firstNotFinite(text(), point == WordId::P2 ? 2 : 3);
  const Span where = source_.findWord(source_.contentOf(open_.back(), here()), number)
                         .value_or(placeInPoint(number));
  findings_.add({.kind = Kind::notFinite, .detail = shortened(number)}, where,
                {"leave the point out, or end the list before it and begin another one"});
}

// A point that was taken may have more to it than is looked at.
void CheckingReader::reviewPoint(WordId point) {
  if (!isLastPointFinite(point)) reportNotFinite(point);
  const int numbers = point == WordId::P2 ? 2 : 6;
  if (hasPlainNumbers(text(), numbers)) return;
  const std::string_view unused = unusedPartOfPoint(text(), numbers);
  if (unused.empty()) return;
  const std::string name = base::tokenOf(point).str();
  findings_.add(
      {.kind = Kind::textAfterValue, .subject = "this " + name, .detail = shortened(unused)},
      placeInPoint(unused), {helpForCommas(unused), formOf(name)});
}

void CheckingReader::refuseCell(const char* word) {
  markDamaged();
  const bool isColor = plot::isElementOf<plot::ColorArray2d>(*current());
  const Kind kind = isColor ? Kind::badColor : Kind::badNumber;
  if (findings_.isFull(kind)) return;
  constexpr std::size_t nearby = 4096;  // a word comes to its end in the block after its beginning
  if (behindLastCell_ < open_.back()) behindLastCell_ = source_.behindTag(open_.back());
  const std::size_t begin = std::max(behindLastCell_, here() - std::min(here(), nearby));
  const std::optional<Span> found = source_.findWord({begin, here() + nearby - begin}, word);
  if (found) behindLastCell_ = found->begin + found->size;
  findings_.add({.kind = kind, .detail = shortened(word)},
                found.value_or(source_.nameIn(open_.back())),
                isColor ? std::vector<std::string>{helpForColorName(word), formOfColor}
                        : std::vector<std::string>{helpForCommas(word), formOfNumber});
}

void CheckingReader::reportNotWellFormed() {
  auto [mistake, concernsOpenElement] =
      describeXmlError(parser_.errorCode(), source_.text(), here(), !open_.empty());
  std::vector<std::string> help = std::move(mistake.help);
  const Span name = concernsOpenElement ? source_.nameIn(open_.back()) : Span();
  if (name.size > 0) {  // none if the element is in an entity
    help.insert(help.begin(), "the element that is open is " + shortened(source_.textOf(name)) +
                                  " in line " + std::to_string(source_.placeOf(name).line));
  }
  findings_.add({.kind = Kind::notWellFormed, .detail = mistake.reason}, {mistake.place, 0},
                std::move(help));
}

}  // namespace vantry::check
