// The document: root of a tree, and the hub of everything that happens to it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <list>
#include <memory>
#include <utility>
#include <vector>

#include "vantry/dom/document_fragment.h"
#include "vantry/dom/element.h"
#include "vantry/dom/event.h"
#include "vantry/dom/operation_history.h"
#include "vantry/dom/text.h"

namespace vantry::dom {

class RangeList;

/// The root of a tree. Its first child is the root element.
///
/// A document executes and records the changes of its tree, notifies its observers and owns its
/// ranges. A batch records nothing and sends no events.
///
/// A document, with all that belongs to it, is for one thread at a time. Different documents do not
/// touch each other and may be in use on any number of threads at once.
///
/// A document lives on the heap, in a Ref. Its destructor is protected, so it cannot be made
/// elsewhere; a derived class keeps its own protected too. If ranges were made, call tearDown()
/// before the last reference is dropped, since they may hold the document itself. The content goes
/// with the last reference; the empty document then stays for as long as somebody holds a node that
/// was made for it, so that ownerDocument() of that node can be used.
class Document : public InnerNode {
 public:
  void release() override;

  int nodeType() const override { return DocumentNode; }
  Token nodeName() const override;
  /// Throws DomException NotSupported.
  Ref<Node> cloneNode(bool deep) const override;
  /// Writes the XML declaration, the root element and a newline.
  std::ostream& writeXml(std::ostream& out) const override;
  void doReplaceChildren(Node* first, unsigned count, Node* newChildren) override;

  /// A new element, or null for an unknown name.
  Ref<Element> createElement(Token tagName) { return newElement(tagName); }
  /// A new text. A null `text` makes an empty one. Throws DomException InvalidCharacter if
  /// canHoldText() refuses.
  Ref<Text> createTextNode(const char* text);
  /// A new, empty fragment: it carries nodes that shall go in together.
  Ref<DocumentFragment> createDocumentFragment();
  /// A range with both points at the start of the document; null after tearDown().
  Ref<Range> createRange(bool selected);

  /// Whether the format of the document has all characters of a text.
  virtual bool canHoldText(const char*) const { return true; }
  /// Whether a node is of a class for which the document is made. Any other is refused as a child,
  /// with HierarchyRequest.
  virtual bool knowsClassOf(const Node&) const { return true; }

  /// The first child, if that is an element, else null.
  Element* documentElement() const;

  /// A number that grows with each change of a node that was made for the document, be it in the
  /// tree of the document or not. What was computed from nodes holds as long as it stays the same.
  std::uint64_t changeCount() const { return changeCount_; }
  /// To be called by an element that has changed an attribute. Changes of children and texts count
  /// themselves.
  void noteChange() { ++changeCount_; }

  /// Subscribes to one type of events, or to all. A null observer is ignored. Observers are called
  /// in the order of subscription, but the next one to subscribe takes a place that was given up.
  virtual void addObserver(IDocObserver* observer);
  virtual void addObserver(IDocObserver* observer, Token eventType);
  /// End all subscriptions of the observer, or one; each end calls observerDetached().
  virtual void removeObserver(IDocObserver* observer);
  virtual void removeObserver(IDocObserver* observer, Token eventType);

  /// Between these two nothing is recorded and no events are sent. They nest. A batch empties the
  /// undo history. If an observer throws at its begin, there is no batch; afterBatch() is called
  /// for those already notified. One that begins within another is part of that, even at its begin.
  virtual void beginBatch();
  virtual void endBatch();
  bool isInBatch() const { return batchDepth_ > 0; }

  /// Runs the operation and records it. An operation that throws is not recorded. What an observer
  /// throws before a change prevents it; what one throws after a change is thrown when all is done
  /// and recorded, deferred operations as well.
  void execute(std::unique_ptr<base::Operation> operation);

  /// Makes an operation and executes it. In a batch, where nothing is recorded, it is not kept.
  template <class Operation, class... Arguments>
  void perform(const Arguments&... arguments) {
    if (isInBatch()) {
      asOneChange([&] {
        Operation(arguments...).execute();
        removeUnreferencedRanges();
      });
    } else {
      execute(std::make_unique<Operation>(arguments...));
    }
  }

  /// Does `work` as one change, or as part of the one under way. Deferred operations run at its
  /// end, and what observers throw after a change is thrown there. A node that is taken out of a
  /// tree meanwhile lives until then, even if nobody holds it, so that the code at work can go on
  /// using it. This is no transaction: if `work` throws, what it has done stays and is recorded. Of
  /// several exceptions the first reaches the caller. The caller must hold the document.
  template <class Work>
  void asOneChange(Work work) {
    try {
      const Execution execution(*this);
      work();
    } catch (...) {
      if (executionDepth_ > 0) throw;
      holdBack();
    }
    if (executionDepth_ == 0) finishExecution();
  }

  /// To be called before `count` siblings from `first` on are taken out: they live as long as the
  /// change under way.
  void keepDuringChange(Node* first, unsigned count);

  /// Runs the operation when the execution under way has ended, at once if there is none, without
  /// recording it.
  virtual void executeDeferred(std::unique_ptr<base::Operation> operation);

  /// An operation calls this with what follows its change, such as events. The operation is
  /// recorded behind those that made their changes before. What `report` throws is thrown when the
  /// execution has ended.
  template <class Report>
  void afterChange(Report report) {
    if (recording_) recording_->takePlace();
    throwLate(report);
  }

  /// Calls `report` within a change. What it throws is thrown when the whole change is complete.
  template <class Report>
  void throwLate(Report report) {
    try {
      report();
    } catch (...) {
      holdBack();
    }
  }

  /// Take back the last group of changes, and do it again. They do nothing where there is none, nor
  /// within a change, as in an observer: defer them there. Observers are notified of each change.
  /// What an observer changes meanwhile is not recorded. If one throws before a change, the group
  /// is divided there: what is undone by then can be redone, and the rest can still be undone.
  void undo();
  void redo();
  bool canUndo() const { return history_.canUndo(); }
  bool canRedo() const { return history_.canRedo(); }
  /// The largest number of groups that can be undone, 100 at first. Empties the history. Within a
  /// batch the number takes effect at its end.
  void setUndoLimit(unsigned limit);
  /// Forgets all that could be undone or redone, also what the change under way has recorded. The
  /// tree stays as it is.
  void clearUndo();
  /// Makes the next change begin a group. Without it changes join the group under way, which also
  /// ends with an undo or redo.
  void startUndoGroup() { history_.startGroup(); }

  /// The selected ranges one by one, null at the end. The second throws DomException NotFound for
  /// null and WrongDocument for a range of another document.
  Range* firstSelectedRange() const;
  Range* nextSelectedRange(const Range* range) const;

  /// Ends everything but the tree: observers and ranges are detached, the history is emptied, and
  /// the document stays in a batch. What an observer throws is thrown when that is done. Can be
  /// called again.
  virtual void tearDown();

  /// Notifies the observers of this type of event.
  virtual void notify(const DomEvent& event);
  /// Notifies of a change that is about to come. If an observer prevents it, the ranges that have
  /// moved for it move back.
  void announce(const DomEvent& event);

 protected:
  Document();
  ~Document() override;

  /// What createElement() returns. Each kind of document has its own elements.
  virtual Ref<Element> newElement(Token tagName) = 0;

 private:
  friend class Node;
  friend class Text;

  struct Subscription {
    Token eventType;         // null: all events
    IDocObserver* observer;  // null: given up
  };

  // How many nodes, made for this document, are alive; the document itself does not count.
  void nodeMade() { ++nodeCount_; }
  void nodeGone();

  class Execution {
   public:
    explicit Execution(Document& document) : document_(document) { ++document_.executionDepth_; }
    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;
    ~Execution() { --document_.executionDepth_; }

   private:
    Document& document_;
  };

  /// The place of an operation that executes in the order of changes.
  class Recording {
   public:
    explicit Recording(Document& document)
        : document_(document), outer_(std::exchange(document.recording_, this)) {}
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;
    ~Recording() { document_.recording_ = outer_; }

    void takePlace();
    void keep(std::unique_ptr<base::Operation> operation);

   private:
    Document& document_;
    Recording* outer_;
    bool hasPlace_ = false;
    std::size_t place_ = 0;
  };

  void holdBack();
  void forgetChanges();
  void finishExecution();
  void runDeferred(base::Operation& operation);

  /// The first selected and live range from `range` on, or null.
  static Range* selectedFrom(Range* range);

  void endSubscription(Subscription& subscription);
  std::exception_ptr reportEndOfBatch(std::list<Subscription>::iterator end);
  void removeUnreferencedRanges();

  OperationHistory history_;
  // Places in a list stay, even one given up, while whoever is called subscribes and unsubscribes.
  std::list<Subscription> observers_;
  std::deque<std::unique_ptr<base::Operation>> pendingOperations_;
  Ref<RangeList> ranges_;
  std::vector<std::unique_ptr<base::Operation>> changes_;  // of the execution, in their order
  Recording* recording_ = nullptr;                         // the innermost
  std::vector<Ref<Node>> takenOut_;                        // during the execution
  std::exception_ptr heldBack_;
  std::size_t nodeCount_ = 0;
  std::uint64_t changeCount_ = 1;
  unsigned batchDepth_ = 0;
  unsigned savedHistoryLimit_ = 0;
  unsigned executionDepth_ = 0;
  bool isBatchBeginning_ = false;
  bool isAbandoned_ = false;
};

/// Does `work` as one change of the node's document; just does it if the node has none.
template <class Work>
void asOneChange(const Node& node, Work work) {
  if (Document* document = node.ownerDocument()) {
    document->asOneChange(work);
  } else {
    work();
  }
}

}  // namespace vantry::dom
