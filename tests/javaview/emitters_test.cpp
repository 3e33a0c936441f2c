#include "vantry/javaview/emitters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

#include "vantry/plot/document.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/framework/grammar.h"

namespace vantry::javaview {

using namespace plot;

namespace {

/// Whether an image may hold elements of that class that have no geometry.
bool hasNoGeometry(Token name) {
  return isOneOf(name, Word::Plane, Word::ClippingBox, Word::Camera, Word::AmbientLight,
                 Word::PointLight, Word::DistantLight, Word::SpotLight);
}

bool isIn(std::span<const Token> names, Token name) {
  return std::ranges::find(names, name) != names.end();
}

}  // namespace

TEST(EmittersTest, EveryPrimitiveWithGeometryIsWritten) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  for (const Token name : elementNames()) {
    const bool isContent = isIn(contentOf(Word::Img2d), name) || isIn(contentOf(Word::Img3d), name);
    const base::Ref<PlotElement> element = document->createElement(name);
    EXPECT_EQ(emitterFor(*element) != nullptr, isContent && !hasNoGeometry(name))
        << name.str() << " has no row among the emitters, or has one that is never used";
  }
}

}  // namespace vantry::javaview
