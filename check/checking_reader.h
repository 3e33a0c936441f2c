// The reader that goes on after each mistake.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "vantry/base/ref_counted.h"
#include "vantry/check/findings.h"
#include "vantry/check/model_facts.h"
#include "vantry/check/source.h"
#include "vantry/plot/document.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace vantry::check {

/// What is known of elements by their addresses. It holds them, also those that are refused or
/// replaced, so that no other element gets such an address.
struct ByAddress {
  using is_transparent = void;
  std::size_t operator()(const dom::Node* node) const noexcept {
    return std::hash<const dom::Node*>()(node);
  }
  std::size_t operator()(const base::Ref<dom::Node>& node) const noexcept {
    return (*this)(node.get());
  }
};
template <class Fact>
using ElementMap = std::unordered_map<base::Ref<dom::Node>, Fact, ByAddress, std::equal_to<>>;
using ElementSet = std::unordered_set<base::Ref<dom::Node>, ByAddress, std::equal_to<>>;

/// Where the elements of a document come from, and of which a part was left out.
struct Origins {
  ElementMap<std::size_t> tags;  ///< where the start tag begins
  ElementSet damaged;            ///< lost children, values or data

  /// The start tag of an element; the beginning of the document for one that was not read.
  std::size_t tagOf(const dom::Node& element) const;
  bool isDamaged(const dom::Node& element) const { return damaged.contains(&element); }
};

/// Builds the tree of what is right with a document, and finds what is not: a bad value leaves the
/// default, and an element that cannot be where it is goes with all that is in it.
class CheckingReader : private reader::ZrdParserHandler, private plot::RefusalListener {
 public:
  CheckingReader(plot::PlotDocument& document, const Source& source, Findings& findings);
  ~CheckingReader() override;
  CheckingReader(const CheckingReader&) = delete;
  CheckingReader& operator=(const CheckingReader&) = delete;

  /// Reads the whole source. False if it is not well formed; then the document is empty.
  bool read();

  const Origins& origins() const { return origins_; }

 private:
  /// A name that is not of the format, by the number that stands for it among the codes.
  struct UnknownName {
    std::string namespaceUri;
    std::string localName;
    bool isForeign;  ///< of another namespace
  };

  bool lookupElement(std::string_view namespaceUri, const char* localName,
                     std::uint32_t& outNamespaceId, std::uint32_t& outElementId) override;
  bool lookupAttribute(std::string_view namespaceUri, const char* localName,
                       std::uint32_t& outNamespaceId, std::uint32_t& outAttributeId) override;
  void startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                    const reader::AttributeList& attributes) override;
  void endElement(std::uint32_t namespaceId, std::uint32_t elementId) override;
  void characters(const char* data, std::size_t length) override;
  void enterSkipped() override;
  void leaveSkipped() override;
  void setAttribute(PlotElement& element, Token name, const char* value) override;
  void requireAttributes(PlotElement& element) override;
  void endContent(base::WordId element) override;
  void refusePoint(base::WordId point, reader::PointError error) override;
  void refuseCell(const char* word) override;
  void refused(const plot::Refusal& refusal) override;

  std::uint32_t numberOf(std::string_view namespaceUri, const char* localName, bool isForeign);
  std::size_t here() const;
  Span placeOfValue(Token attribute) const;
  Span placeOfAttribute(std::string_view attribute) const;
  void markDamaged();

  void reportUnknownElement(const UnknownName& name);
  void reportUnknownAttribute(Token element, const UnknownName& name);
  bool reportForeignNamespace(const UnknownName& name, Span where);
  reader::AttributeList knownAttributes(Token element, const reader::AttributeList& attributes);
  bool reportSecondCanvas();
  void reportNestedPoint(Token name);
  void reportReplacement(Token name);
  void reportMisplaced(Token name, const reader::AttributeList& attributes);
  void reportValue(const PlotElement& element, Token name, const char* value);
  void describePoint(Finding& finding, Span& where, std::vector<std::string>& help) const;
  Span placeInPoint(std::string_view part) const;
  void reviewPoint(base::WordId point);
  bool isLastPointFinite(base::WordId point) const;
  void reportNotFinite(base::WordId point);
  void reportTooFewCells();
  void reportInfiniteCell();
  void reportNotWellFormed();

  plot::PlotDocument& document_;
  const Source& source_;
  Findings& findings_;
  reader::Parser parser_;
  Origins origins_;
  std::optional<plot::RefusalKind> refusal_;  // the last one
  std::vector<UnknownName> unknownNames_;
  std::unordered_set<std::string> foreignNamespaces_;  // that were reported
  std::vector<std::size_t> open_;                      // the tags of the open elements
  ElementSet withStrayText_;
  ElementSet withInfinitePoint_;
  std::optional<std::size_t> canvas_;              // where its tag begins
  std::size_t behindLastCell_ = 0;                 // behind the last bad entry of the array
  std::vector<std::string_view> meantAttributes_;  // by those of the current tag that are misspelt
  bool isInPoint_ = false;
  bool hasNestedPoint_ = false;  // in the one that is open
  bool isPointRefused_ = false;  // the one that ends now
};

}  // namespace vantry::check
