#include "vantry/reader/namespaces.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace vantry::reader {

namespace {

/// The text of a declaration as the XML parser keeps it: the local part is written behind it.
class Declaration {
 public:
  explicit Declaration(const std::string& uri) : text_(uri + Namespaces::separator) {
    text_.reserve(uri.size() + 40);
    size_ = text_.size();
  }

  const char* name(const char* local) {
    text_.resize(size_);
    text_ += local;
    return text_.c_str();
  }

  /// Puts another namespace at the same address.
  void reuseFor(const std::string& uri) {
    text_ = uri + Namespaces::separator;
    size_ = text_.size();
  }

 private:
  std::string text_;
  std::size_t size_;
};

std::string split(Namespaces& namespaces, const char* name) {
  const SplitName parts = namespaces.splitElement(name);
  return std::string(parts.space ? *parts.space : "-") + " " + parts.localName;
}

TEST(Namespaces, SplitElementsAndAttributes) {
  Namespaces namespaces;
  EXPECT_EQ(split(namespaces, "a"), "- a");
  EXPECT_EQ(split(namespaces,
                  "urn:xml\x01"
                  "a"),
            "urn:xml a")
      << "never declared";
  namespaces.declare("urn:one");
  Declaration one("urn:one");
  EXPECT_EQ(split(namespaces, one.name("a")), "urn:one a");
  EXPECT_EQ(split(namespaces, one.name("bc")), "urn:one bc");
  EXPECT_EQ(split(namespaces, "a"), "- a");
  const SplitName attribute = namespaces.splitAttribute("urn:one\x01x");
  EXPECT_EQ(attribute.namespaceUri(), "urn:one");
  EXPECT_STREQ(attribute.localName, "x");
  EXPECT_EQ(namespaces.splitAttribute("x").space, nullptr);
}

TEST(Namespaces, KeepOneCopyOfEach) {
  Namespaces namespaces;
  namespaces.declare("urn:one");
  namespaces.declare("urn:one");
  Declaration first("urn:one");
  Declaration second("urn:one");
  const SplitName split = namespaces.splitElement(first.name("a"));
  EXPECT_EQ(namespaces.splitElement(second.name("b")).space, split.space);
  EXPECT_EQ(namespaces.splitAttribute("urn:one\x01x").space, split.space);
  namespaces.endDeclaration();
  EXPECT_EQ(namespaces.splitElement(first.name("c")).space, split.space);
}

TEST(Namespaces, ForgetTheAddressOfADeclarationThatEnds) {
  Namespaces namespaces;
  namespaces.declare("urn:outer");
  Declaration outer("urn:outer");
  EXPECT_EQ(split(namespaces, outer.name("a")), "urn:outer a");
  namespaces.declare("urn:a long one");
  Declaration inner("urn:a long one");
  EXPECT_EQ(split(namespaces, inner.name("a")), "urn:a long one a");
  namespaces.endDeclaration();
  namespaces.declare(nullptr);
  namespaces.declare("urn:other");
  inner.reuseFor("urn:other");
  EXPECT_EQ(split(namespaces, inner.name("a")), "urn:other a");
  namespaces.endDeclaration();
  namespaces.endDeclaration();
  EXPECT_EQ(split(namespaces, outer.name("a")), "urn:outer a");
}

// For a longer local part a text is moved, and what was its place may become that of another.
TEST(Namespaces, ForgetTheAddressOfATextThatWasMoved) {
  Namespaces namespaces;
  namespaces.declare("urn:one");
  namespaces.declare("urn:one");
  namespaces.declare("urn:another");
  Declaration before("urn:one");
  EXPECT_EQ(split(namespaces, before.name("a")), "urn:one a");
  Declaration moved("urn:one");
  EXPECT_EQ(split(namespaces, moved.name("longer")), "urn:one longer");
  before.reuseFor("urn:another");
  EXPECT_EQ(split(namespaces, before.name("a")), "urn:another a");
  EXPECT_EQ(split(namespaces, moved.name("b")), "urn:one b");
}

}  // namespace

}  // namespace vantry::reader
