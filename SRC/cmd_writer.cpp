#include "SRC/cmd_writer.h"

#include <ostream>

#include "base/vocabulary.h"

namespace PlotDom {

double CmdWriter::inOutputUnit(double millimetres) const {
  constexpr double inchesPerMillimetre = 0.03937007874015748;
  constexpr double pointsPerMillimetre = 2.834645669291339;
  if (unit_ == Ubase::Word::MM) return millimetres;
  return millimetres * (unit_ == Ubase::Word::In ? inchesPerMillimetre : pointsPerMillimetre);
}

void CmdWriter::beginItem() {
  if (isPending_) *out_ << ",\n";
  isPending_ = false;
  *out_ << indentation_.append("  ");
}

void CmdWriter::endItem() {
  isPending_ = true;
  indentation_.resize(indentation_.size() - 2);
}

void CmdWriter::beginCall() {
  beginItem();
  *out_ << "plot::";
}

void CmdWriter::beginArguments() { *out_ << "(\n"; }

void CmdWriter::endCall() {
  *out_ << ')';
  endItem();
}

}  // namespace PlotDom
