// What is wrong with what moves.

#include <cmath>
#include <sstream>

#include "vantry/check/review.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/time_range.h"
#include "vantry/plot/elements/tr.h"

namespace vantry::check {

namespace Word = base::Word;
using namespace plot;

void Review::reviewTimeRange(const PlotElement& canvas) {
  const auto* range = firstChildOf<TimeRange>(canvas);
  hasTimeRange_ = range != nullptr;
  if (!range) return;
  if (!std::isfinite(range->timeEnd() - range->timeBegin())) {
    addAtInfinite({.kind = Kind::endlessTimeRange}, *range, {Word::TimeBegin, Word::TimeEnd},
                  {"write for example <TimeRange TimeBegin=\"0\" TimeEnd=\"4\"/>"});
  } else if (range->timeEnd() < range->timeBegin()) {
    addReversed(*range, Word::TimeEnd, Word::TimeBegin, Word::TimeEnd,
                "an animation has its first frame alone");
  }
}

namespace {

/// Whether the time of an element, as it is written there, ends before it begins. Where one of
/// the two comes from a style or is the default, the element comes or goes at the other one.
bool isTimeReversed(const PlotElement& element) {
  return element.hasAttribute(Word::TimeBegin) && element.hasAttribute(Word::TimeEnd) &&
         propertyValue<double>(element, Word::TimeEnd) <
             propertyValue<double>(element, Word::TimeBegin);
}

}  // namespace

/// `element` is an object or a transform, and `frame` the name of its images or maps.
void Review::reviewAnimation(const PlotElement& element, Token frame) {
  if (!hasTimeRange_) return reviewStandstill(element, frame);
  reviewNumbers(element, Word::ParameterBegin, Word::ParameterEnd);
  if (isTimeReversed(element)) {
    addReversed(
        element, Word::TimeEnd, Word::TimeBegin, Word::TimeEnd,
        std::string("the time of this ") + element.tagName().str() + " is over before it begins");
  } else if (!origins_.isDamaged(element)) {
    reviewFrames(element, frame);
  }
}

void Review::reviewStandstill(const PlotElement& element, Token frame) {
  int frames = 0;
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (child->nodeName() == frame) ++frames;
  }
  bool isAnimated = frames > 1;
  for (const Token bound : {Word::ParameterBegin, Word::ParameterEnd}) {
    isAnimated = isAnimated || element.firstChildByName(bound);
  }
  for (const Token time :
       {Word::TimeBegin, Word::TimeEnd, Word::VisibleBeforeBegin, Word::VisibleAfterEnd}) {
    isAnimated = isAnimated || element.hasAttribute(time);
  }
  if (isAnimated) {
    add({.kind = Kind::noTimeRange, .element = element.tagName().str()}, element,
        {"put <TimeRange TimeBegin=\"0\" TimeEnd=\"4\"/> into the Canvas"});
  }
}

namespace {

double timeOf(const dom::Node& frame) {
  if (const auto* image = elementCast<ImgBase, Img2d, Img3d>(&frame)) return image->frameTime();
  return elementCast<TrBase, Tr2d, Tr3d>(&frame)->frameTime();
}

std::vector<const PlotElement*> framesIn(const PlotElement& element, Token name) {
  std::vector<const PlotElement*> frames;
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (child->nodeName() == name) frames.push_back(PlotElement::from(child));
  }
  return frames;
}

}  // namespace

// The frame of a time is looked for from the first one on, up to one that is later or has no time.
// The first that is in the way is enough.
void Review::reviewFrames(const PlotElement& element, Token frame) {
  const std::vector<const PlotElement*> frames = framesIn(element, frame);
  if (frames.size() < 2) return;
  double before = nan;
  for (const PlotElement* next : frames) {
    if (origins_.isDamaged(*next)) return;
    const double time = timeOf(*next);
    if (std::isnan(time)) {
      return add(
          {.kind = Kind::frameWithoutTime, .element = next->tagName().str()}, *next,
          {"the time of a frame comes from its Param, from ParameterBegin and ParameterEnd beside "
           "it, and from TimeBegin and TimeEnd"});
    }
    if (time <= before) {
      std::ostringstream times;
      times << time << ", and the one before it for " << before;
      return addAtValue(
          {.kind = Kind::frameOrder, .element = next->tagName().str(), .detail = times.str()},
          *next, Word::Param,
          {"put the frames in the order of their times, and no two at one time"});
    }
    before = time;
  }
}

}  // namespace vantry::check
