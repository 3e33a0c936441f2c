#include "vantry/plot/framework/text_content.h"

#include "vantry/base/escape_writers.h"
#include "vantry/base/unicode_converter.h"
#include "vantry/plot/values/value_printers.h"

namespace PlotDom {

namespace {

bool isWhiteSpace(const char* text) {
  while (*text != '\0') {
    if (Ubase::nativeCharacterLength(text) != 1 || static_cast<unsigned char>(*text) > 32)
      return false;
    ++text;
  }
  return true;
}

}  // namespace

bool acceptsOnlyText(const PlotElement& element, Arbor::NewChildren newChildren) {
  if (!newChildren || newChildren.first()->nodeType() == Arbor::Node::TextNode) return true;
  element.report("not a text node child [parent '%s']\n", element.tagName().str());
  return false;
}

bool PCDataElement::canReplaceChildren(Arbor::Node*, unsigned,
                                       Arbor::NewChildren newChildren) const {
  return acceptsOnlyText(*this, newChildren);
}

bool PCDataElement::isBlank(bool allowWhiteSpace) const {
  for (const Arbor::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (child->nodeType() != Arbor::Node::TextNode) return false;
    const char* text = child->nodeValue();
    if (text && !(allowWhiteSpace && isWhiteSpace(text))) return false;
  }
  return true;
}

void PCDataElement::putText(std::ostream& out) const {
  if (isBlank(true)) {
    out << "NIL";
    return;
  }
  for (const Arbor::Node* child = firstChild(); child; child = child->nextSibling()) {
    if (const char* text = child->nodeValue()) out << text;
  }
}

void PCDataElement::putNamed(CmdWriter& writer, Token name) const {
  const bool isBracketed = !isBlank(true);
  writer.beginAssignment(name);
  if (isBracketed) writer.out() << '(';
  putText(writer.out());
  if (isBracketed) writer.out() << ')';
  writer.endItem();
}

void StringElement::printQuoted(CmdWriter& writer) const {
  writer.out() << '"';
  for (const Arbor::Node* child = firstChild(); child; child = child->nextSibling()) {
    Ubase::writeQuotedText(writer.out(), child->nodeValue());
  }
  writer.out() << '"';
}

bool StringElement::beginCommand(CmdWriter& writer) const {
  writer.beginAssignment(tagName());
  printQuoted(writer);
  writer.endItem();
  return false;
}

}  // namespace PlotDom
