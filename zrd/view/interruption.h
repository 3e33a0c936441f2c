// Signals that end the process while another program works for it.
#pragma once

#include <array>
#include <csignal>

namespace vantry::zrd {

/// A signal has come that ends the process.
struct Interrupted {
  int signal;
};

/// While this lives, signals that would end the process at once are noted, so that it can first end
/// other programs and take its files away. At most one may live at a time.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  /// Throws Interrupted if a signal has come.
  static void check();

 private:
  static constexpr std::array signals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

  std::array<struct sigaction, signals.size()> before_{};
};

}  // namespace vantry::zrd
