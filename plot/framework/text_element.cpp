#include "vantry/plot/framework/text_element.h"

#include "vantry/base/escape_writers.h"
#include "vantry/base/unicode_converter.h"
#include "vantry/plot/values/value_printers.h"

namespace vantry::plot {

namespace {

bool isWhiteSpace(const char* text) {
  while (*text != '\0') {
    if (base::nativeCharacterLength(text) != 1 || static_cast<unsigned char>(*text) > 32)
      return false;
    ++text;
  }
  return true;
}

}  // namespace

bool acceptsOnlyText(const PlotElement& element, dom::NewChildren newChildren) {
  if (!newChildren || newChildren.first()->nodeType() == dom::Node::TextNode) return true;
  return element.refuse(RefusalKind::notText);
}

bool TextElement::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return acceptsOnlyText(*this, newChildren);
}

bool TextElement::isBlank(bool allowWhiteSpace) const {
  for (const dom::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (child->nodeType() != dom::Node::TextNode) return false;
    const char* text = child->nodeValue();
    if (text && !(allowWhiteSpace && isWhiteSpace(text))) return false;
  }
  return true;
}

void TextElement::putText(std::ostream& out) const {
  if (isBlank(true)) {
    out << "NIL";
    return;
  }
  for (const dom::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (const char* text = child->nodeValue()) out << text;
  }
}

void TextElement::putNamed(CmdWriter& writer, Token name) const {
  const bool isBracketed = !isBlank(true);
  writer.beginAssignment(name);
  if (isBracketed) writer.out() << '(';
  putText(writer.out());
  if (isBracketed) writer.out() << ')';
  writer.endItem();
}

void StringElement::printQuoted(CmdWriter& writer) const {
  writer.out() << '"';
  for (const dom::Node* child = firstChild(); child; child = child->nextSibling()) {
    base::writeQuotedText(writer.out(), child->nodeValue());
  }
  writer.out() << '"';
}

bool StringElement::beginCommand(CmdWriter& writer) const {
  writer.beginAssignment(tagName());
  printQuoted(writer);
  writer.endItem();
  return false;
}

}  // namespace vantry::plot
