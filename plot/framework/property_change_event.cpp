#include "vantry/plot/framework/property_change_event.h"

namespace PlotDom {

namespace {

constinit const Ubase::StaticToken afterPropertyChange("AfterPropertyChange");

}  // namespace

AfterPropertyChangeEvent::AfterPropertyChangeEvent(Arbor::Node& element, Ubase::Token property)
    : DomAttributeEvent(&element, afterPropertyChange, property) {}

Ubase::Token AfterPropertyChangeEvent::eventType() { return afterPropertyChange; }

}  // namespace PlotDom
