#include "vantry/dom/element.h"

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class ElementTest : public TreeTest {
 protected:
  const Token x = token("x");

  void logHooks() {
    walkSubtree<Node>(*document, [this](Node& each) {
      if (each.asElement()) static_cast<TestElement&>(each).log = &log;
      return true;
    });
  }

  Log log;
};

TEST_F(ElementTest, AttributesAreSetAndRemovedInTheDocumentOrNot) {
  for (const Ref<TestElement>& each : {Ref(load("<r></r>")), document->element("detached")}) {
    each->setAttribute(x, LongVariant(1));
    EXPECT_TRUE(each->hasAttribute(x));
    EXPECT_EQ(each->getAttribute(x), LongVariant(1));
    each->setAttribute(x, LongVariant(2));
    EXPECT_EQ(each->getAttribute(x), LongVariant(2));
    each->removeAttribute(x);
    EXPECT_FALSE(each->hasAttribute(x));
  }
}

TEST_F(ElementTest, RefusalsHaveTheirCodesAndOrder) {
  TestElement* root = load("<r x=\"1\"></r>");
  root->takesAttributes = false;
  EXPECT_DOM_ERROR(3, root->setAttribute(x, LongVariant(2)));
  EXPECT_DOM_ERROR(3, root->removeAttribute(x));
  root->readOnly = true;
  EXPECT_DOM_ERROR(7, root->setAttribute(x, LongVariant(2)));
  EXPECT_DOM_ERROR(7, root->removeAttribute(x));
  EXPECT_EQ(xml(), "<r x=\"1\"></r>");
}

TEST_F(ElementTest, RemovingWhatIsNotThereIsNotEvenRefused) {
  TestElement* root = load("<r></r>");
  root->readOnly = true;
  root->takesAttributes = false;
  Recorder recorder;
  document->addObserver(&recorder);
  root->removeAttribute(x);
  EXPECT_TRUE(recorder.log.empty());
  EXPECT_FALSE(document->canUndo());
  document->removeObserver(&recorder);
}

TEST_F(ElementTest, AnAttributeIsAskedForByDefault) {
  class Plain : public TestElement {
   public:
    using TestElement::TestElement;
    bool canSetAttribute(Token name, const Variant& value) const override {
      return Element::canSetAttribute(name, value);
    }
    bool canRemoveAttribute(Token name) const override { return Element::canRemoveAttribute(name); }
    bool isAnyHookPassedOn() {
      return Element::beforeSetAttribute(*this, Token(), Variant()) ||
             Element::afterSetAttribute(*this, Token()) ||
             Element::beforeRemoveAttribute(*this, Token()) ||
             Element::afterRemoveAttribute(*this, Token());
    }
  };
  const Ref<Plain> plain = new Plain(document.get(), x);
  EXPECT_TRUE(plain->canSetAttribute(x, Variant()));
  EXPECT_TRUE(plain->canRemoveAttribute(x));
  EXPECT_FALSE(plain->isAnyHookPassedOn());
}

TEST_F(ElementTest, HooksGoDownTheTreeInDocumentOrder) {
  load("<r><a><b></b>text<c></c></a><d></d></r>");
  logHooks();
  element("a")->setAttribute(x, LongVariant(5));
  EXPECT_EQ(log, (Log{"beforeSet a of a.x=5", "beforeSet b of a.x=5", "beforeSet c of a.x=5",
                      "afterSet a of a.x", "afterSet b of a.x", "afterSet c of a.x"}));
  log.clear();
  element("a")->removeAttribute(x);
  EXPECT_EQ(log, (Log{"beforeRemove a of a.x", "beforeRemove b of a.x", "beforeRemove c of a.x",
                      "afterRemove a of a.x", "afterRemove b of a.x", "afterRemove c of a.x"}));
}

TEST_F(ElementTest, AHookDecidesWhetherItsChildrenAreCalled) {
  load("<r><a><b></b></a><c></c></r>");
  logHooks();
  element("a")->passesHooksOn = false;
  element("r")->setAttribute(x, LongVariant(5));
  EXPECT_EQ(log, (Log{"beforeSet r of r.x=5", "beforeSet a of r.x=5", "beforeSet c of r.x=5",
                      "afterSet r of r.x", "afterSet a of r.x", "afterSet c of r.x"}));
  log.clear();
  element("r")->passesHooksOn = false;
  element("r")->removeAttribute(x);
  EXPECT_EQ(log, (Log{"beforeRemove r of r.x", "afterRemove r of r.x"}));
}

TEST_F(ElementTest, NoHooksInADetachedTree) {
  const Ref<TestElement> detached = document->element("a");
  detached->log = &log;
  detached->setAttribute(x, LongVariant(5));
  detached->removeAttribute(x);
  EXPECT_TRUE(log.empty());
}

TEST_F(ElementTest, IsWrittenWithAttributesContentAndChildrenAndNothingElse) {
  TestElement* root = load("<r x=\"1\" y=\"2\"><a></a>t &<b><c></c></b></r>");
  element("b")->content = "content";
  EXPECT_EQ(toXml(*root), "<r x=\"1\" y=\"2\"><a></a>t &amp;<b>content<c></c></b></r>");
}

TEST_F(ElementTest, AnElementMayLeaveItselfOut) {
  TestElement* root = load("<r><a><b></b></a><c></c></r>");
  element("a")->isWrittenResult = false;
  EXPECT_EQ(toXml(*root), "<r><c></c></r>");
  root->isWrittenResult = false;
  EXPECT_EQ(toXml(*root), "");
}

TEST_F(ElementTest, TheDefaultWritesNeitherAttributesNorContent) {
  class Bare : public TestElement {
   public:
    using TestElement::TestElement;
    bool isWritten() const override { return Element::isWritten(); }
    std::ostream& writeAttributes(std::ostream& out) const override {
      return Element::writeAttributes(out);
    }
    std::ostream& writeContent(std::ostream& out) const override {
      return Element::writeContent(out);
    }
  };
  const Ref<Bare> bare = new Bare(document.get(), x);
  bare->setAttribute(x, LongVariant(1));
  bare->content = "content";
  EXPECT_EQ(toXml(*bare), "<x></x>");
}

TEST_F(ElementTest, ADocumentIsWrittenWithItsDeclaration) {
  EXPECT_EQ(toXml(*document), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n\n");
  load("<r><a></a></r>");
  EXPECT_EQ(toXml(*document), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r><a></a></r>\n");
}

}  // namespace
