#include "vantry/dom/range.h"

#include <cstring>

#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"

namespace vantry::dom {

namespace {

/// The child of `ancestor` that is `node` or holds it; null if `ancestor` is not above `node`. With
/// a null `ancestor`, the node without a parent.
Node* childTowards(const Node* ancestor, Node* node) {
  while (node && node->parent() != ancestor) node = node->parent();
  return node;
}

}  // namespace

Range::Range(Document* owner) : AtomicNode(owner), startContainer_(owner), endContainer_(owner) {
  setFlag(Within, true);
}

Token Range::nodeName() const {
  static const Token name("#range", false);
  return name;
}

Ref<Node> Range::cloneNode(bool) const { return cloneRange(isSelected()); }

std::ostream& Range::writeXml(std::ostream& out) const { return out; }

bool Range::collapsed() const {
  checkLive();
  return start() == end();
}

void Range::collapse(bool toStart) {
  checkLive();
  const Point point = toStart ? start() : end();
  setBounds(point, point);
}

Node* Range::commonAncestorContainer() const {
  checkLive();
  return commonAncestor(startContainer(), endContainer());
}

void Range::setStart(Node* node, unsigned offset) { setStart({node, offset}); }

void Range::setEnd(Node* node, unsigned offset) { setEnd({node, offset}); }

void Range::setStartBefore(Node* node) { setStart(pointBefore(node)); }

void Range::setStartAfter(Node* node) { setStart(pointAfter(node)); }

void Range::setEndBefore(Node* node) { setEnd(pointBefore(node)); }

void Range::setEndAfter(Node* node) { setEnd(pointAfter(node)); }

void Range::setStart(const Point& point) {
  checkPoint(point);
  if (comparePoints(point, end()) > 0) throw RangeException(RangeException::BadBoundaryPoints);
  setBounds(point, end());
}

void Range::setEnd(const Point& point) {
  checkPoint(point);
  if (comparePoints(point, start()) < 0) throw RangeException(RangeException::BadBoundaryPoints);
  setBounds(start(), point);
}

Range::Point Range::pointBefore(Node* node) const {
  checkOwner(node);
  return {node->parent(), node->indexInParent()};
}

Range::Point Range::pointAfter(Node* node) const {
  const Point before = pointBefore(node);
  return {before.container, before.offset + 1};
}

void Range::selectNode(Node* node) {
  checkOwner(node);
  checkOwner(node->parent());
  const unsigned index = node->indexInParent();
  setBounds({node->parent(), index}, {node->parent(), index + 1});
}

void Range::selectNodeContents(Node* node) {
  checkOwner(node);
  setBounds({node, 0}, {node, node->length()});
}

int Range::compareBoundaryPoints(int how, const Range& other) const {
  checkOwner(&other);
  other.checkLive();
  switch (how) {
    case StartToStart:
      return comparePoints(start(), other.start());
    case StartToEnd:
      return comparePoints(start(), other.end());
    case EndToEnd:
      return comparePoints(end(), other.end());
    case EndToStart:
      return comparePoints(end(), other.start());
    default:
      return 0;
  }
}

Ref<Range> Range::cloneRange(bool selected) const {
  checkLive();
  Ref<Range> copy = ownerDocument()->createRange(selected);
  if (copy) copy->setBounds(start(), end());
  return copy;
}

void Range::detach() {
  checkLive();
  const Ref<Range> self = this;
  deselect();
  detachSilently();
}

void Range::observerDetached(Token) {
  if (!isDetached()) detach();
}

void Range::beforeBatch() {
  if (isDetached() || isFrozen()) return;
  setFlag(Frozen, true);
  const Point top{ownerDocument(), 0};
  storeBounds({top, top, true});
}

void Range::afterBatch() {
  if (!isDetached()) setFlag(Frozen, false);
}

void Range::handleEvent(const DomEvent& event) {
  if (!isFrozen() && !isDetached()) setBounds(boundsAfter(event));
}

void Range::deselect() {
  if (!isSelected()) return;
  const Ref<Range> self = this;
  if (!isDetached() && !isFrozen()) ownerDocument()->notify(BeforeDeselectEvent(this));
  dropSelection();
}

/// Two points without a common ancestor compare as 1.
int Range::comparePoints(const Point& a, const Point& b) {
  const auto compare = [](unsigned x, unsigned y) { return x == y ? 0 : x < y ? -1 : 1; };
  if (a.container == b.container) return compare(a.offset, b.offset);

  Node* common = commonAncestor(a.container, b.container);
  if (common == a.container) {
    return a.offset > childTowards(common, b.container)->indexInParent() ? 1 : -1;
  }
  if (common == b.container) {
    return childTowards(common, a.container)->indexInParent() < b.offset ? -1 : 1;
  }
  const unsigned indexOfA = childTowards(common, a.container)->indexInParent();
  const unsigned indexOfB = childTowards(common, b.container)->indexInParent();
  return indexOfA < indexOfB ? -1 : 1;
}

void Range::checkLive() const {
  if (isDetached()) throw DomException(DomException::InvalidState);
}

void Range::checkOwner(const Node* node) const {
  checkLive();
  if (!node || node->ownerDocument() != ownerDocument()) {
    throw DomException(DomException::WrongDocument);
  }
}

void Range::checkPoint(const Point& point) const {
  checkOwner(point.container);
  if (point.offset > point.container->length()) throw DomException(DomException::IndexSize);
}

void Range::select() {
  setFlag(Selected, true);
  addRef();
}

/// May drop the last reference to the range.
void Range::dropSelection() {
  if (!isSelected()) return;
  setFlag(Selected, false);
  release();
}

void Range::detachSilently() {
  if (isDetached()) return;
  storeBounds({});
  setFlag(Detached, true);
  dropSelection();
}

bool Range::isWithin(const Point& point) {
  if (point.offset == 0) return true;
  return point.container->isInDocument() && point.offset <= point.container->length();
}

void Range::setBounds(const Point& newStart, const Point& newEnd) {
  setBounds({newStart, newEnd, isWithin(newStart) && isWithin(newEnd)});
}

void Range::setBounds(const Bounds& newBounds) {
  if (isFrozen() || newBounds == bounds()) return;

  // An observer may drop the range or its new containers, and detach the range.
  const auto& [newStart, newEnd, areWithin] = newBounds;
  const Ref<Range> self = this;
  const Ref<Node> keptStart = newStart.container;
  const Ref<Node> keptEnd = newEnd.container;
  Document& document = *ownerDocument();
  if (isSelected()) {
    document.notify(BeforeSelectionChangeEvent(this, newStart.container, newStart.offset,
                                               newEnd.container, newEnd.offset));
    if (isDetached() || isFrozen()) return;
  }
  storeBounds(newBounds);
  if (isSelected()) document.notify(AfterSelectionChangeEvent(this));
}

void Range::storeBounds(const Bounds& newBounds) {
  setFlag(Within, newBounds.areWithin);
  startContainer_ = newBounds.start.container;
  endContainer_ = newBounds.end.container;
  startOffset_ = newBounds.start.offset;
  endOffset_ = newBounds.end.offset;
}

Range::Bounds Range::boundsAfter(const DomEvent& event) const {
  if (event.type == EventType::BeforeReplaceText) {
    return boundsAfterText(static_cast<const BeforeReplaceTextEvent&>(event));
  }
  if (event.type == EventType::BeforeReplaceChildren) {
    return boundsAfterChildren(static_cast<const BeforeReplaceChildrenEvent&>(event));
  }
  return bounds();
}

Range::Bounds Range::boundsAfterText(const BeforeReplaceTextEvent& event) const {
  const auto adjusted = [&event](Point point) {
    if (point.container != event.target) return point;
    if (event.count != 0 && point.offset >= event.offset) {
      const bool isRemoved = point.offset - event.offset < event.count;
      point.offset = isRemoved ? event.offset : point.offset - event.count;
    }
    if (event.text && point.offset > event.offset) {
      point.offset += static_cast<unsigned>(std::strlen(event.text));
    }
    return point;
  };
  return {adjusted(start()), adjusted(end()), hasFlag(Within)};
}

Range::Bounds Range::boundsAfterChildren(const BeforeReplaceChildrenEvent& event) const {
  // What comes behind all children moves no point among them.
  if (!event.first && hasFlag(Within)) return bounds();
  Node* const parent = event.target;
  const bool removes = event.first && event.count != 0;
  const auto isConcerned = [&](const Point& point) {
    return point.container == parent || (removes && childTowards(parent, point.container));
  };
  if (!isConcerned(start()) && !isConcerned(end())) return bounds();

  const unsigned index = event.first ? event.first->indexInParent() : parent->length();
  const auto withoutRemoved = [&](const Point& point) -> Point {
    switch (relation(point, parent, index, event.count)) {
      case 0:
        return {parent, index};
      case 1:
        return {point.container, point.offset - event.count};
      default:
        return point;
    }
  };
  Point newStart = removes ? withoutRemoved(start()) : start();
  const Point newEnd = removes ? withoutRemoved(end()) : end();

  // An insertion before the end point moves the start point too, and the end point not at all.
  const unsigned inserted = countSiblingsFrom(event.newChildren);
  const bool isBeforeStart = newStart.container == parent && newStart.offset > index;
  const bool isBeforeEnd = newEnd.container == parent && newEnd.offset > index;
  if (isBeforeStart) newStart.offset += inserted;
  if (isBeforeEnd) newStart.offset += inserted;
  const bool isPutOff = isBeforeEnd && (isBeforeStart || newStart.container != parent);
  return {newStart, newEnd, hasFlag(Within) && !isPutOff};
}

/// Where a point lies relative to `count` children of `parent` from `index` on: 0 if within them, 1
/// if behind them in `parent` itself, -1 for any other place. A point deep inside a later sibling
/// does not need to move.
int Range::relation(const Point& point, const Node* parent, unsigned index, unsigned count) {
  if (point.container == parent) {
    if (point.offset < index) return -1;
    return point.offset - index < count ? 0 : 1;
  }
  const Node* child = childTowards(parent, point.container);
  if (!child) return -1;
  const unsigned childIndex = child->indexInParent();
  return childIndex >= index && childIndex - index < count ? 0 : -1;
}

}  // namespace vantry::dom
