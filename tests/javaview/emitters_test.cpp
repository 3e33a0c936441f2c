#include "vantry/javaview/emitters.h"

#include <gtest/gtest.h>

#include "vantry/plot/document.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/elements/img.h"

namespace vantry::javaview {

namespace {

/// Whether an image may hold elements of that class that have no geometry.
bool hasNoGeometry(Token name) {
  return isOneOf(name, Word::Plane, Word::ClippingBox, Word::Camera, Word::AmbientLight,
                 Word::PointLight, Word::DistantLight, Word::SpotLight);
}

}  // namespace

TEST(EmittersTest, EveryPrimitiveWithGeometryIsWritten) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<Img2d> inPlane(new Img2d(document.get()));
  const base::Ref<Img3d> inSpace(new Img3d(document.get()));
  for (const Token name : elementNames()) {
    const bool isContent = inPlane->isContentName(name) || inSpace->isContentName(name);
    const base::Ref<PlotElement> element = document->createElement(name);
    EXPECT_EQ(emitterFor(*element) != nullptr, isContent && !hasNoGeometry(name))
        << name.str() << " has no row among the emitters, or has one that is never used";
  }
}

}  // namespace vantry::javaview
