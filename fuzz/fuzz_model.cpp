// The model: the bytes say which nodes are made, moved, changed and removed, where ranges stand,
// and when something is undone and done again.

#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "vantry/base/text_errors.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/range.h"
#include "vantry/plot/document.h"
#include "vantry/plot/element_factory.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using vantry::base::Ref;

int dropMessage(const char*, va_list) { return 0; }

/// A document and a handful of its nodes, in the tree or not.
class Playground {
 public:
  explicit Playground(FuzzInput& input) : input_(input) {
    document_->setErrorReporter(dropMessage);
    nodes_.emplace_back(document_->createElement(Word::Canvas));
    document_->appendChild(nodes_[0].get());
  }
  ~Playground() { document_->tearDown(); }

  void play() {
    while (!input_.isEmpty()) {
      try {
        step();
      } catch (const dom::DomException&) {
      } catch (const dom::RangeException&) {
      } catch (const base::BadUnicodeString&) {
      }
    }
    undoAndRedo();
  }

 private:
  dom::Node& node() { return *nodes_[input_.below(nodes_.size())]; }
  PlotElement* element() { return PlotElement::from(&node()); }

  Token anyWord() { return base::tokenById(1 + static_cast<int>(input_.below(base::wordCount))); }

  void step() {
    static constexpr void (Playground::*steps[])() = {
        &Playground::makeElement,
        &Playground::makeText,
        &Playground::makeFragment,
        &Playground::copyNode,
        &Playground::forgetNode,
        &Playground::append,
        &Playground::insert,
        &Playground::replace,
        &Playground::remove,
        &Playground::parseAttribute,
        &Playground::removeAttribute,
        &Playground::setProperty,
        &Playground::dropInherited,
        &Playground::setNodeValue,
        &Playground::replaceData,
        &Playground::splitText,
        &Playground::undo,
        &Playground::redo,
        &Playground::startUndoGroup,
        &Playground::beginBatch,
        &Playground::endBatch,
        &Playground::makeRange,
        &Playground::moveRange,
        &Playground::selectNode,
        &Playground::compareRanges,
        &Playground::endRange,
        &Playground::changeSelection,
        &Playground::findStyles,
    };
    (this->*steps[input_.take<std::uint8_t>() % std::size(steps)])();
  }

  // Nodes.

  void makeElement() {
    static const std::vector<Token> names = elementNames();
    nodes_.emplace_back(document_->createElement(names[input_.below(names.size())]));
  }
  void makeText() { nodes_.emplace_back(document_->createTextNode(input_.shortText().c_str())); }
  void makeFragment() { nodes_.emplace_back(document_->createDocumentFragment()); }
  void copyNode() { nodes_.emplace_back(node().cloneNode(input_.below(2) == 0)); }
  void forgetNode() {
    if (nodes_.size() > 1) {
      nodes_.erase(nodes_.begin() + static_cast<std::ptrdiff_t>(input_.below(nodes_.size())));
    }
  }

  // Their places.

  void append() {
    dom::Node& parent = node();
    parent.appendChild(&node());
  }
  void insert() {
    dom::Node& parent = node();
    dom::Node& child = node();
    parent.insertBefore(&child, &node());
  }
  void replace() {
    if (dom::Node* child = node().firstChild()) child->parent()->replaceChild(&node(), child);
  }
  void remove() {
    dom::Node& child = node();
    if (child.parent()) child.parent()->removeChild(&child);
  }

  // Their content.

  void parseAttribute() {
    if (PlotElement* target = element()) {
      const Token name = anyWord();
      target->setAttributeFromString(name, input_.shortText().c_str());
    }
  }
  void removeAttribute() {
    if (PlotElement* target = element()) target->removeAttribute(anyWord());
  }
  void setProperty() {
    PlotElement* target = element();
    const PlotElement* source = element();
    const Token name = anyWord();
    if (target && source) target->setPropertyValue(name, source->getPropertyValue(name));
  }
  void dropInherited() {
    if (PlotElement* target = element()) target->dropInheritedProperties();
  }
  void setNodeValue() { node().setNodeValue(input_.shortText().c_str()); }
  void replaceData() {
    const auto offset = static_cast<unsigned>(input_.below(8));
    const auto count = static_cast<unsigned>(input_.below(8));
    if (dom::Text* text = node().asText()) {
      text->replaceData(offset, count, input_.shortText().c_str());
    }
  }
  void splitText() {
    const auto offset = static_cast<unsigned>(input_.below(8));
    if (dom::Text* text = node().asText()) nodes_.emplace_back(text->splitText(offset));
  }

  // The history.

  void undo() { document_->undo(); }
  void redo() { document_->redo(); }
  void startUndoGroup() { document_->startUndoGroup(); }
  void beginBatch() { document_->beginBatch(); }
  void endBatch() { document_->endBatch(); }

  // Ranges.

  dom::Range* range() {
    return ranges_.empty() ? nullptr : ranges_[input_.below(ranges_.size())].get();
  }
  void makeRange() {
    const bool isSelected = input_.below(2) == 0;
    const dom::Range* pattern = range();
    ranges_.push_back(pattern && input_.below(2) == 0 ? pattern->cloneRange(isSelected)
                                                      : document_->createRange(isSelected));
    if (ranges_.size() > 8) ranges_.erase(ranges_.begin());
  }
  void moveRange() {
    dom::Range* range = this->range();
    if (!range) return;
    dom::Node& container = node();
    const auto offset = static_cast<unsigned>(input_.below(8));
    switch (input_.below(7)) {
      case 0:
        return range->setStart(&container, offset);
      case 1:
        return range->setEnd(&container, offset);
      case 2:
        return range->setStartBefore(&container);
      case 3:
        return range->setStartAfter(&container);
      case 4:
        return range->setEndBefore(&container);
      case 5:
        return range->setEndAfter(&container);
      default:
        return range->collapse(offset % 2 == 0);
    }
  }
  void selectNode() {
    dom::Range* range = this->range();
    if (!range) return;
    dom::Node& chosen = node();
    input_.below(2) == 0 ? range->selectNode(&chosen) : range->selectNodeContents(&chosen);
  }
  void compareRanges() {
    const dom::Range* one = range();
    const dom::Range* other = range();
    if (one) one->compareBoundaryPoints(static_cast<int>(input_.below(5)), *other);
  }
  void endRange() {
    dom::Range* range = this->range();
    if (range) input_.below(2) == 0 ? range->detach() : range->deselect();
  }
  void changeSelection() {
    switch (input_.below(4)) {
      case 0:
        return document_->select(&node());
      case 1:
        document_->selectById(input_.shortText().c_str());
        return;
      case 2:
        return document_->deleteSelection();
      default:
        return document_->clearSelection();
    }
  }

  // The first style that has a value is the same whichever way it is looked for.
  void findStyles() {
    const PlotElement* target = element();
    const Token name = anyWord();
    if (!target) return;
    StyleChain all;
    target->collectStyleChain(all);
    StyleChain effective;
    target->collectEffectiveStyles(effective);
    if (firstWith(name, all) != firstWith(name, effective)) std::abort();
    if (firstWith(name, all) != target->styleParent(name)) std::abort();
  }

  static const PlotElement* firstWith(Token name, const StyleChain& styles) {
    for (const PlotElement* style : styles) {
      if (style->hasAttribute(name)) return style;
    }
    return nullptr;
  }

  // Text that was replaced by text of another length does not come back as it was, so this asks
  // only that nothing breaks.
  void undoAndRedo() {
    while (document_->isInBatch()) document_->endBatch();
    try {
      while (document_->canUndo()) document_->undo();
      while (document_->canRedo()) document_->redo();
      std::ostringstream out;
      document_->printCommands(out, true);
      document_->writeXml(out);
    } catch (const dom::DomException&) {
    } catch (const base::BadUnicodeString&) {
    }
  }

  FuzzInput& input_;
  Ref<PlotDocument> document_{new PlotDocument};
  std::vector<Ref<dom::Node>> nodes_;
  std::vector<Ref<dom::Range>> ranges_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  Playground(input).play();
  return 0;
}
