// The XML parser: bytes in, calls of a handler out.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reader/recent_names.h"
#include "reader/xml_handler.h"

struct XML_ParserStruct;  // expat's parser

namespace Xml {

/// Takes one document in blocks and tells its elements and text to a handler. Comments, processing
/// instructions and the document type reach nobody; CDATA sections arrive as text.
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
  /// formed; so does each later call. An exception of the handler leaves this operation; the
  /// document cannot be parsed on after it, and each later call throws it again.
  bool parse(const char* buffer, int length, bool isFinal);

  /// The number of the parser's last error, 0 for none; -1 if no parser could be created.
  std::int32_t errorCode() const;

  /// Where the parser stands, counted from line 1; 0 if no parser could be created.
  std::int32_t lineNumber() const;

  /// Where the parser stands in its line, in bytes, counted from 0.
  std::int32_t columnNumber() const;

 private:
  struct Callbacks;

  /// A name as the handler gets it. The namespace lives until the next split.
  struct Name {
    const char* namespaceUri;
    const char* localName;
  };

  struct ParserDeleter {
    void operator()(XML_ParserStruct* parser) const;
  };

  Name splitName(const char* name);
  using HandlerLookup = bool (Handler::*)(const char* namespaceUri, const char* localName,
                                          std::uint32_t& namespaceId, std::uint32_t& nameId);
  const NameCodes* lookUp(const char* name, RecentNames& recent, HandlerLookup lookup);
  void startElement(const char* name, const char* const* namesAndValues);
  void endElement();
  void characters(const char* data, int length);

  std::unique_ptr<XML_ParserStruct, ParserDeleter> parser_;
  Handler* handler_;
  std::string namespace_;  // the one that was met last
  RecentNames elementNames_;
  RecentNames attributeNames_;
  std::vector<std::optional<NameCodes>> open_;  // the open elements; those skipped have no codes
  AttributeList attributes_;
  bool namespaces_;
  std::exception_ptr failure_;
};

}  // namespace Xml
