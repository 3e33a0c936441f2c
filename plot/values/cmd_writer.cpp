#include "vantry/plot/values/cmd_writer.h"

#include <ostream>

#include "vantry/base/vocabulary.h"

namespace vantry::plot {

double CmdWriter::inOutputUnit(double millimetres) const {
  constexpr double inchesPerMillimetre = 0.03937007874015748;
  constexpr double pointsPerMillimetre = 2.834645669291339;
  if (unit_ == base::Word::MM) return millimetres;
  return millimetres * (unit_ == base::Word::In ? inchesPerMillimetre : pointsPerMillimetre);
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

void CmdWriter::beginAssignment(base::Token name) {
  beginItem();
  putName(name);
  *out_ << '=';
}

void CmdWriter::beginAssignment(base::Token className, base::Token name) {
  beginItem();
  *out_ << "plot::";
  putName(className);
  *out_ << "::";
  putName(name);
  *out_ << '=';
}

void CmdWriter::beginCall(base::Token name) {
  beginItem();
  *out_ << "plot::";
  putName(name);
  *out_ << "(\n";
}

void CmdWriter::endCall() {
  *out_ << ')';
  endItem();
}

void CmdWriter::putName(base::Token name) {
  if (name) *out_ << name.str();
}

}  // namespace vantry::plot
