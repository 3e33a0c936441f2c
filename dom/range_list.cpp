#include "vantry/dom/range_list.h"

#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"

namespace vantry::dom {

RangeList::~RangeList() {
  forEachRange([](Range& range) { range.detachSilently(); });
}

Token RangeList::nodeName() const {
  static const Token name("#rangelist", false);
  return name;
}

Ref<Node> RangeList::cloneNode(bool) const { throw DomException(DomException::NotSupported); }

std::ostream& RangeList::writeXml(std::ostream& out) const { return out; }

void RangeList::removeUnreferenced() {
  for (Range* range = firstRange(); range;) {
    Range* next = nextRange(*range);
    if (range->refCount() == 1) {
      range->detachSilently();
      doReplaceChildren(range, 1, nullptr);
    }
    range = next;
  }
}

void RangeList::rootChanged() {
  forEachRange([](Range& range) { range.forgetPlaces(); });
}

void RangeList::observerDetached(Token eventType) {
  forEachRange([eventType](Range& range) { range.observerDetached(eventType); });
}

void RangeList::beforeBatch() {
  forEachRange([](Range& range) { range.beforeBatch(); });
}

void RangeList::afterBatch() {
  forEachRange([](Range& range) { range.afterBatch(); });
}

void RangeList::handleEvent(const DomEvent& event) {
  forEachRange([&](Range& range) {
    if (range.isFrozen() || range.isDetached()) return;
    const Range::Bounds from = range.bounds();
    const Range::Bounds to = range.boundsAfter(event);
    if (from == to) return;
    if (moves_) moves_->moves_.push_back({&range, from, to});
    range.setBounds(to);
  });
}

RangeList::Moves::Moves(RangeList& list)
    : list_(&list),
      outer_(std::exchange(list.moves_, this)),
      changeCount_(list.ownerDocument()->changeCount()) {}

void RangeList::Moves::takeBack() {
  for (const auto& [range, from, to] : std::exchange(moves_, {})) {
    if (list_->ownerDocument()->changeCount() != changeCount_) return;
    if (range->isDetached() || !(range->bounds() == to)) continue;
    try {
      range->setBounds(from);
    } catch (...) {
      // What has prevented the change is on its way already.
    }
  }
}

/// A call may take its range out of the list, and drop it.
template <class Call>
void RangeList::forEachRange(Call call) {
  Ref<Range> range = firstRange();
  while (range) {
    Ref<Range> next = nextRange(*range);
    call(*range);
    range = std::move(next);
  }
}

}  // namespace vantry::dom
