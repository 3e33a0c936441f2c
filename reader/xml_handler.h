// The consumer of XML events.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vantry::reader {

/// An attribute of a start tag, in the codes of the handler's lookupAttribute().
struct Attribute {
  std::uint32_t namespaceId;
  std::uint32_t attributeId;
  const char* value;  ///< UTF-8, NUL-terminated; valid during the startElement() call only
};

/// The attributes of a start tag in document order, without those that the handler refused.
using AttributeList = std::vector<Attribute>;

/// Receives the elements and the text of a document from a Parser. The handler first turns a name
/// into codes of its own choice, and is then called with the codes. An exception that one of its
/// operations throws leaves Parser::parse().
class Handler {
 public:
  virtual void startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                            const AttributeList& attributes) = 0;
  virtual void endElement(std::uint32_t namespaceId, std::uint32_t elementId) = 0;

  /// A piece of text: `length` bytes of UTF-8, not NUL-terminated. One run of text may arrive in
  /// any number of pieces.
  virtual void characters(const char* data, std::size_t length) = 0;

  /// Finds the codes of the name of an element that starts. The answer depends on the name alone: a
  /// name that was accepted is not asked for again while it is remembered.
  /// `namespaceUri` is empty for a name without a namespace. False skips the element with all that
  /// lies inside. Both texts live until the call returns.
  virtual bool lookupElement(std::string_view namespaceUri, const char* localName,
                             std::uint32_t& outNamespaceId, std::uint32_t& outElementId) = 0;

  /// The same for the name of an attribute. False leaves the attribute out.
  virtual bool lookupAttribute(std::string_view namespaceUri, const char* localName,
                               std::uint32_t& outNamespaceId, std::uint32_t& outAttributeId) = 0;

  /// The parser refused a block. Called for that block and for each one that follows.
  virtual void parseFailed() {}

  /// An element was refused, or starts within a refused one.
  virtual void enterSkipped() { ++skipDepth_; }

  /// Whether the parser is within a refused element.
  virtual bool isSkipping() { return skipDepth_ != 0; }

  /// An element ends that enterSkipped() was called for.
  virtual void leaveSkipped() { --skipDepth_; }

  /// What the parser calls at an end tag, around endElement().
  virtual void finishElement(std::uint32_t namespaceId, std::uint32_t elementId) {
    endElement(namespaceId, elementId);
  }

 protected:
  Handler() = default;
  Handler(const Handler&) = default;
  Handler& operator=(const Handler&) = default;
  ~Handler() = default;  // nobody owns a handler through this class

 private:
  std::uint32_t skipDepth_ = 0;
};

}  // namespace vantry::reader
