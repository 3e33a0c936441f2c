// The event that follows every change of a resolved property.
#pragma once

#include "vantry/base/token.h"
#include "vantry/dom/event.h"

namespace vantry::plot {

/// Sent to the observers of a document when the value of a property, be it local or inherited, has
/// changed. Its type is "AfterPropertyChange".
class AfterPropertyChangeEvent : public dom::DomAttributeEvent {
 public:
  AfterPropertyChangeEvent(dom::Node& element, base::Token property);

  static base::Token eventType();
};

}  // namespace vantry::plot
