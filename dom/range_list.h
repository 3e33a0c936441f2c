// All ranges of a document.
#pragma once

#include "vantry/dom/inner_node.h"
#include "vantry/dom/range.h"

namespace vantry::dom {

/// Owns the ranges of a document, as its children, and passes on to them what the document tells.
class RangeList : public InnerNode, public IDocObserver {
 public:
  explicit RangeList(Document* owner) : InnerNode(owner) {}
  /// Detaches all ranges, without events.
  ~RangeList() override;

  int nodeType() const override { return RangeListNode; }
  Token nodeName() const override;
  /// Throws DomException NotSupported.
  Ref<Node> cloneNode(bool deep) const override;
  /// Writes nothing.
  std::ostream& writeXml(std::ostream& out) const override;

  Range* firstRange() const { return static_cast<Range*>(firstChild()); }
  static Range* nextRange(const Range& range) { return static_cast<Range*>(range.nextSibling()); }

  /// The root of the document is another one, which nobody is told of.
  void rootChanged();

  /// Detaches, without events, and drops each range that nobody but the list holds.
  void removeUnreferenced();

  void observerDetached(Token eventType) override;
  void beforeBatch() override;
  void afterBatch() override;
  void handleEvent(const DomEvent& event) override;

 private:
  template <class Call>
  void forEachRange(Call call);
};

}  // namespace vantry::dom
