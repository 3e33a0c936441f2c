// The fixture of the tests of the plot model.
#pragma once

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/event.h"
#include "vantry/plot/document.h"
#include "vantry/plot/framework/property_change_event.h"
#include "vantry/plot/values/variants.h"

namespace vantry::plot::test {

using namespace vantry;
using namespace vantry::plot;
using base::BoolVariant;
using base::DoubleVariant;
using base::FixedStringVariant;
using base::LongVariant;
using base::Ref;
using base::TokenVariant;
using dom::DomException;

inline Token token(const std::string& text) { return Token(text.c_str(), true); }

/// The code of the DomException that `act` throws, or 0.
template <class Act>
int codeOf(Act act) {
  try {
    act();
  } catch (const DomException& error) {
    return error.code();
  }
  return 0;
}

inline std::string xmlOf(const dom::Node& node) {
  std::ostringstream out;
  node.writeXml(out);
  return out.str();
}

/// The value of a property as the text of an attribute, "name='value'" without the quotes.
inline std::string textOf(const PlotElement& element, Token name, const Variant& value) {
  std::ostringstream out;
  element.findProperty(name)->putXml(out, value);
  const std::string attribute = out.str();  // ` name="value"`
  const std::size_t start = attribute.find('"') + 1;
  return attribute.empty() ? "" : attribute.substr(start, attribute.size() - start - 1);
}

/// The resolved value of a property, as the text of an attribute.
inline std::string valueOf(const PlotElement& element, Token name) {
  return textOf(element, name, element.getPropertyValue(name));
}

/// Attributes by name and text.
using Attributes = std::initializer_list<std::pair<Token, const char*>>;

/// Has a document whose complaints are kept.
class PlotTest : public testing::Test {
 protected:
  PlotTest() {
    complaints_.clear();
    document->setErrorReporter(keepComplaint);
  }
  ~PlotTest() override { document->tearDown(); }  // ranges may hold the document

  /// A new element in no tree.
  Ref<PlotElement> make(Token name, Attributes attributes = {}) {
    Ref<PlotElement> element(document->createElement(name));
    for (const auto& [attribute, text] : attributes) {
      element->setAttributeFromString(attribute, text);
    }
    return element;
  }
  template <class T>
  Ref<T> make(Attributes attributes = {}) {
    return static_cast<T*>(make(T::tag, attributes).get());
  }

  /// A new element at the end of `parent`.
  PlotElement* add(dom::Node& parent, Token name, Attributes attributes = {}) {
    const Ref<PlotElement> element = make(name, attributes);
    parent.appendChild(element.get());
    return element.get();
  }
  template <class T>
  T* add(dom::Node& parent, Attributes attributes = {}) {
    return static_cast<T*>(add(parent, T::tag, attributes));
  }

  void addText(dom::Node& parent, const char* text) {
    parent.appendChild(document->createTextNode(text).get());
  }

  /// All complaints since the last call, one behind the other.
  std::string takeComplaints() { return std::exchange(complaints_, std::string()); }

  const Ref<PlotDocument> document = new PlotDocument;

 private:
  static int keepComplaint(const char* format, va_list arguments) {
    char text[1000];
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    complaints_ += text;
    return length;
  }

  static inline std::string complaints_;
};

/// Keeps of which properties a change is reported, as "tag.property".
class PropertyObserver : public dom::IDocObserver {
 public:
  explicit PropertyObserver(dom::Document& document) : document_(&document) {
    document.addObserver(this, AfterPropertyChangeEvent::eventType());
  }
  virtual ~PropertyObserver() {
    if (document_) document_->removeObserver(this);
  }

  std::vector<std::string> take() { return std::exchange(log_, {}); }

  void observerDetached(Token) override { document_ = nullptr; }
  void beforeBatch() override {}
  void afterBatch() override {}
  void handleEvent(const dom::DomEvent& event) override {
    const auto& change = static_cast<const AfterPropertyChangeEvent&>(event);
    log_.push_back(std::string(change.target->nodeName().str()) + "." + change.name.str());
  }

 private:
  dom::Document* document_;
  std::vector<std::string> log_;
};

}  // namespace vantry::plot::test
