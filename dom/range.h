// Ranges: pairs of boundary points that follow the changes of the tree.
#pragma once

#include "vantry/dom/atomic_node.h"
#include "vantry/dom/event.h"

namespace vantry::dom {

/// From a start point to an end point. A point is a container and an offset in it: an index among
/// the children of an inner node, or a number of bytes in a text.
///
/// A range is made by Document::createRange(). It is live until it is detached, for good. During a
/// batch it is frozen: a batch resets all bounds to the start of the document. A selected range
/// keeps itself alive until deselect(), and its changes are events of the document.
///
/// All operations throw DomException InvalidState on a detached range, but for those that say what
/// else they do.
class Range : public AtomicNode, public IDocObserver {
 public:
  enum CompareHow : int { StartToStart = 0, StartToEnd = 1, EndToEnd = 2, EndToStart = 3 };

  int nodeType() const override { return RangeNode; }
  Token nodeName() const override;
  unsigned length() const override { return 0; }
  /// cloneRange() with the selection of this range.
  Ref<Node> cloneNode(bool deep) const override;
  /// Writes nothing.
  std::ostream& writeXml(std::ostream& out) const override;

  /// The bounds; null and 0 once detached.
  Node* startContainer() const { return startContainer_.get(); }
  unsigned startOffset() const { return startOffset_; }
  Node* endContainer() const { return endContainer_.get(); }
  unsigned endOffset() const { return endOffset_; }

  bool isDetached() const { return hasFlag(Detached); }
  bool isSelected() const { return hasFlag(Selected); }
  bool isFrozen() const { return hasFlag(Frozen); }

  /// Whether both points are the same, so that nothing lies between them.
  bool collapsed() const;
  /// Brings both points to the start, or both to the end.
  void collapse(bool toStart);
  /// The innermost node that holds both containers; null if they are in separate trees.
  Node* commonAncestorContainer() const;

  /// Throw DomException WrongDocument (also for a null node) or IndexSize (the offset is above the
  /// node's length()), and RangeException BadBoundaryPoints if the start would come after the end.
  void setStart(Node* node, unsigned offset);
  void setEnd(Node* node, unsigned offset);
  void setStartBefore(Node* node);
  void setStartAfter(Node* node);
  void setEndBefore(Node* node);
  void setEndAfter(Node* node);

  /// Both bounds at once. Throw DomException WrongDocument; selectNode() also for a node that has
  /// no parent.
  void selectNode(Node* node);
  void selectNodeContents(Node* node);

  /// -1, 0 or 1: one of these bounds compared with one of the other range's, see CompareHow (0 for
  /// any other value). Throws DomException WrongDocument, or InvalidState if either is detached.
  int compareBoundaryPoints(int how, const Range& other) const;

  /// A new range with the same bounds.
  Ref<Range> cloneRange(bool selected) const;

  /// Ends the range: it is deselected, lets go of its containers and follows nothing any more.
  virtual void detach();
  void observerDetached(Token eventType) override;
  void beforeBatch() override;
  void afterBatch() override;
  /// Ranges move before the change.
  void handleEvent(const DomEvent& event) override;
  /// Does nothing if the range is not selected.
  virtual void deselect();

 private:
  friend class Document;
  friend class RangeList;

  enum Flag : unsigned { Detached = 1, Selected = 2, Frozen = 3, Within = 4 };

  struct Point {
    Node* container = nullptr;
    unsigned offset = 0;
    bool operator==(const Point&) const = default;
  };
  struct Bounds {
    Point start;
    Point end;
    bool areWithin = false;  // see isWithin()
    bool operator==(const Bounds& other) const { return start == other.start && end == other.end; }
  };

  explicit Range(Document* owner);

  /// Whether the container has that offset, and each change of it is an event.
  static bool isWithin(const Point& point);

  static int comparePoints(const Point& a, const Point& b);
  static int relation(const Point& point, const Node* parent, unsigned index, unsigned count);

  Point start() const { return {startContainer_.get(), startOffset_}; }
  Point end() const { return {endContainer_.get(), endOffset_}; }
  Point pointBefore(Node* node) const;
  Point pointAfter(Node* node) const;
  void setStart(const Point& point);
  void setEnd(const Point& point);
  void checkLive() const;
  void checkOwner(const Node* node) const;
  void checkPoint(const Point& point) const;
  void select();
  void dropSelection();
  void detachSilently();
  Bounds bounds() const { return {start(), end(), hasFlag(Within)}; }
  Bounds boundsAfter(const DomEvent& event) const;
  Bounds boundsAfterText(const BeforeReplaceTextEvent& event) const;
  Bounds boundsAfterChildren(const BeforeReplaceChildrenEvent& event) const;
  void setBounds(const Point& newStart, const Point& newEnd);
  void setBounds(const Bounds& newBounds);
  void storeBounds(const Bounds& newBounds);
  void forgetPlaces() { setFlag(Within, false); }

  Ref<Node> startContainer_;
  Ref<Node> endContainer_;
  unsigned startOffset_ = 0;
  unsigned endOffset_ = 0;
};

}  // namespace vantry::dom
