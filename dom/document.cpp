#include "vantry/dom/document.h"

#include <ostream>
#include <utility>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/range_list.h"

namespace vantry::dom {

namespace {

/// Calls `step` and returns what it throws.
template <class Step>
std::exception_ptr attempt(Step step) {
  try {
    step();
  } catch (...) {
    return std::current_exception();
  }
  return nullptr;
}

void rethrow(const std::exception_ptr& error) {
  if (error) std::rethrow_exception(error);
}

}  // namespace

Document::Document() : InnerNode(nullptr) {
  ownerDocument_ = this;
  ranges_ = new RangeList(this);
  // These two can shift a range.
  Document::addObserver(ranges_.get(), EventType::BeforeReplaceText);
  Document::addObserver(ranges_.get(), EventType::BeforeReplaceChildren);
}

Document::~Document() {
  attempt([this] { Document::tearDown(); });
  destroyChildren();
  ownerDocument_ = nullptr;
}

void Document::release() {
  if (refCount() == 0) addRef();
  const bool isLastFromOutside = refCount() == (isAbandoned_ ? 2U : 1U);
  if (isLastFromOutside) {
    attempt([this] { tearDown(); });
    destroyChildren();
  }
  if (refCount() == 1 && !isAbandoned_ && nodeCount_ > 0) {
    isAbandoned_ = true;  // the nodes that are left inherit this reference
    return;
  }
  InnerNode::release();
}

void Document::nodeGone() {
  if (--nodeCount_ > 0 || !isAbandoned_) return;
  isAbandoned_ = false;
  InnerNode::release();
}

Token Document::nodeName() const {
  static const Token name("#document", false);
  return name;
}

Ref<Node> Document::cloneNode(bool) const { throw DomException(DomException::NotSupported); }

std::ostream& Document::writeXml(std::ostream& out) const {
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  if (firstChild()) firstChild()->writeXml(out);
  return out << '\n';
}

void Document::doReplaceChildren(Node* first, unsigned count, Node* newChildren) {
  const Ref<Node> formerRoot = firstChild();
  InnerNode::doReplaceChildren(first, count, newChildren);
  if (formerRoot == firstChild()) return;
  if (ranges_) ranges_->rootChanged();
  if (formerRoot) formerRoot->markInDocument(false);
  if (firstChild()) firstChild()->markInDocument(true);
}

Ref<Text> Document::createTextNode(const char* text) {
  if (!canHoldText(text)) throw DomException(DomException::InvalidCharacter);
  return new Text(this, text);
}

Ref<DocumentFragment> Document::createDocumentFragment() { return new DocumentFragment(this); }

Ref<Range> Document::createRange(bool selected) {
  if (!ranges_) return nullptr;
  Ref<Range> range = new Range(this);
  ranges_->doReplaceChildren(nullptr, 0, range.get());
  range->setFlag(Range::Frozen, isInBatch());
  if (selected) range->select();
  return range;
}

Element* Document::documentElement() const {
  return firstChild() ? firstChild()->asElement() : nullptr;
}

void Document::addObserver(IDocObserver* observer) { addObserver(observer, Token()); }

void Document::addObserver(IDocObserver* observer, Token eventType) {
  if (!observer) return;
  for (Subscription& subscription : observers_) {
    if (subscription.observer) continue;
    subscription = {eventType, observer};
    return;
  }
  observers_.push_back({eventType, observer});
}

void Document::removeObserver(IDocObserver* observer) {
  if (!observer) return;
  for (Subscription& subscription : observers_) {
    if (subscription.observer == observer) endSubscription(subscription);
  }
}

void Document::removeObserver(IDocObserver* observer, Token eventType) {
  if (!observer) return;
  for (Subscription& subscription : observers_) {
    if (subscription.observer != observer || !(subscription.eventType == eventType)) continue;
    endSubscription(subscription);
    return;
  }
}

void Document::endSubscription(Subscription& subscription) {
  const Token eventType = subscription.eventType;
  std::exchange(subscription.observer, nullptr)->observerDetached(eventType);
}

void Document::beginBatch() {
  if (isInBatch() || isBatchBeginning_) {
    ++batchDepth_;
    return;
  }
  savedHistoryLimit_ = history_.limit();
  history_.setLimit(0);
  forgetChanges();
  isBatchBeginning_ = true;
  for (auto notified = observers_.begin(); notified != observers_.end(); ++notified) {
    try {
      if (notified->observer) notified->observer->beforeBatch();
    } catch (...) {
      isBatchBeginning_ = false;
      setUndoLimit(savedHistoryLimit_);
      reportEndOfBatch(notified);
      throw;
    }
  }
  isBatchBeginning_ = false;
  removeUnreferencedRanges();
  ++batchDepth_;  // an observer may have begun one of its own
}

/// Notifies the observers before `end`, all of them, and returns what was thrown first.
std::exception_ptr Document::reportEndOfBatch(std::list<Subscription>::iterator end) {
  std::exception_ptr error;
  for (auto notified = observers_.begin(); notified != end; ++notified) {
    const std::exception_ptr next = attempt([&] {
      if (notified->observer) notified->observer->afterBatch();
    });
    if (!error) error = next;
  }
  return error;
}

void Document::endBatch() {
  if (batchDepth_ == 0 || --batchDepth_ > 0 || isBatchBeginning_) return;
  history_.setLimit(savedHistoryLimit_);
  const std::exception_ptr error = reportEndOfBatch(observers_.end());
  removeUnreferencedRanges();
  rethrow(error);
}

void Document::execute(std::unique_ptr<base::Operation> operation) {
  if (!operation) return;
  asOneChange([&] {
    Recording recording(*this);
    operation->execute();
    recording.keep(std::move(operation));
    removeUnreferencedRanges();
  });
}

void Document::Recording::takePlace() {
  if (hasPlace_) return;
  hasPlace_ = true;
  place_ = document_.changes_.size();
  document_.changes_.emplace_back();
}

void Document::Recording::keep(std::unique_ptr<base::Operation> operation) {
  if (document_.history_.isReplaying()) return;
  takePlace();
  document_.changes_[place_] = std::move(operation);
}

void Document::holdBack() {
  if (!heldBack_) heldBack_ = std::current_exception();
}

void Document::keepDuringChange(Node* first, unsigned count) {
  if (executionDepth_ == 0) return;
  for (; first && count > 0; first = first->nextSibling(), --count) takenOut_.emplace_back(first);
}

void Document::finishExecution() {
  std::exception_ptr error = std::exchange(heldBack_, nullptr);
  const std::vector<Ref<Node>> takenOut = std::exchange(takenOut_, {});
  for (auto& change : std::exchange(changes_, {})) history_.add(std::move(change));
  while (executionDepth_ == 0 && !pendingOperations_.empty()) {
    const std::unique_ptr<base::Operation> operation = std::move(pendingOperations_.front());
    pendingOperations_.pop_front();
    const std::exception_ptr next = attempt([&] { runDeferred(*operation); });
    if (!error) error = next;
  }
  rethrow(error);
}

/// Runs an operation outside of any execution, so what it has held back comes out of here.
void Document::runDeferred(base::Operation& operation) {
  std::exception_ptr error = attempt([&] { operation.execute(); });
  if (heldBack_) error = std::exchange(heldBack_, nullptr);
  rethrow(error);
}

void Document::executeDeferred(std::unique_ptr<base::Operation> operation) {
  if (!operation) return;
  if (executionDepth_ > 0) {
    pendingOperations_.push_back(std::move(operation));
  } else {
    runDeferred(*operation);
  }
}

void Document::undo() {
  if (executionDepth_ == 0) asOneChange([this] { history_.undo(); });
}

void Document::redo() {
  if (executionDepth_ == 0) asOneChange([this] { history_.redo(); });
}

void Document::setUndoLimit(unsigned limit) {
  if (isInBatch() || isBatchBeginning_) {
    savedHistoryLimit_ = limit;
  } else {
    history_.setLimit(limit);
    forgetChanges();
  }
}

void Document::clearUndo() {
  history_.clear();
  forgetChanges();
}

/// Leaves the places of what the change under way has recorded, since operations at work have
/// theirs among them.
void Document::forgetChanges() {
  for (std::unique_ptr<base::Operation>& change : changes_) change = nullptr;
}

Range* Document::firstSelectedRange() const {
  return ranges_ ? selectedFrom(ranges_->firstRange()) : nullptr;
}

Range* Document::nextSelectedRange(const Range* range) const {
  if (!range) throw DomException(DomException::NotFound);
  if (range->ownerDocument() != this) throw DomException(DomException::WrongDocument);
  return selectedFrom(RangeList::nextRange(*range));
}

Range* Document::selectedFrom(Range* range) {
  while (range && (!range->isSelected() || range->isDetached())) {
    range = RangeList::nextRange(*range);
  }
  return range;
}

void Document::removeUnreferencedRanges() {
  if (ranges_) ranges_->removeUnreferenced();
}

void Document::tearDown() {
  std::exception_ptr error = attempt([this] { beginBatch(); });
  if (!isInBatch()) {
    history_.setLimit(0);
    batchDepth_ = 1;
  }
  pendingOperations_.clear();
  if (!ranges_) return rethrow(error);
  for (Ref<Range> range = firstSelectedRange(); range; range = nextSelectedRange(range.get())) {
    range->deselect();
  }
  for (Subscription& subscription : observers_) {
    if (!subscription.observer) continue;
    const std::exception_ptr next = attempt([&] { endSubscription(subscription); });
    if (!error) error = next;
  }
  ranges_ = nullptr;
  rethrow(error);
}

void Document::announce(const DomEvent& event) {
  if (isInBatch() || !ranges_) return notify(event);
  RangeList::Moves moves(*ranges_);
  try {
    notify(event);
  } catch (...) {
    moves.takeBack();
    throw;
  }
}

void Document::notify(const DomEvent& event) {
  if (isInBatch()) return;
  for (const Subscription& subscription : observers_) {
    if (!subscription.observer) continue;
    if (subscription.eventType && !(subscription.eventType == event.type)) continue;
    if (event.isStale()) return;
    subscription.observer->handleEvent(event);
  }
}

}  // namespace vantry::dom
