// The XML parser: bytes in, calls of a handler out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "vantry/reader/namespaces.h"
#include "vantry/reader/recent_names.h"
#include "vantry/reader/token_end.h"
#include "vantry/reader/xml_handler.h"

struct XML_ParserStruct;  // expat's parser

namespace vantry::reader {

/// Takes one document in blocks and passes its elements and text to a handler. Comments, processing
/// instructions and the document type reach nobody; CDATA sections arrive as text.
///
/// What a document makes of itself is bounded: once its entities come to a megabyte, they may make
/// it ten times as long as it is. The same holds for its default attributes and namespaces, and for
/// namespaces of more than 256 bytes in the names of attributes; a start tag counts for a byte more
/// with each 16 attributes that the document type declares. A document beyond that is refused with
/// the parser's error 43.
class Parser {
 public:
  /// `handler` may be null; it is not owned and must outlive the parser. With `namespaces` true a
  /// name is looked up by namespace and local part, otherwise whole. `encoding` overrules the
  /// encoding that the document declares, unless it is null.
  Parser(Handler* handler, bool namespaces, const char* encoding);
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  virtual ~Parser();

  /// Takes the next `length` bytes of the document; `isFinal` is true for the last block, which may
  /// be empty. Returns false, after the handler's parseFailed(), when the document is not well
  /// formed; so does each later call. An exception of the handler leaves this operation, and the
  /// parser stays where it was thrown; the document cannot be parsed on after it, and each later
  /// call throws it again.
  bool parse(const char* buffer, int length, bool isFinal);

  /// The number of the parser's last error, 0 for none; -1 if no parser could be created.
  std::int32_t errorCode() const;

  /// To be asked when parse() has failed for the first time: how many bytes of the document show
  /// the error. They may be less than it took by several blocks, for a long token is not read again
  /// until it has grown or ends. They are more than it took if only the last block shows the error.
  std::int64_t errorEnd() const;

  /// The line that the parser has reached, counted from 1; 0 if no parser could be created.
  std::int32_t lineNumber() const;

  /// The place in that line, in bytes, counted from 0.
  std::int32_t columnNumber() const;

  /// The same place, in bytes from the beginning of the document, or -1 before its first token.
  /// While a handler is called that is the beginning of the tag or the text.
  std::int64_t byteOffset() const;

 private:
  struct Callbacks;

  struct Place {
    std::int32_t line = 0;
    std::int32_t column = 0;
  };

  struct ParserDeleter {
    void operator()(XML_ParserStruct* parser) const;
  };

  void startElement(const char* name, const char* const* namesAndValues);
  void endElement();
  void characters(const char* data, int length);

  const NameCodes* lookUpElement(SplitName name);
  const NameCodes* lookUpAttribute(const char* name);
  bool countUnwritten(const char* const* namesAndValues);
  bool countUnwritten(std::size_t bytes);
  void noteToken();
  Place place() const;
  void stop();

  // Rare, and each with an address of something in its frame. Within their callers they would have
  // each of these frames checked for an overflow.
  [[gnu::noinline]] const NameCodes* askForElement(SplitName name);
  [[gnu::noinline]] const NameCodes* askForAttribute(const char* name);
  [[gnu::noinline]] void keepFailure();

  std::unique_ptr<XML_ParserStruct, ParserDeleter> parser_;
  Handler* handler_;
  Namespaces namespaces_;
  RecentNames elementNames_;
  RecentNames attributeNames_;
  std::map<const std::string*, std::set<std::string, std::less<>>> unknownAttributes_;  // by space
  std::vector<std::optional<NameCodes>> open_;  // the open elements; those skipped have no codes
  AttributeList attributes_;
  double unwritten_ = 0;  // bytes of start tags that the document did not write
  std::size_t declaredAttributes_ = 0;
  bool isTooLarge_ = false;
  std::int64_t size_ = 0;              // of all blocks
  std::int64_t tokenBegin_ = 0;        // of the token that is not yet complete
  std::optional<TokenEnd> longToken_;  // its end, if it has grown long
  std::exception_ptr failure_;
  std::optional<Place> stoppedAt_;
};

}  // namespace vantry::reader
