#include "vantry/dom/text.h"

#include <clocale>
#include <string>

#include "test_document.h"
#include "vantry/base/text_errors.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

/// A text that refuses.
class RefusingText : public Text {
 public:
  using Text::Text;
  bool readOnly = false;
  bool takesText = true;
  bool isReadOnly() const override { return readOnly; }
  bool canReplaceText(unsigned, unsigned, const char*) const override { return takesText; }
};

class TextTest : public TreeTest {};

TEST_F(TextTest, AnEmptyTextIsNull) {
  EXPECT_EQ(document->text("")->nodeValue(), nullptr);
  EXPECT_EQ(document->text(nullptr)->nodeValue(), nullptr);
  EXPECT_EQ(document->text("")->length(), 0U);
  const Ref<Text> text = document->text("abc");
  EXPECT_STREQ(text->nodeValue(), "abc");
  EXPECT_EQ(text->length(), 3U);
  text->deleteData(0, 3);
  EXPECT_EQ(text->nodeValue(), nullptr);
  EXPECT_EQ(text->length(), 0U);
}

// All changes of a text, in the document or not: before, the change, after.
TEST_F(TextTest, DataIsReplaced) {
  const struct {
    const char* before;
    unsigned offset;
    unsigned count;
    const char* text;
    const char* after;  // null: empty
  } cases[] = {
      {"abcdef", 1, 2, "XYZ", "aXYZdef"},
      {"abcdef", 0, 6, "XYZ", "XYZ"},
      {"abcdef", 2, 0, "XYZ", "abXYZcdef"},
      {"abcdef", 2, 3, nullptr, "abf"},
      {"abcdef", 2, 3, "", "abf"},
      {"abcdef", 4, 5, "X", "abcdX"},            // the count is clipped
      {"abcdef", 4, 4294967295U, "X", "abcdX"},  // and does not overflow
      {"abcdef", 6, 5, "x", "abcdefx"},          // at the end it clips to 0
      {"abcdef", 0, 6, nullptr, nullptr},
      {"", 0, 0, "x", "x"},
      {"", 0, 7, "x", "x"},
      {"", 0, 0, "", nullptr},
      {"", 0, 0, nullptr, nullptr},
  };
  TestElement* root = load("<r></r>");
  for (const auto& each : cases) {
    const Ref<Text> detached = document->text(each.before);
    detached->replaceData(each.offset, each.count, each.text);
    EXPECT_STREQ(detached->nodeValue(), each.after);

    const Ref<Text> attached = document->text(each.before);
    root->appendChild(attached.get());
    attached->replaceData(each.offset, each.count, each.text);
    EXPECT_STREQ(attached->nodeValue(), each.after);
    root->removeChild(attached.get());
  }
}

TEST_F(TextTest, TheOtherMutatorsAreReplacements) {
  const Ref<Text> text = document->text("abc");
  text->appendData("def");
  EXPECT_STREQ(text->nodeValue(), "abcdef");
  text->insertData(1, "-");
  EXPECT_STREQ(text->nodeValue(), "a-bcdef");
  text->deleteData(2, 2);
  EXPECT_STREQ(text->nodeValue(), "a-def");
  text->setNodeValue("new");
  EXPECT_STREQ(text->nodeValue(), "new");
  text->setNodeValue(nullptr);
  EXPECT_EQ(text->nodeValue(), nullptr);
}

TEST_F(TextTest, AnOffsetPastTheEndIsRefused) {
  const Ref<Text> text = document->text("abc");
  EXPECT_DOM_ERROR(1, text->replaceData(4, 0, "x"));
  EXPECT_DOM_ERROR(1, text->insertData(4, "x"));
  EXPECT_DOM_ERROR(1, text->deleteData(4, 1));
  EXPECT_DOM_ERROR(1, text->substringData(4, 1));
  EXPECT_DOM_ERROR(1, text->splitText(4));
  EXPECT_DOM_ERROR(1, document->text("")->replaceData(1, 0, "x"));
  EXPECT_STREQ(text->nodeValue(), "abc");
}

TEST_F(TextTest, RefusalsHaveAnOrder) {
  TestElement* root = load("<r></r>");
  const Ref<RefusingText> text = new RefusingText(document.get(), "abc");
  root->appendChild(text.get());
  document->clearUndo();
  text->takesText = false;
  EXPECT_DOM_ERROR(3, text->setNodeValue("x"));
  EXPECT_DOM_ERROR(3, text->splitText(1));
  text->readOnly = true;
  EXPECT_DOM_ERROR(7, text->setNodeValue("x"));
  EXPECT_DOM_ERROR(7, text->splitText(1));
  EXPECT_DOM_ERROR(1, text->insertData(4, "x"));
  EXPECT_DOM_ERROR(1, text->splitText(4));
  EXPECT_STREQ(text->nodeValue(), "abc");
  EXPECT_EQ(root->length(), 1U);
  EXPECT_FALSE(document->canUndo());
}

// Without a parent the tail is cut off without asking whether the text takes that.
TEST_F(TextTest, ATextWithoutAParentRefusesASplitForItsOffsetOrAsReadOnly) {
  const Ref<RefusingText> text = new RefusingText(document.get(), "abc");
  text->takesText = false;
  EXPECT_DOM_ERROR(3, text->setNodeValue("x"));
  const Ref<Text> tail = text->splitText(1);
  EXPECT_STREQ(text->nodeValue(), "a");
  EXPECT_STREQ(tail->nodeValue(), "bc");
  EXPECT_EQ(text->nextSibling(), tail.get());
  text->readOnly = true;
  EXPECT_DOM_ERROR(7, text->splitText(1));
  EXPECT_DOM_ERROR(1, text->splitText(2));
  EXPECT_STREQ(text->nodeValue(), "a");
}

TEST_F(TextTest, TheBareReplacementIsWithoutChecksRecordOrEvents) {
  TestElement* root = load("<r></r>");
  const Ref<RefusingText> text = new RefusingText(document.get(), "abc");
  root->appendChild(text.get());
  document->clearUndo();
  Recorder recorder;
  document->addObserver(&recorder);
  text->takesText = false;
  text->readOnly = true;
  text->doReplaceText(1, 1, "XY");
  EXPECT_STREQ(text->nodeValue(), "aXYc");
  text->doReplaceText(3, 7, nullptr);
  EXPECT_STREQ(text->nodeValue(), "aXY");
  EXPECT_TRUE(recorder.log.empty());
  EXPECT_FALSE(document->canUndo());
  document->removeObserver(&recorder);
}

TEST_F(TextTest, EachChangeCounts) {
  load("<r>abc</r>");
  std::uint64_t before = document->changeCount();
  text()->replaceData(0, 1, "A");
  EXPECT_GT(document->changeCount(), before);
  before = document->changeCount();
  document->undo();
  EXPECT_GT(document->changeCount(), before);

  const Ref<Text> detached = document->text("xyz");
  before = document->changeCount();
  detached->deleteData(1, 1);
  EXPECT_GT(document->changeCount(), before);
}

TEST_F(TextTest, APartIsCopied) {
  const Ref<Text> text = document->text("abcdef");
  EXPECT_EQ(text->substringData(1, 3), "bcd");
  EXPECT_EQ(text->substringData(4, 9), "ef");
  EXPECT_EQ(text->substringData(4, 4294967295U), "ef");
  EXPECT_EQ(text->substringData(1, 0), std::nullopt);
  EXPECT_EQ(text->substringData(6, 1), std::nullopt);
  EXPECT_EQ(document->text("")->substringData(0, 5), std::nullopt);
}

TEST_F(TextTest, ACopyHasTheTextAndNoPlace) {
  load("<r>abc</r>");
  for (const bool deep : {false, true}) {
    const Ref<Node> copy = text()->cloneNode(deep);
    EXPECT_STREQ(copy->nodeValue(), "abc");
    EXPECT_EQ(copy->parent(), nullptr);
    EXPECT_FALSE(copy->isInDocument());
  }
}

TEST_F(TextTest, IsWrittenWithEntities) {
  EXPECT_EQ(toXml(*document->text("a<b & \"c\" > 'd'")),
            "a&lt;b &amp; &quot;c&quot; &gt; &apos;d&apos;");
  EXPECT_EQ(toXml(*document->text("")), "");
}

TEST_F(TextTest, IsWrittenInUtf8OrRefused) {
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  std::setlocale(LC_CTYPE, "C.UTF-8");
  EXPECT_EQ(toXml(*document->text("\xC3\xA9<")), "\xC3\xA9&lt;");
  EXPECT_THROW(toXml(*document->text("\xFF")), base::BadUnicodeString);
  std::setlocale(LC_CTYPE, "C");
  EXPECT_THROW(toXml(*document->text("\xC3\xA9")), base::BadUnicodeString);
  std::setlocale(LC_CTYPE, before.c_str());
}

TEST_F(TextTest, SplitsInTheDocumentSoThatItCanBeUndone) {
  load("<r><a></a>abcdef<b></b></r>");
  document->startUndoGroup();
  const Ref<Text> tail = text()->splitText(2);
  EXPECT_STREQ(text()->nodeValue(), "ab");
  EXPECT_STREQ(tail->nodeValue(), "cdef");
  EXPECT_EQ(text()->nextSibling(), tail.get());
  EXPECT_EQ(tail->nextSibling(), node("b"));
  checkLinks(*document);
  document->undo();
  EXPECT_EQ(xml(), "<r><a></a>abcdef<b></b></r>");
  EXPECT_STREQ(text()->nodeValue(), "abcdef");
  document->redo();
  EXPECT_EQ(node("r")->length(), 4U);
}

TEST_F(TextTest, SplitsInADetachedTree) {
  const Ref<TestElement> parent = readXml(*document, "<p>abc</p>");
  parent->firstChild()->asText()->splitText(1);
  EXPECT_EQ(parent->length(), 2U);
  EXPECT_EQ(toXml(*parent), "<p>abc</p>");
  checkLinks(*parent);
  EXPECT_FALSE(document->canUndo());
}

TEST_F(TextTest, SplitsWithoutAParent) {
  const Ref<Text> text = document->text("abcd");
  const Ref<Text> last = text->splitText(3);
  const Ref<Text> middle = text->splitText(1);
  EXPECT_STREQ(text->nodeValue(), "a");
  EXPECT_STREQ(middle->nodeValue(), "bc");
  EXPECT_STREQ(last->nodeValue(), "d");
  EXPECT_EQ(text->nextSibling(), middle.get());
  EXPECT_EQ(middle->nextSibling(), last.get());
  EXPECT_EQ(last->previousSibling(), middle.get());
  EXPECT_EQ(middle->previousSibling(), text.get());

  load("<r></r>")->appendChild(text.get());
  EXPECT_EQ(node("r")->length(), 3U);
}

TEST_F(TextTest, SplitsAtItsEnds) {
  const Ref<Text> text = document->text("abc");
  EXPECT_EQ(text->splitText(3)->nodeValue(), nullptr);
  EXPECT_STREQ(text->nodeValue(), "abc");
  EXPECT_STREQ(text->splitText(0)->nodeValue(), "abc");
  EXPECT_EQ(text->nodeValue(), nullptr);
}

}  // namespace
