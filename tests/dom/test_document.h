// A document with elements of any name, and the fixture of the tests around it.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/model_operation.h"
#include "vantry/dom/range.h"
#include "vantry/dom/tree_walk.h"

namespace vantry::dom::test {

using namespace vantry;
using namespace vantry::dom;
using base::LongVariant;

inline Token token(const std::string& text) { return Token(text.c_str(), true); }

using Log = std::vector<std::string>;

/// An element that keeps its attributes in a map, and behaves as the tests want.
class TestElement : public Element {
 public:
  TestElement(Document* owner, Token tag) : Element(owner), tag_(tag) { ++alive; }
  TestElement(const TestElement& other)
      : Element(other), attributes(other.attributes), tag_(other.tag_) {
    ++alive;
  }
  ~TestElement() override { --alive; }

  /// How many elements live, in all documents.
  static inline int alive = 0;

  std::map<Token, Variant> attributes;
  std::string content;  // written before the children
  bool isWrittenResult = true;
  bool readOnly = false;
  bool takesChildren = true;
  bool takesAttributes = true;
  bool passesHooksOn = true;
  Log* log = nullptr;  // of hooks

  using Element::hasFlag;

  Ref<Node> cloneNode(bool deep) const override {
    Ref<Node> copy = new TestElement(*this);
    if (deep) cloneChildrenInto(*copy);
    return copy;
  }
  Token tagName() const override { return tag_; }
  bool isReadOnly() const override { return readOnly; }
  bool canReplaceChildren(Node*, unsigned, NewChildren) const override { return takesChildren; }
  void onAttached() override { note("attached"); }

  Variant getAttribute(Token name) const override {
    const auto found = attributes.find(name);
    return found == attributes.end() ? Variant() : found->second;
  }
  bool hasAttribute(Token name) const override { return attributes.count(name) != 0; }
  bool canSetAttribute(Token, const Variant&) const override { return takesAttributes; }
  bool canRemoveAttribute(Token) const override { return takesAttributes; }
  void doSetAttribute(Token name, const Variant& value) override { attributes[name] = value; }
  void doRemoveAttribute(Token name) override { attributes.erase(name); }

  bool beforeSetAttribute(Element& origin, Token name, const Variant& value) override {
    return hook("beforeSet", origin, name, &value);
  }
  bool afterSetAttribute(Element& origin, Token name) override {
    return hook("afterSet", origin, name);
  }
  bool beforeRemoveAttribute(Element& origin, Token name) override {
    return hook("beforeRemove", origin, name);
  }
  bool afterRemoveAttribute(Element& origin, Token name) override {
    return hook("afterRemove", origin, name);
  }

  bool isWritten() const override { return isWrittenResult; }
  std::ostream& writeAttributes(std::ostream& out) const override {
    std::map<std::string, Variant> inOrder;
    for (const auto& [name, value] : attributes) inOrder[name.str()] = value;
    for (const auto& [name, value] : inOrder) {
      out << ' ' << name << "=\"" << value.as<LongVariant>()->get() << '"';
    }
    return out;
  }
  std::ostream& writeContent(std::ostream& out) const override { return out << content; }

 private:
  void note(const std::string& what) {
    if (log) log->push_back(what + ' ' + tag_.str());
  }
  bool hook(const char* what, const Element& origin, Token name, const Variant* value = nullptr) {
    std::string line =
        std::string(what) + ' ' + tag_.str() + " of " + origin.tagName().str() + '.' + name.str();
    if (value) line += '=' + std::to_string(value->as<LongVariant>()->get());
    if (log) log->push_back(line);
    return passesHooksOn;
  }

  Token tag_;
};

class TestDocument : public Document {
 public:
  Ref<TestElement> element(const std::string& tag) { return new TestElement(this, token(tag)); }
  Ref<Text> text(const char* data) { return createTextNode(data); }
  Ref<DocumentFragment> fragment() { return createDocumentFragment(); }

 protected:
  ~TestDocument() override = default;
  Ref<Element> newElement(Token tagName) override { return new TestElement(this, tagName); }
};

/// An operation that calls a function.
template <class Function>
class CallOperation final : public base::Operation {
 public:
  explicit CallOperation(Function function) : function_(std::move(function)) {}
  void execute() override { function_(); }
  void undo() override {}

 private:
  Function function_;
};

template <class Function>
std::unique_ptr<base::Operation> callOperation(Function function) {
  return std::make_unique<CallOperation<Function>>(std::move(function));
}

/// An observer that writes down its calls.
class Recorder : public IDocObserver {
 public:
  Log log;

  void observerDetached(Token eventType) override {
    log.push_back(std::string("detached ") + (eventType ? eventType.str() : "all"));
  }
  void beforeBatch() override { log.push_back("beforeBatch"); }
  void afterBatch() override { log.push_back("afterBatch"); }
  void handleEvent(const DomEvent& event) override {
    log.push_back(std::string(event.type.str()) + ' ' + event.target->nodeName().str());
  }
};

/// An observer that calls a function with each event.
template <class Function>
class CallObserver final : public Recorder {
 public:
  explicit CallObserver(Function function) : function_(std::move(function)) {}
  void handleEvent(const DomEvent& event) override {
    Recorder::handleEvent(event);
    function_(event);
  }

 private:
  Function function_;
};

inline std::string toXml(const Node& node) {
  std::ostringstream out;
  node.writeXml(out);
  return out.str();
}

/// Makes the tree of `xml`: elements with start and end tag, attributes that hold integers,
/// and text, in the very form in which a tree is written.
inline Ref<TestElement> readXml(TestDocument& document, const std::string& xml) {
  const Ref<TestElement> top = document.element("top");
  Node* current = top.get();
  for (std::size_t at = 0; at < xml.size();) {
    const std::size_t end = xml[at] == '<' ? xml.find('>', at) + 1 : xml.find('<', at);
    const std::string piece = xml.substr(at, end - at);
    at = end;
    if (piece[0] != '<') {
      current->appendChild(document.createTextNode(piece.c_str()).get());
    } else if (piece[1] == '/') {
      current = current->parent();
    } else {
      std::istringstream tag(piece.substr(1, piece.size() - 2));
      std::string word;
      tag >> word;
      const Ref<TestElement> element = document.element(word);
      while (tag >> word) {
        const std::size_t equals = word.find('=');
        element->setAttribute(token(word.substr(0, equals)),
                              LongVariant(std::stoi(word.substr(equals + 2))));
      }
      current = current->appendChild(element.get());
    }
  }
  Ref<Node> root = top->removeChild(top->firstChild());
  return static_cast<TestElement*>(root.get());
}

/// Expects every link and mark in the subtree of `root` to be right.
inline void checkLinks(Node& root) {
  walkSubtree(root, [](Node& node) {
    const bool isDocument = node.nodeType() == Node::DocumentNode;
    Node* last = nullptr;
    for (Node* child = node.firstChild(); child; child = child->nextSibling()) {
      EXPECT_EQ(child->parent(), &node);
      EXPECT_EQ(child->previousSibling(), last);
      EXPECT_EQ(child->isInDocument(), isDocument ? !last : node.isInDocument());
      EXPECT_GE(child->refCount(), 1U);
      last = child;
    }
    EXPECT_EQ(node.lastChild(), last);
    return true;
  });
}

/// A document, given up after each test; no element may be left then.
class TreeTest : public testing::Test {
 protected:
  TreeTest() : document(new TestDocument) {}
  ~TreeTest() override {
    if (!document) return;
    checkLinks(*document);
    document->tearDown();
    document = nullptr;
    EXPECT_EQ(TestElement::alive, 0);
  }

  /// Makes the tree of `xml` the document's only child, without record or events.
  TestElement* load(const std::string& xml) {
    const Ref<TestElement> root = readXml(*document, xml);
    if (document->firstChild()) document->removeChild(document->firstChild());
    document->appendChild(root.get());
    return root.get();
  }

  std::string xml() const { return toXml(*document->firstChild()); }

  /// The first node of this name in the document; for a text "#text".
  Node* node(const std::string& name) const { return nodeBelow(*document, name); }
  static Node* nodeBelow(Node& root, const std::string& name) {
    Node* found = nullptr;
    walkSubtree(root, [&](Node& each) {
      if (!found && each.nodeName() == token(name)) found = &each;
      return !found;
    });
    return found;
  }
  TestElement* element(const std::string& tag) const {
    return static_cast<TestElement*>(node(tag));
  }
  Text* text() const { return node("#text")->asText(); }

  Ref<TestDocument> document;
};

}  // namespace vantry::dom::test

/// Expects an dom::DomException with this code.
#define EXPECT_DOM_ERROR(expectedCode, statement)            \
  try {                                                      \
    statement;                                               \
    ADD_FAILURE() << #statement " raised nothing";           \
  } catch (const dom::DomException& error) {                 \
    EXPECT_EQ(error.code(), static_cast<int>(expectedCode)); \
  }
