#include "vantry/reader/xml_parser.h"

#define XML_DTD  // for the operations that bound what entities make of a document
#include <expat.h>

#include <cstring>
#include <string_view>

namespace vantry::reader {

namespace {

/// What a document may make of itself: so many times its own size, from so many bytes on.
constexpr float largestAmplification = 10;
constexpr std::uint32_t freeBytes = 1024 * 1024;

/// What the parser may keep of a document: so many times its size, from so many bytes on.
constexpr float largestShareOfMemory = 100;
constexpr unsigned long long freeMemory = 8 * 1024 * 1024;

/// For so many declared attributes a start tag counts like a byte: all of them are gone through.
constexpr std::size_t declarationsOfAByte = 16;

/// A token is read again with each block until it is as long as this.
constexpr std::int64_t longTokenSize = 16 * 1024;

/// Bounds the memory that a parser takes. A document is out of memory beyond it. A start tag whose
/// attributes have a long namespace is a product of both, before anybody is called. A parser that
/// does not know of such a bound takes what it needs.
template <class Handle>
void boundMemory(Handle parser) {
  if constexpr (requires { XML_SetAllocTrackerActivationThreshold(parser, freeMemory); }) {
    XML_SetAllocTrackerActivationThreshold(parser, freeMemory);
    XML_SetAllocTrackerMaximumAmplification(parser, largestShareOfMemory);
  }
}

/// Reads a token that is not complete only when it has grown to twice its size, or with each block.
/// Without the former a long token would cost the square of its length, which it does with a parser
/// that does not know of it. The latter finds an error in the block in which it is, and is what the
/// block with the end of a long token needs.
template <class Handle>
void deferReparsing(Handle parser, bool isDeferred) {
  if constexpr (requires { XML_SetReparseDeferralEnabled(parser, XML_TRUE); }) {
    XML_SetReparseDeferralEnabled(parser, isDeferred ? XML_TRUE : XML_FALSE);
  }
}

/// The bytes of a character of UTF-8, by its first one.
std::int64_t sizeOfCharacter(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0xC0 || byte >= 0xF8) return 1;
  return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

}  // namespace

/// What expat calls. Nothing says whether its frames can be unwound, so an exception is kept until
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

  static void XMLCALL startNamespace(void* parser, const char*, const char* uri) {
    guard(parser, [=](Parser& self) {
      if (!uri || self.countUnwritten(std::strlen(uri))) self.namespaces_.declare(uri);
    });
  }

  static void XMLCALL endNamespace(void* parser, const char*) {
    guard(parser, [](Parser& self) { self.namespaces_.endDeclaration(); });
  }

  static void XMLCALL declareAttribute(void* parser, const char*, const char*, const char*,
                                       const char*, int) {
    guard(parser, [](Parser& self) { ++self.declaredAttributes_; });
  }

  template <class Event>
  static void guard(void* parser, Event event) {
    Parser& self = *static_cast<Parser*>(parser);
    if (self.failure_ || self.isTooLarge_) return;
    try {
      event(self);
    } catch (...) {
      self.keepFailure();
    }
  }
};

void Parser::ParserDeleter::operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }

Parser::Parser(Handler* handler, bool namespaces, const char* encoding)
    : parser_(namespaces ? XML_ParserCreateNS(encoding, Namespaces::separator)
                         : XML_ParserCreate(encoding)),
      handler_(handler) {
  if (!parser_) return;
  deferReparsing(parser_.get(), false);
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser_.get(), largestAmplification);
  XML_SetBillionLaughsAttackProtectionActivationThreshold(parser_.get(), freeBytes);
  boundMemory(parser_.get());
  if (!handler_) return;
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), Callbacks::start, Callbacks::end);
  XML_SetCharacterDataHandler(parser_.get(), Callbacks::characters);
  XML_SetAttlistDeclHandler(parser_.get(), Callbacks::declareAttribute);
  XML_SetNamespaceDeclHandler(parser_.get(), Callbacks::startNamespace, Callbacks::endNamespace);
}

Parser::~Parser() = default;

// A parser that ran out of memory is left as it was then, and must not be used any more.
bool Parser::parse(const char* buffer, int length, bool isFinal) {
  bool isAccepted = false;
  if (parser_ && XML_GetErrorCode(parser_.get()) != XML_ERROR_NO_MEMORY) {
    size_ += length;
    const std::string_view block(buffer, static_cast<std::size_t>(length));
    deferReparsing(parser_.get(), longToken_ && !longToken_->isIn(block));
    isAccepted = XML_Parse(parser_.get(), buffer, length, isFinal) == XML_STATUS_OK;
    if (isAccepted) {
      noteToken();
    } else {
      longToken_.reset();  // a parser that defers takes more blocks as if nothing had happened
    }
  }
  if (failure_) std::rethrow_exception(failure_);
  if (!isAccepted && handler_) handler_->parseFailed();
  return isAccepted;
}

// Where the parser has not looked at the token again, it does not say where that begins.
void Parser::noteToken() {
  const std::int64_t begin = XML_GetCurrentByteIndex(parser_.get());
  if (begin < 0) return;
  if (begin != tokenBegin_) longToken_.reset();
  tokenBegin_ = begin;
  if (longToken_ || size_ - begin < longTokenSize) return;
  int offset = 0;
  int size = 0;
  if (const char* context = XML_GetInputContext(parser_.get(), &offset, &size)) {
    longToken_.emplace(std::string_view(context, static_cast<std::size_t>(size))
                           .substr(static_cast<std::size_t>(offset)));
  }
}

std::int32_t Parser::errorCode() const {
  if (!parser_) return -1;
  return isTooLarge_ ? XML_ERROR_AMPLIFICATION_LIMIT_BREACH : XML_GetErrorCode(parser_.get());
}

// The place of an invalid token is that of the character which makes it so. All other errors are
// found when the token is complete, in the last block.
std::int64_t Parser::errorEnd() const {
  const std::int64_t beyondAll = size_ + 1;
  if (errorCode() != XML_ERROR_INVALID_TOKEN) return beyondAll;
  const std::int64_t place = XML_GetCurrentByteIndex(parser_.get());
  int offset = 0;
  int size = 0;
  const char* const context = XML_GetInputContext(parser_.get(), &offset, &size);
  return context && offset < size ? place + sizeOfCharacter(context[offset]) : beyondAll;
}

std::int32_t Parser::lineNumber() const { return place().line; }

std::int32_t Parser::columnNumber() const { return place().column; }

std::int64_t Parser::byteOffset() const {
  return parser_ ? XML_GetCurrentByteIndex(parser_.get()) : -1;
}

Parser::Place Parser::place() const {
  if (!parser_) return {};
  if (stoppedAt_) return *stoppedAt_;
  return {static_cast<std::int32_t>(XML_GetCurrentLineNumber(parser_.get())),
          static_cast<std::int32_t>(XML_GetCurrentColumnNumber(parser_.get()))};
}

// A parser that is stopped goes on to the end of what it was about.
void Parser::stop() {
  stoppedAt_ = place();
  XML_StopParser(parser_.get(), XML_FALSE);
}

void Parser::keepFailure() {
  failure_ = std::current_exception();
  stop();
}

// The codes of a name, null for one that the handler does not know.
const NameCodes* Parser::lookUpElement(SplitName name) {
  const NameCodes* known = elementNames_.find(name.localName, name.space);
  return known ? known : askForElement(name);
}

const NameCodes* Parser::lookUpAttribute(const char* name) {
  const NameCodes* known = attributeNames_.find(name);
  return known ? known : askForAttribute(name);
}

const NameCodes* Parser::askForElement(SplitName name) {
  NameCodes codes;
  const bool isKnown =
      handler_->lookupElement(name.namespaceUri(), name.localName, codes.namespaceId, codes.nameId);
  return isKnown ? elementNames_.add(name.localName, codes, name.space) : nullptr;
}

const NameCodes* Parser::askForAttribute(const char* name) {
  const SplitName split = namespaces_.splitAttribute(name);
  auto& unknown = unknownAttributes_[split.space];
  if (unknown.contains(std::string_view(split.localName))) return nullptr;
  NameCodes codes;
  const bool isKnown = handler_->lookupAttribute(split.namespaceUri(), split.localName,
                                                 codes.namespaceId, codes.nameId);
  if (isKnown) return attributeNames_.add(name, codes);
  unknown.emplace(split.localName);
  return nullptr;
}

// Default attributes come behind all others. Of these a long namespace counts, which is repeated in
// front of each name.
bool Parser::countUnwritten(const char* const* namesAndValues) {
  const char* const* const defaults =
      namesAndValues + XML_GetSpecifiedAttributeCount(parser_.get());
  std::size_t bytes = declaredAttributes_ / declarationsOfAByte;
  for (; namesAndValues != defaults; namesAndValues += 2) {
    bytes += namespaces_.sizeOfLongNamespace(*namesAndValues);
  }
  for (; *namesAndValues; ++namesAndValues) bytes += std::strlen(*namesAndValues);
  return bytes == 0 || countUnwritten(bytes);
}

// False ends the parsing: there are too many of these bytes for those that the document has. A
// namespace counts in either case, since nothing says whether its declaration is a default; those
// that are written change the sum little.
bool Parser::countUnwritten(std::size_t bytes) {
  unwritten_ += static_cast<double>(bytes);
  const auto written = static_cast<double>(XML_GetCurrentByteIndex(parser_.get()) +
                                           XML_GetCurrentByteCount(parser_.get()));
  const double all = written + unwritten_;
  isTooLarge_ = all >= freeBytes && all > largestAmplification * written;
  if (isTooLarge_) stop();
  return !isTooLarge_;
}

void Parser::startElement(const char* name, const char* const* namesAndValues) {
  const bool mayHoldUnwritten = declaredAttributes_ > 0 || namespaces_.hasLongOnes();
  if (mayHoldUnwritten && !countUnwritten(namesAndValues)) return;
  open_.emplace_back();
  const SplitName split = namespaces_.splitElement(name);  // sees the names of skipped elements too
  if (handler_->isSkipping()) return handler_->enterSkipped();

  const NameCodes* element = lookUpElement(split);
  if (!element) return handler_->enterSkipped();
  open_.back() = *element;

  attributes_.clear();
  for (; *namesAndValues; namesAndValues += 2) {
    if (const NameCodes* attribute = lookUpAttribute(namesAndValues[0])) {
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

}  // namespace vantry::reader
