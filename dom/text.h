// Text nodes.
#pragma once

#include <optional>
#include <string>

#include "vantry/dom/atomic_node.h"

namespace vantry::dom {

/// A piece of text in the process's multibyte encoding. Offsets and counts are in bytes; a count
/// that reaches past the end stands for the rest.
class Text : public AtomicNode {
 public:
  /// A null `text` is an empty one.
  Text(Document* owner, const char* text);

  int nodeType() const override { return TextNode; }
  Token nodeName() const override;
  Text* asText() override { return this; }
  using Node::asText;
  unsigned length() const override { return static_cast<unsigned>(data_.size()); }
  Ref<Node> cloneNode(bool deep) const override;
  std::ostream& writeXml(std::ostream& out) const override;

  const char* nodeValue() const override { return data_.empty() ? nullptr : data_.c_str(); }
  void setNodeValue(const char* text) override;
  bool canReplaceText(unsigned offset, unsigned count, const char* text) const override;

  /// No value for a part without bytes. Throws DomException IndexSize for an offset past the end.
  std::optional<std::string> substringData(unsigned offset, unsigned count) const;

  /// Replaces `count` bytes from `offset` on by `text`, which may be null. All following changes
  /// go this way. Throws DomException IndexSize for an offset past the end, NoModificationAllowed,
  /// or HierarchyRequest if canReplaceText() refuses.
  void replaceData(unsigned offset, unsigned count, const char* text);
  void insertData(unsigned offset, const char* text) { replaceData(offset, 0, text); }
  void appendData(const char* text) { replaceData(length(), 0, text); }
  void deleteData(unsigned offset, unsigned count) { replaceData(offset, count, nullptr); }

  /// Moves the text from `offset` on into a new node behind this one, and returns that. In the
  /// document these are two changes, and deferred operations wait for both. Throws
  /// DomException IndexSize or NoModificationAllowed; with a parent also what its insertBefore()
  /// raises, and HierarchyRequest if canReplaceText() refuses to have the text cut.
  Ref<Text> splitText(unsigned offset);

  /// Does what replaceData() has checked, without checks, record or events.
  void doReplaceText(unsigned offset, unsigned count, const char* text);

 private:
  void checkChangeAt(unsigned offset) const;
  void checkReplaceData(unsigned offset, unsigned count, const char* text) const;

  std::string data_;
};

}  // namespace vantry::dom
