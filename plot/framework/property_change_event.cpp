#include "vantry/plot/framework/property_change_event.h"

namespace vantry::plot {

namespace {

constinit const base::StaticToken afterPropertyChange("AfterPropertyChange");

}  // namespace

AfterPropertyChangeEvent::AfterPropertyChangeEvent(dom::Node& element, base::Token property)
    : DomAttributeEvent(&element, afterPropertyChange, property) {}

base::Token AfterPropertyChangeEvent::eventType() { return afterPropertyChange; }

}  // namespace vantry::plot
