// The state of one output in the command syntax of the algebra system.
#pragma once

#include <iosfwd>
#include <string>

#include "vantry/base/token.h"

namespace vantry::plot {

/// Writes the items of an argument list, each on a line of its own, with commas between them. An
/// item may be a call, with an argument list of its own.
class CmdWriter {
 public:
  /// `unit` is the unit of printed sizes: MM, In, and any other token for points.
  CmdWriter(std::ostream& out, base::Token unit) : out_(&out), unit_(unit) {}

  std::ostream& out() const { return *out_; }

  /// A size in millimetres, in the output unit.
  double inOutputUnit(double millimetres) const;

  /// Opens an item: the comma and newline behind the previous one, and the indentation.
  void beginItem();
  void endItem();

  /// An item "name=value", or "plot::className::name=value" for the default of a class. The value
  /// is written behind it, and then endItem() follows.
  void beginAssignment(base::Token name);
  void beginAssignment(base::Token className, base::Token name);

  /// An item "plot::name(...)": the arguments are written between the two.
  void beginCall(base::Token name);
  void endCall();

  /// Writes a name; nothing for a null one. All names of the output go through here.
  void putName(base::Token name);

 private:
  std::ostream* out_;
  base::Token unit_;
  bool isPending_ = false;
  std::string indentation_;  // two blanks a level
};

}  // namespace vantry::plot
