#include "vantry/dom/text.h"

#include <algorithm>

#include "vantry/base/escape_writers.h"
#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/model_operation.h"

namespace vantry::dom {

Text::Text(Document* owner, const char* text) : AtomicNode(owner), data_(text ? text : "") {}

Token Text::nodeName() const {
  static const Token name("#text", false);
  return name;
}

Ref<Node> Text::cloneNode(bool) const { return new Text(*this); }

std::ostream& Text::writeXml(std::ostream& out) const {
  return base::writeEscapedLocaleText(out, nodeValue());
}

void Text::setNodeValue(const char* text) { replaceData(0, length(), text); }

bool Text::canReplaceText(unsigned, unsigned, const char* text) const {
  return !ownerDocument() || ownerDocument()->canHoldText(text);
}

std::optional<std::string> Text::substringData(unsigned offset, unsigned count) const {
  if (offset > length()) throw DomException(DomException::IndexSize);
  std::string part = data_.substr(offset, count);
  if (part.empty()) return std::nullopt;
  return part;
}

void Text::checkChangeAt(unsigned offset) const {
  if (offset > length()) throw DomException(DomException::IndexSize);
  if (isReadOnly()) throw DomException(DomException::NoModificationAllowed);
}

void Text::checkReplaceData(unsigned offset, unsigned count, const char* text) const {
  checkChangeAt(offset);
  if (!canReplaceText(offset, count, text)) throw DomException(DomException::HierarchyRequest);
}

void Text::replaceData(unsigned offset, unsigned count, const char* text) {
  checkReplaceData(offset, count, text);
  if (isInDocument()) {
    ownerDocument()->perform<ReplaceTextOperation>(this, offset, count, text);
  } else {
    doReplaceText(offset, count, text);
  }
}

Ref<Text> Text::splitText(unsigned offset) {
  checkChangeAt(offset);
  const unsigned tailLength = length() - offset;
  if (parent()) checkReplaceData(offset, tailLength, nullptr);  // before the tail is put in
  Ref<Text> tail = new Text(ownerDocument(), data_.c_str() + offset);
  if (isInDocument()) {
    ownerDocument()->asOneChange([&] {
      parent()->insertBefore(tail.get(), nextSibling());
      checkReplaceData(offset, tailLength, nullptr);
      ownerDocument()->perform<ReplaceTextOperation>(this, offset, tailLength, nullptr);
    });
  } else if (parent()) {
    parent()->insertBefore(tail.get(), nextSibling());
    deleteData(offset, tailLength);
  } else {
    Ref<Node> rest = cut(nextSibling_);
    link(tail->nextSibling_, tail.get(), std::move(rest));
    link(nextSibling_, this, tail);
    doReplaceText(offset, tailLength, nullptr);
  }
  return tail;
}

void Text::doReplaceText(unsigned offset, unsigned count, const char* text) {
  data_.replace(std::min(offset, length()), count, text ? text : "");
  if (data_.empty()) data_.shrink_to_fit();
  if (ownerDocument()) ownerDocument()->noteChange();
}

}  // namespace vantry::dom
