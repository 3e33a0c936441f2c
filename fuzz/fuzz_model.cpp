// The model: the bytes say which nodes are made, moved, changed and removed, where ranges stand,
// and when something is undone and done again.

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "SRC/element_factory.h"
#include "SRC/plot_document.h"
#include "base/text_errors.h"
#include "dom/dom_exception.h"
#include "dom/range.h"
#include "fuzz_input.h"

namespace {

using namespace PlotDom;
using Ubase::Ref;

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
      } catch (const Arbor::DomException&) {
      } catch (const Arbor::RangeException&) {
      } catch (const Ubase::BadUnicodeString&) {
      }
    }
    undoAndRedo();
  }

 private:
  Arbor::Node& node() { return *nodes_[input_.below(nodes_.size())]; }
  PlotElement* element() { return PlotElement::from(&node()); }

  Token anyWord() { return Ubase::tokenById(1 + static_cast<int>(input_.below(Ubase::wordCount))); }

  void step() {
    switch (input_.take<std::uint8_t>() % 14) {
      case 0: {
        static const std::vector<Token> names = elementNames();
        nodes_.emplace_back(document_->createElement(names[input_.below(names.size())]));
        break;
      }
      case 1:
        nodes_.emplace_back(document_->createTextNode(input_.shortText().c_str()));
        break;
      case 2:
        node().appendChild(&node());
        break;
      case 3:
        node().insertBefore(&node(), &node());
        break;
      case 4:
        if (Arbor::Node* child = node().firstChild()) child->parent()->replaceChild(&node(), child);
        break;
      case 5: {
        Arbor::Node& child = node();
        if (child.parent()) child.parent()->removeChild(&child);
        break;
      }
      case 6:
        if (PlotElement* target = element()) {
          const Token name = anyWord();
          target->setAttributeFromString(name, input_.shortText().c_str());
        }
        break;
      case 7:
        if (PlotElement* target = element()) target->removeAttribute(anyWord());
        break;
      case 8:
        if (PlotElement* target = element()) {
          const Token name = anyWord();
          target->setPropertyValue(name, target->getPropertyValue(name));
        }
        break;
      case 9:
        node().setNodeValue(input_.shortText().c_str());
        break;
      case 10:
        document_->undo();
        break;
      case 11:
        document_->redo();
        break;
      case 12:
        document_->startUndoGroup();
        break;
      default:
        moveRange();
        break;
    }
  }

  void moveRange() {
    if (ranges_.size() < 4) ranges_.push_back(document_->createRange(input_.below(2) == 0));
    Arbor::Range& range = *ranges_[input_.below(ranges_.size())];
    Arbor::Node& container = node();
    const auto offset = static_cast<unsigned>(input_.below(8));
    if (input_.below(2) == 0) {
      range.setStart(&container, offset);
    } else {
      range.setEnd(&container, offset);
    }
  }

  // Text that was replaced by text of another length does not come back as it was, so this asks
  // only that nothing breaks.
  void undoAndRedo() {
    try {
      while (document_->canUndo()) document_->undo();
      while (document_->canRedo()) document_->redo();
      std::ostringstream out;
      document_->writeXml(out);
    } catch (const Arbor::DomException&) {
    } catch (const Ubase::BadUnicodeString&) {
    }
  }

  FuzzInput& input_;
  Ref<PlotDocument> document_{new PlotDocument};
  std::vector<Ref<Arbor::Node>> nodes_;
  std::vector<Ref<Arbor::Range>> ranges_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  Playground(input).play();
  return 0;
}
