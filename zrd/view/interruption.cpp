#include "zrd/view/interruption.h"

namespace vantry::zrd {

namespace {

volatile std::sig_atomic_t arrived = 0;

void note(int signal) { arrived = signal; }

}  // namespace

// A signal that is ignored stays so. The others interrupt system calls.
Interruption::Interruption() {
  arrived = 0;
  struct sigaction noting {};
  noting.sa_handler = note;
  for (std::size_t i = 0; i < signals.size(); ++i) {
    sigaction(signals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler != SIG_IGN) sigaction(signals[i], &noting, nullptr);
  }
}

Interruption::~Interruption() {
  for (std::size_t i = 0; i < signals.size(); ++i) sigaction(signals[i], &before_[i], nullptr);
}

void Interruption::check() {
  if (arrived != 0) throw Interrupted{arrived};
}

}  // namespace vantry::zrd
