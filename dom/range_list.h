// All ranges of a document.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "vantry/dom/inner_node.h"
#include "vantry/dom/range.h"

namespace vantry::dom {

/// Owns the ranges of a document, as its children, and forwards the document's events to them.
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

  /// The document has another root; no event reports that.
  void rootChanged();

  /// Notes how the ranges move for the event that is reported while it lives.
  class Moves {
   public:
    explicit Moves(RangeList& list);
    Moves(const Moves&) = delete;
    Moves& operator=(const Moves&) = delete;
    ~Moves() { list_->moves_ = outer_; }

    /// Moves the ranges back, but for those that somebody else has moved since. If anything in the
    /// document has changed, all stay where they are, for their former places may be gone.
    void takeBack();

   private:
    friend class RangeList;

    struct Move {
      Ref<Range> range;
      Range::Bounds from;
      Range::Bounds to;
    };

    Ref<RangeList> list_;
    Moves* outer_;
    std::uint64_t changeCount_;
    std::vector<Move> moves_;
  };

  /// Detaches, without events, and drops each range that nobody but the list holds.
  void removeUnreferenced();

  void observerDetached(Token eventType) override;
  void beforeBatch() override;
  void afterBatch() override;
  void handleEvent(const DomEvent& event) override;

 private:
  template <class Call>
  void forEachRange(Call call);

  Moves* moves_ = nullptr;  // of the innermost event
};

}  // namespace vantry::dom
