#include "reader/xml_parser.h"

#include <expat.h>

#include <cstring>

namespace Xml {

namespace {

/// Stands between namespace and local part in the names that expat gives. No document can hold it.
constexpr char nameSeparator = '\x01';

}  // namespace

/// What expat calls. Nothing tells whether its frames can be unwound, so an exception is kept until
/// they are gone, and nothing reaches the handler in between.
struct Parser::Callbacks {
  static void XMLCALL start(void* parser, const char* name, const char** namesAndValues) {
    guard(parser, [=](Parser& self) { self.startElement(name, namesAndValues); });
  }

  static void XMLCALL end(void* parser, const char*) {
    guard(parser, [](Parser& self) { self.endElement(); });
  }

  static void XMLCALL characters(void* parser, const char* data, int length) {
    guard(parser, [=](Parser& self) { self.characters(data, length); });
  }

  template <class Event>
  static void guard(void* parser, Event event) {
    Parser& self = *static_cast<Parser*>(parser);
    if (self.failure_) return;
    try {
      event(self);
    } catch (...) {
      self.failure_ = std::current_exception();
    }
  }
};

void Parser::ParserDeleter::operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }

Parser::Parser(Handler* handler, bool namespaces, const char* encoding)
    : parser_(namespaces ? XML_ParserCreateNS(encoding, nameSeparator)
                         : XML_ParserCreate(encoding)),
      handler_(handler),
      namespaces_(namespaces) {
  if (!parser_ || !handler_) return;
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), Callbacks::start, Callbacks::end);
  XML_SetCharacterDataHandler(parser_.get(), Callbacks::characters);
}

Parser::~Parser() = default;

bool Parser::parse(const char* buffer, int length, bool isFinal) {
  const bool accepted =
      parser_ && XML_Parse(parser_.get(), buffer, length, isFinal) == XML_STATUS_OK;
  if (failure_) std::rethrow_exception(failure_);
  if (!accepted && handler_) handler_->parseFailed();
  return accepted;
}

std::int32_t Parser::errorCode() const { return parser_ ? XML_GetErrorCode(parser_.get()) : -1; }

std::int32_t Parser::lineNumber() const {
  return parser_ ? static_cast<std::int32_t>(XML_GetCurrentLineNumber(parser_.get())) : 0;
}

std::int32_t Parser::columnNumber() const {
  return parser_ ? static_cast<std::int32_t>(XML_GetCurrentColumnNumber(parser_.get())) : 0;
}

// Names of one namespace come in runs, so the last one is kept.
Parser::Name Parser::splitName(const char* name) {
  const std::size_t size = namespace_.size();
  if (size > 0 && std::strncmp(name, namespace_.c_str(), size) == 0) {
    if (name[size] == nameSeparator) return {namespace_.c_str(), name + size + 1};
  }
  const char* separator = namespaces_ ? std::strrchr(name, nameSeparator) : nullptr;
  if (!separator) return {nullptr, name};
  namespace_.assign(name, separator);
  return {namespace_.c_str(), separator + 1};
}

// The codes of a name, null for one that the handler does not know.
const NameCodes* Parser::lookUp(const char* name, RecentNames& recent, HandlerLookup lookup) {
  if (const NameCodes* known = recent.find(name)) return known;
  const Name split = splitName(name);
  NameCodes codes;
  const bool isKnown =
      (handler_->*lookup)(split.namespaceUri, split.localName, codes.namespaceId, codes.nameId);
  return isKnown ? recent.add(name, codes) : nullptr;
}

void Parser::startElement(const char* name, const char* const* namesAndValues) {
  open_.emplace_back();
  if (handler_->isSkipping()) return handler_->enterSkipped();

  const NameCodes* element = lookUp(name, elementNames_, &Handler::lookupElement);
  if (!element) return handler_->enterSkipped();
  open_.back() = *element;

  attributes_.clear();
  for (; *namesAndValues; namesAndValues += 2) {
    const NameCodes* attribute =
        lookUp(namesAndValues[0], attributeNames_, &Handler::lookupAttribute);
    if (attribute) {
      attributes_.push_back({attribute->namespaceId, attribute->nameId, namesAndValues[1]});
    }
  }
  handler_->startElement(element->namespaceId, element->nameId, attributes_);
}

void Parser::endElement() {
  const std::optional<NameCodes> element = open_.back();
  open_.pop_back();
  if (handler_->isSkipping()) return handler_->leaveSkipped();

  if (element) handler_->finishElement(element->namespaceId, element->nameId);
}

void Parser::characters(const char* data, int length) {
  if (!handler_->isSkipping()) handler_->characters(data, static_cast<std::size_t>(length));
}

}  // namespace Xml
