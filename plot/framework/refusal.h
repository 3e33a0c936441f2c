// What the model refuses, and why.
#pragma once

#include <cstdint>

namespace vantry::plot {

class PlotElement;

/// The reasons for which the model refuses a change, a text or a document to be written. The
/// comments say what subject and detail a refusal of that kind has; it has none of the others.
enum class RefusalKind : std::uint8_t {
  unknownProperty,      ///< the property
  attributeMissing,     ///< the attribute, which is read but not set
  foreignAttribute,     ///< the attribute, which the element does not have
  mandatoryMissing,     ///< the property
  illegalText,          ///< the attribute; its text, which does not parse
  unsuitableValue,      ///< the attribute; why no text of the format has the value
  illegalValue,         ///< the attribute; the value is outside of the range
  unwritableValue,      ///< the attribute; why the format cannot hold the value
  emptyOptionName,      ///< an expression for no option
  illegalNumber,        ///< the attribute; its text, which is no number
  illegalType,          ///< the type, which the parent, `element`, does not take
  foreignChild,         ///< the child, which `element` does not take
  optionTwice,          ///< the child, of which there may be one
  illegalOption,        ///< the child, which the counterpart of `element` takes
  optionMissing,        ///< the child without which `element` may not be
  notText,              ///< a child that is no text
  unwritableChildren,   ///< children that no checked operation lets in
  listsOfOtherLength,   ///< lists that do not fit the points
  colorsMissing,        ///< a raster with fewer colours than cells
  valuesMissing,        ///< a raster with fewer values than cells
  categoryWithoutName,  ///< a category of properties
  classNotOfItsName,    ///< the name of an element of another class
  textOutsideOfXml,     ///< a text with characters that XML does not have
  wordOutsideOfXml,     ///< the same in a word
  noCanvas,             ///< a document without anything to be written
};

/// One refusal. The texts live as long as the call that hands it over.
struct Refusal {
  RefusalKind kind;
  const PlotElement* element = nullptr;  ///< whose it is; null for a refusal of the document
  const char* subject = "";
  const char* detail = "";
};

/// Gets to know each refusal of a document, as data.
class RefusalListener {
 public:
  virtual void refused(const Refusal& refusal) = 0;

 protected:
  ~RefusalListener() = default;
};

/// What a reporter is called with for a refusal: a format of printf, and its arguments.
struct RefusalReport {
  const char* format;
  const char* first;
  const char* second;
};
RefusalReport reportOf(const Refusal& refusal);

}  // namespace vantry::plot
