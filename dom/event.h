// The events of a document.
#pragma once

#include "vantry/base/token.h"
#include "vantry/base/variant.h"

namespace vantry::dom {

using base::StaticToken;
using base::Token;
using base::Variant;

class Node;
class Range;

/// The type of each event; an observer may subscribe to one of them.
namespace EventType {
inline constinit const StaticToken BeforeReplaceChildren("BeforeReplaceChildren");
inline constinit const StaticToken AfterReplaceChildren("AfterReplaceChildren");
inline constinit const StaticToken BeforeReplaceText("BeforeReplaceText");
inline constinit const StaticToken AfterReplaceText("AfterReplaceText");
inline constinit const StaticToken BeforeSetAttribute("BeforeSetAttribute");
inline constinit const StaticToken AfterSetAttribute("AfterSetAttribute");
inline constinit const StaticToken BeforeRemoveAttribute("BeforeRemoveAttribute");
inline constinit const StaticToken AfterRemoveAttribute("AfterRemoveAttribute");
inline constinit const StaticToken BeforeSelectionChange("BeforeSelectionChange");
inline constinit const StaticToken AfterSelectionChange("AfterSelectionChange");
inline constinit const StaticToken BeforeDeselect("BeforeDeselect");
}  // namespace EventType

/// Something that happens at `target`. Events live on the stack for the time of one notification.
struct DomEvent {
  DomEvent(Node* eventTarget, Token eventType) : target(eventTarget), type(eventType) {}
  virtual ~DomEvent() = default;

  /// A stale event reaches no further observer.
  virtual bool isStale() const { return false; }

  Node* target;
  Token type;
};

struct DomTextEvent : DomEvent {
  using DomEvent::DomEvent;
};

struct DomAttributeEvent : DomEvent {
  DomAttributeEvent(Node* element, Token eventType, Token attribute)
      : DomEvent(element, eventType), name(attribute) {}
  Token name;
};

/// An event of a range; stale once the range is detached.
struct DomRangeEvent : DomEvent {
  DomRangeEvent(Range* range, Token eventType);
  bool isStale() const override;
};

/// `count` children of `target` from `first` on are about to be replaced by the chain
/// `newChildren`.
struct BeforeReplaceChildrenEvent : DomEvent {
  BeforeReplaceChildrenEvent(Node* parent, Node* firstOut, Node* chainIn, unsigned countOut)
      : DomEvent(parent, EventType::BeforeReplaceChildren),
        first(firstOut),
        newChildren(chainIn),
        count(countOut) {}
  Node* first;
  Node* newChildren;
  unsigned count;
};

struct AfterReplaceChildrenEvent : DomEvent {
  explicit AfterReplaceChildrenEvent(Node* parent)
      : DomEvent(parent, EventType::AfterReplaceChildren) {}
};

/// `count` bytes of `target` from `offset` on are about to be replaced by `text`, null for no text.
struct BeforeReplaceTextEvent : DomTextEvent {
  BeforeReplaceTextEvent(Node* node, unsigned start, unsigned countOut, const char* textIn)
      : DomTextEvent(node, EventType::BeforeReplaceText),
        offset(start),
        count(countOut),
        text(textIn) {}
  unsigned offset;
  unsigned count;
  const char* text;
};

struct AfterReplaceTextEvent : DomTextEvent {
  explicit AfterReplaceTextEvent(Node* node) : DomTextEvent(node, EventType::AfterReplaceText) {}
};

/// Attribute `name` of `target` is about to get `value`, which lives as long as the event.
struct BeforeSetAttributeEvent : DomAttributeEvent {
  BeforeSetAttributeEvent(Node* element, Token attribute, const Variant& newValue)
      : DomAttributeEvent(element, EventType::BeforeSetAttribute, attribute), value(newValue) {}
  const Variant& value;
};

struct AfterSetAttributeEvent : DomAttributeEvent {
  AfterSetAttributeEvent(Node* element, Token attribute)
      : DomAttributeEvent(element, EventType::AfterSetAttribute, attribute) {}
};

struct BeforeRemoveAttributeEvent : DomAttributeEvent {
  BeforeRemoveAttributeEvent(Node* element, Token attribute)
      : DomAttributeEvent(element, EventType::BeforeRemoveAttribute, attribute) {}
};

struct AfterRemoveAttributeEvent : DomAttributeEvent {
  AfterRemoveAttributeEvent(Node* element, Token attribute)
      : DomAttributeEvent(element, EventType::AfterRemoveAttribute, attribute) {}
};

/// A selected range is about to get the bounds given here.
struct BeforeSelectionChangeEvent : DomRangeEvent {
  BeforeSelectionChangeEvent(Range* range, Node* newStart, unsigned newStartOffset, Node* newEnd,
                             unsigned newEndOffset)
      : DomRangeEvent(range, EventType::BeforeSelectionChange),
        startNode(newStart),
        startOffset(newStartOffset),
        endNode(newEnd),
        endOffset(newEndOffset) {}
  Node* startNode;
  unsigned startOffset;
  Node* endNode;
  unsigned endOffset;
};

struct AfterSelectionChangeEvent : DomRangeEvent {
  explicit AfterSelectionChangeEvent(Range* range)
      : DomRangeEvent(range, EventType::AfterSelectionChange) {}
};

struct BeforeDeselectEvent : DomRangeEvent {
  explicit BeforeDeselectEvent(Range* range) : DomRangeEvent(range, EventType::BeforeDeselect) {}
};

/// Somebody who wants to know what happens in a document. The document does not own its observers:
/// an observer must be removed before it is destroyed.
class IDocObserver {
 public:
  virtual ~IDocObserver() = default;

  /// The subscription to `eventType` (null: to all events) has ended.
  virtual void observerDetached(Token eventType) = 0;
  /// A batch begins, or has ended; within it nothing is recorded and no events are sent.
  virtual void beforeBatch() = 0;
  virtual void afterBatch() = 0;
  /// An observer may subscribe, unsubscribe and read here. Changes of the tree are best deferred by
  /// Document::executeDeferred(); one made here takes place inside the change that the event
  /// reports, which then completes as far as it still can. What an observer throws comes out of the
  /// mutator, see Document::execute().
  virtual void handleEvent(const DomEvent& event) = 0;
};

}  // namespace vantry::dom
