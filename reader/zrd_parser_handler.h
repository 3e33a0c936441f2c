// The builder of a plot document from the events of its XML.
#pragma once

#include <cstdarg>
#include <string>
#include <string_view>

#include "vantry/plot/document.h"
#include "vantry/reader/data_parsing.h"
#include "vantry/reader/simple_data_handler.h"
#include "vantry/reader/xml_parser.h"

namespace vantry::reader {

enum class Place : std::uint8_t;

/// Builds the tree of a document. It has one cursor, the current element: the element of a start
/// tag is made, gets its attributes, is put below the current element by the rule of its name, and
/// becomes the current element itself. Which element may be where is decided by the elements.
///
/// The document is in a batch from the constructor to the end of the Canvas. Unknown names are
/// skipped. Bad data, a refused child or a bad value throws dom::DomException. A document that is
/// not well formed is thrown away: an empty Canvas takes its place.
///
/// A reader that goes on after a mistake derives from it: an element that startElement() refuses is
/// nowhere, and the other refusals have an operation each, which throws here.
class ZrdParserHandler : public reader::SimpleDataHandler {
 public:
  /// Takes a format and arguments in the manner of vprintf.
  using Reporter = int (*)(const char* format, va_list arguments);

  /// `document` must outlive the handler. `ignoreIds` leaves all `id` attributes out; `reporter`,
  /// which may be null, gets the complaints about the input.
  ZrdParserHandler(plot::PlotDocument* document, bool ignoreIds, Reporter reporter);

  void startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                    const reader::AttributeList& attributes) override;
  void endElement(std::uint32_t namespaceId, std::uint32_t elementId) override;
  bool lookupElement(std::string_view namespaceUri, const char* localName,
                     std::uint32_t& outNamespaceId, std::uint32_t& outElementId) override;
  bool lookupAttribute(std::string_view namespaceUri, const char* localName,
                       std::uint32_t& outNamespaceId, std::uint32_t& outAttributeId) override;
  void parseFailed() override;

 protected:
  void appendText(const char* data, std::size_t length) override;

  /// The innermost element that is open, null outside of the root. Points are no elements.
  plot::PlotElement* current() const { return current_.get(); }

  /// Gives a new element an attribute of its start tag. One that is refused leaves the element as
  /// it was.
  virtual void setAttribute(plot::PlotElement& element, base::Token name, const char* value);
  /// Refuses a new element without an attribute that must be there, or with an empty one.
  virtual void requireAttributes(plot::PlotElement& element);
  /// Takes the characters of the current element, which ends.
  virtual void endContent(base::WordId element);
  /// A P2 or P3 is not such as the list around it takes.
  virtual void refusePoint(base::WordId point, PointError error);
  /// A word in the current element, an array, is no colour or no number.
  virtual void refuseCell(const char* word);

 private:
  [[gnu::format(printf, 2, 3)]] void report(const char* format, ...) const;
  [[noreturn]] void corrupted(const char* what, const char* text) const;
  [[noreturn]] void incomplete(const char* what, const char* missing) const;
  [[noreturn]] void illegal(const char* what) const;
  std::string inParent(const char* tag) const;

  bool isFormatName(std::string_view namespaceUri) const;
  void addElement(base::WordId word, const reader::AttributeList& attributes);
  void closeElement(base::WordId word);
  base::Ref<plot::PlotElement> makeElement(base::Token name,
                                           const reader::AttributeList& attributes);
  void attach(plot::PlotElement& element, Place place);
  void attachUnique(plot::PlotElement& element);
  void attachPositional(plot::PlotElement& element);
  void attachRoot(plot::PlotElement& element);
  void endText();
  void endArray();
  void endPoint(base::WordId point);
  PointError appendPointTo(plot::PlotElement* list, base::WordId point);
  void appendCellTo(plot::PlotElement& array, const char* word);

  plot::PlotDocument* document_;
  base::Ref<plot::PlotElement> current_;
  unsigned childIndex_ = 0;        // the place of the next positional child
  base::Ref<dom::Node> previous_;  // the positional child before it, unless it is the first
  std::string wordBuffer_;
  bool keepIds_;
  Reporter reporter_;
};

/// A parser for hosts that load documents into a running program: a DomException of the handler
/// ends the document as an XML error does. All other exceptions pass.
class ZrdParser : public reader::Parser {
 public:
  ZrdParser(ZrdParserHandler* handler, bool namespaces, const char* encoding)
      : Parser(handler, namespaces, encoding), handler_(handler) {}

  bool parse(const char* buffer, int length, bool isFinal);

 private:
  ZrdParserHandler* handler_;
};

}  // namespace vantry::reader
