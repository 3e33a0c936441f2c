// Reads a document from a text and keeps what was complained about.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/document.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

/// One reading, in blocks of 512 bytes as the driver does it.
class Reading {
 public:
  explicit Reading(std::string_view text, bool ignoreIds = true) {
    messages().clear();
    document_->setErrorReporter(&note);
    handler_.emplace(document_.get(), ignoreIds, &note);
    vantry::reader::Parser parser(&*handler_, true, nullptr);
    try {
      for (bool isLast = false; !isLast;) {
        const std::string_view block = text.substr(0, 512);
        isLast = block.size() < 512;
        if (!parser.parse(block.data(), static_cast<int>(block.size()), isLast)) ++failures_;
        text.remove_prefix(block.size());
      }
    } catch (const vantry::dom::DomException& error) {
      code_ = error.code();
      what_ = error.what();
    }
  }
  ~Reading() {
    document_->setErrorReporter(nullptr);
    document_->tearDown();
  }

  vantry::plot::PlotDocument& document() { return *document_; }

  /// How many blocks the XML parser refused.
  int failures() const { return failures_; }

  /// The code of the DomException that ended the reading, 0 if it came to its end.
  int code() const { return code_; }

  /// What that exception says; empty if there was none.
  const std::string& what() const { return what_; }

  /// All messages, one after the other, with the prefixes that come before them.
  const std::string& complaints() const { return messages(); }

  /// The root as XML.
  std::string xml() {
    std::ostringstream out;
    document_->documentElement()->writeXml(out);
    return out.str();
  }

  /// The first element with that name, in document order, as a `T`.
  template <class T>
  const T& first() {
    const vantry::dom::Node* node = document_->documentElement();
    while (node && node->nodeName() != T::tag) node = next(node);
    return static_cast<const T&>(*node);
  }

 private:
  static std::string& messages() {
    static std::string text;
    return text;
  }

  static int note(const char* format, va_list arguments) {
    char line[1000];
    const int length = std::vsnprintf(line, sizeof line, format, arguments);
    messages() += line;
    return length;
  }

  static const vantry::dom::Node* next(const vantry::dom::Node* node) {
    if (node->firstChild()) return node->firstChild();
    while (node && !node->nextSibling()) node = node->parent();
    return node ? node->nextSibling() : nullptr;
  }

  vantry::base::Ref<vantry::plot::PlotDocument> document_{new vantry::plot::PlotDocument};
  std::optional<vantry::reader::ZrdParserHandler> handler_;
  int failures_ = 0;
  int code_ = 0;
  std::string what_;
};
