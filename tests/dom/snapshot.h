// What is in a document, to be compared with what is there later.
#pragma once

#include <string>
#include <vector>

#include "test_document.h"

namespace vantry::dom::test {

/// The nodes below a document, each with its parent, its attributes and its text.
class Snapshot {
 public:
  explicit Snapshot(Node& root) : entries_(entriesOf(root)) {}

  /// Expects the same nodes at the same places with the same values.
  void expectIn(Node& root) const {
    const std::vector<Entry> now = entriesOf(root);
    ASSERT_EQ(now.size(), entries_.size()) << toXml(root);
    for (std::size_t i = 0; i < now.size(); ++i) {
      ASSERT_EQ(now[i].node, entries_[i].node) << "node " << i << " of " << toXml(root);
      ASSERT_EQ(now[i].parent, entries_[i].parent) << "parent " << i << " of " << toXml(root);
      ASSERT_EQ(now[i].value, entries_[i].value) << "value " << i << " of " << toXml(root);
    }
  }

 private:
  struct Entry {
    Ref<Node> node;
    const Node* parent;
    std::string value;
  };

  static std::vector<Entry> entriesOf(Node& root) {
    std::vector<Entry> entries;
    walkSubtree(root, [&](Node& node) {
      if (&node != &root) entries.push_back({&node, node.parent(), valueOf(node)});
      return true;
    });
    return entries;
  }

  static std::string valueOf(const Node& node) {
    std::ostringstream value;
    value << node.nodeName().str();
    if (const Element* element = node.asElement()) element->writeAttributes(value);
    if (const char* text = node.nodeValue()) value << ": " << text;
    return value.str();
  }

  std::vector<Entry> entries_;
};

}  // namespace vantry::dom::test
