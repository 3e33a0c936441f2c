// How much of a test that could go on for ever is run.
#pragma once

#include <cstdlib>

/// How many samples a randomised comparison takes: the usual number of it, times VANTRY_SAMPLES if
/// the environment has that variable.
inline long samples(long usual) {
  const char* factor = std::getenv("VANTRY_SAMPLES");
  return usual * (factor ? std::atol(factor) : 1);
}
