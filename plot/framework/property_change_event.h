// The event that follows every change of a resolved property.
#pragma once

#include "vantry/base/token.h"
#include "vantry/dom/event.h"

namespace PlotDom {

/// Sent to the observers of a document when the value of a property, be it local or inherited, has
/// changed. Its type is "AfterPropertyChange".
class AfterPropertyChangeEvent : public Arbor::DomAttributeEvent {
 public:
  AfterPropertyChangeEvent(Arbor::Node& element, Ubase::Token property);

  static Ubase::Token eventType();
};

}  // namespace PlotDom
