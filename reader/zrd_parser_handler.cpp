#include "vantry/reader/zrd_parser_handler.h"

#include <utility>

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/values/native_text.h"
#include "vantry/reader/attachment_rules.h"
#include "vantry/reader/in_quotes.h"
#include "vantry/reader/zrd_names.h"

namespace vantry::reader {

using namespace plot;
using base::Ref;
using base::WordId;
using dom::DomException;

ZrdParserHandler::ZrdParserHandler(PlotDocument* document, bool ignoreIds, Reporter reporter)
    : document_(document), keepIds_(!ignoreIds), reporter_(reporter) {
  document_->beginBatch();
  if (document_->documentElement()) return;
  const Ref<PlotElement> canvas(document_->createElement(Word::Canvas));
  document_->appendChild(canvas.get());
}

void ZrdParserHandler::report(const char* format, ...) const {
  if (!reporter_) return;
  va_list arguments;
  va_list again;
  va_start(arguments, format);
  va_copy(again, arguments);
  reporter_("ZRD error: ", arguments);
  reporter_(format, again);
  va_end(again);
  va_end(arguments);
}

void ZrdParserHandler::corrupted(const char* what, const char* text) const {
  report("%s data corrupted: '%s'\n", what, text);
  throw DomException(DomException::InvalidAccess,
                     "element " + inQuotes(what) + ", data " + inQuotes(text));
}

void ZrdParserHandler::incomplete(const char* what, const char* missing) const {
  report("%s data corrupted: '%s'\n", what, missing);
  throw DomException(DomException::InvalidAccess, "element " + inQuotes(what) + ", " + missing);
}

void ZrdParserHandler::illegal(const char* what) const {
  report("illegal %s [parent %s]\n", what, current_ ? current_->tagName().str() : "");
  throw DomException(DomException::InvalidAccess, inParent(what));
}

std::string ZrdParserHandler::inParent(const char* tag) const {
  return "element " + inQuotes(tag) +
         (current_ ? " in " + inQuotes(current_->tagName().str()) : "");
}

// Names.

bool ZrdParserHandler::isFormatName(std::string_view namespaceUri) const {
  if (!isForeignNamespace(namespaceUri)) return true;
  report("unknown namespace '%.*s'\n", static_cast<int>(namespaceUri.size()), namespaceUri.data());
  return false;
}

bool ZrdParserHandler::lookupElement(std::string_view namespaceUri, const char* localName,
                                     std::uint32_t& outNamespaceId, std::uint32_t& outElementId) {
  if (!isFormatName(namespaceUri)) return false;
  const WordId word = base::findWord(localName);
  if (!isElementName(word)) {
    report(word == WordId::none ? "unknown element '%s'\n" : "not an element '%s'\n", localName);
    return false;
  }
  outNamespaceId = 0;
  outElementId = static_cast<std::uint32_t>(word);
  return true;
}

bool ZrdParserHandler::lookupAttribute(std::string_view namespaceUri, const char* localName,
                                       std::uint32_t& outNamespaceId,
                                       std::uint32_t& outAttributeId) {
  if (!isFormatName(namespaceUri)) return false;
  const WordId word = base::findWord(localName);
  if (!isAttributeName(word)) {
    report(word == WordId::none ? "unknown attribute '%s'\n" : "not an attribute '%s'\n",
           localName);
    return false;
  }
  outNamespaceId = 0;
  outAttributeId = static_cast<std::uint32_t>(word);
  return true;
}

// Start tags.

namespace {

/// Does something of which the model may refuse a part, and has its refusal say what that was
/// about.
template <class Action, class About>
void sayingAbout(About about, Action action) {
  try {
    action();
  } catch (const DomException& refusal) {
    if (refusal.saysWhatWasRefused()) throw;
    throw DomException(refusal.code(), about());
  }
}

}  // namespace

void ZrdParserHandler::startElement(std::uint32_t, std::uint32_t elementId,
                                    const reader::AttributeList& attributes) {
  const auto word = static_cast<WordId>(elementId);
  sayingAbout([&] { return inParent(base::tokenOf(word).str()); },
              [&] { addElement(word, attributes); });
}

void ZrdParserHandler::addElement(WordId word, const reader::AttributeList& attributes) {
  if (word == WordId::P2 || word == WordId::P3) {
    collectText();
    childIndex_ = 0;
    return;
  }
  const AttachmentRule& rule = attachmentRule(word);
  if (!current_ && rule.place != Place::root) throw DomException(DomException::HierarchyRequest);

  Ref<PlotElement> element = makeElement(base::tokenOf(word), attributes);
  requireAttributes(*element);
  attach(*element, rule.place);
  if (rule.content == Content::words) wordBuffer_.clear();
  if (rule.content != Content::nothing) collectText();
  current_ = std::move(element);
}

Ref<PlotElement> ZrdParserHandler::makeElement(Token name,
                                               const reader::AttributeList& attributes) {
  Ref<PlotElement> element(document_->createElement(name));
  if (!element) throw DomException(DomException::HierarchyRequest);  // a host made something else
  for (const reader::Attribute& attribute : attributes) {
    const Token attributeName = base::tokenById(static_cast<int>(attribute.attributeId));
    if (!keepIds_ && attributeName == Word::Id) continue;
    setAttribute(*element, attributeName, attribute.value);
  }
  return element;
}

void ZrdParserHandler::setAttribute(PlotElement& element, Token name, const char* value) {
  sayingAbout(
      [&] {
        return "element " + inQuotes(element.tagName().str()) + ", attribute " +
               inQuotes(name.str()) + ", value " + inQuotes(value);
      },
      [&] { element.setAttributeFromString(name, value); });
}

namespace {

/// Refuses an element whose attribute is missing or does not hold what it must.
template <class Condition>
void requireAttribute(const PlotElement& element, Token name, Condition holds) {
  sayingAbout(
      [&] {
        return "element " + inQuotes(element.tagName().str()) + " needs attribute " +
               inQuotes(name.str());
      },
      [&] {
        if (!holds(element.getAttribute(name))) throw DomException(DomException::HierarchyRequest);
      });
}

void requireToken(const PlotElement& element, Token name) {
  requireAttribute(element, name, [](const Variant& value) {
    const auto token = value.as<base::TokenVariant>();
    return token && token->get() && token->get().str()[0] != '\0';
  });
}

void requireString(const PlotElement& element, Token name, bool notEmpty) {
  requireAttribute(element, name, [notEmpty](const Variant& value) {
    const auto string = value.as<base::FixedStringVariant>();
    const char* text = string ? string->get().c_str() : nullptr;
    return string && (!notEmpty || (text && text[0] != '\0'));
  });
}

}  // namespace

void ZrdParserHandler::requireAttributes(PlotElement& element) {
  switch (attachmentRule(base::wordOf(element.tagName())).required) {
    case Required::nothing:
      return;
    case Required::typeToken:
      return requireToken(element, Word::Type);
    case Required::optToken:
      return requireToken(element, Word::Opt);
    case Required::optTokenAndVal:
      requireToken(element, Word::Opt);
      return requireString(element, Word::Val, false);
    case Required::nameText:
      return requireString(element, Word::Name, true);
    case Required::domToken:
      return requireToken(element, Word::Dom);
  }
}

void ZrdParserHandler::attach(PlotElement& element, Place place) {
  if (place == Place::positional) return attachPositional(element);

  if (place == Place::append) current_->appendChild(&element);
  if (place == Place::unique) attachUnique(element);
  if (place == Place::root) attachRoot(element);
  childIndex_ = 0;
}

void ZrdParserHandler::attachUnique(PlotElement& element) {
  dom::Node* present = current_->firstChildByName(element.tagName());
  if (present) {
    current_->replaceChild(&element, present);
  } else {
    current_->appendChild(&element);
  }
}

// Fills the children that an element was made with, one after the other. The previous one leads to
// the next, so that a long list is not walked from its beginning for each.
void ZrdParserHandler::attachPositional(PlotElement& element) {
  dom::Node* present = nullptr;
  if (childIndex_ == 0) {
    present = current_->firstChild();
  } else if (previous_ && previous_->parent() == current_.get()) {
    present = previous_->nextSibling();
  } else {
    present = current_->childAt(childIndex_);
  }
  if (present) {
    current_->replaceChild(&element, present);
  } else {
    current_->appendChild(&element);
  }
  previous_ = &element;
  ++childIndex_;
}

void ZrdParserHandler::attachRoot(PlotElement& element) {
  if (dom::Node* root = document_->firstChild()) {
    document_->replaceChild(&element, root);
  } else {
    document_->appendChild(&element);
  }
  element.attachedToDocument();
}

// End tags.

void ZrdParserHandler::endElement(std::uint32_t, std::uint32_t elementId) {
  const auto word = static_cast<WordId>(elementId);
  sayingAbout([&] { return "end of element " + inQuotes(base::tokenOf(word).str()); },
              [&] { closeElement(word); });
}

void ZrdParserHandler::closeElement(WordId word) {
  switch (word) {
    case WordId::P2:
    case WordId::P3:
      return endPoint(word);
    case WordId::Canvas:
      current_ = nullptr;
      previous_ = nullptr;
      document_->endBatch();
      return;
    default:
      break;
  }
  if (!current_) throw DomException(DomException::HierarchyRequest);
  endContent(word);
  current_ = PlotElement::from(current_->parent());
}

void ZrdParserHandler::endContent(WordId element) {
  switch (attachmentRule(element).content) {
    case Content::nothing:
      return;
    case Content::text:
      return endText();
    case Content::words:
      return endArray();
  }
}

void ZrdParserHandler::endText() {
  trimText();
  const Ref<dom::Node> child(document_->createTextNode(nativeText(text()).c_str()));
  current_->appendChild(child.get());
}

void ZrdParserHandler::endArray() {
  appendText(" ", 1);
  const char* tag = current_->tagName().str();
  const auto* colors = elementCast<ColorArray2d>(current_.get());
  if (colors && isShort(*colors)) incomplete(tag, "colors missing");
  const auto* values = elementCast<DensityArray2d>(current_.get());
  if (values && isShort(*values)) incomplete(tag, "values missing");
}

void ZrdParserHandler::endPoint(WordId point) {
  const PointError error = appendPointTo(current_.get(), point);
  if (error != PointError::none) refusePoint(point, error);
}

PointError ZrdParserHandler::appendPointTo(PlotElement* list, WordId point) {
  if (point == WordId::P3) {
    P3List* inSpace = pointsInSpace(list);
    return inSpace ? appendPoint(*inSpace, text()) : PointError::misplaced;
  }
  P2List* inPlane = pointsInPlane(list);
  return inPlane ? appendPoint(*inPlane, text()) : PointError::misplaced;
}

// A colour after plain points, and a plain point after coloured ones, are called illegal; in space
// the same is called corrupted.
void ZrdParserHandler::refusePoint(WordId point, PointError error) {
  const char* tag = base::tokenOf(point).str();
  const bool isIllegal =
      error == PointError::misplaced || (error == PointError::unlikeOthers && point == WordId::P2);
  if (isIllegal) illegal(tag);
  corrupted(tag, text());
}

void ZrdParserHandler::appendText(const char* data, std::size_t length) {
  if (current_ && isElementOf<ColorArray2d, DensityArray2d>(*current_)) {
    splitWords(wordBuffer_, data, length,
               [this](const char* word) { appendCellTo(*current_, word); });
  } else {
    appendTextWithoutReturns(data, length);
  }
}

void ZrdParserHandler::appendCellTo(PlotElement& array, const char* word) {
  auto* colors = elementCast<ColorArray2d>(&array);
  const bool isTaken =
      colors ? appendCell(*colors, word) : appendCell(static_cast<DensityArray2d&>(array), word);
  if (!isTaken) refuseCell(word);
}

void ZrdParserHandler::refuseCell(const char* word) { corrupted(current_->tagName().str(), word); }

void ZrdParserHandler::parseFailed() {
  previous_ = nullptr;
  const Ref<dom::Node> oldRoot(document_->firstChild());
  if (oldRoot) document_->removeChild(oldRoot.get());
  const Ref<PlotElement> canvas(document_->createElement(Word::Canvas));
  document_->appendChild(canvas.get());
  if (document_->isInBatch()) document_->endBatch();
}

bool ZrdParser::parse(const char* buffer, int length, bool isFinal) {
  try {
    return Parser::parse(buffer, length, isFinal);
  } catch (const DomException&) {
    handler_->parseFailed();
    return false;
  }
}

}  // namespace vantry::reader
