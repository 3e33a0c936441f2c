#include "vantry/dom/event.h"

#include "vantry/dom/range.h"

namespace vantry::dom {

DomRangeEvent::DomRangeEvent(Range* range, Token eventType) : DomEvent(range, eventType) {}

bool DomRangeEvent::isStale() const { return static_cast<const Range*>(target)->isDetached(); }

}  // namespace vantry::dom
