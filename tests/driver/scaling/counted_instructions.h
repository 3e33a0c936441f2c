// What programs cost in instructions, with all of their libraries.
#pragma once

#ifdef VALGRIND

#include <regex>
#include <stdexcept>
#include <string>

/// Counts the instructions of the runs of a test, which derives from ProgramTest.
template <class Test>
class CountedInstructions : public Test {
 protected:
  CountedInstructions() {
    this->setEnvironment("GLIBC_TUNABLES", "glibc.malloc.arena_max=1");
    this->setWrapper({VALGRIND, "--tool=cachegrind", "--cache-sim=no", "--branch-sim=no",
                      "--cachegrind-out-file=/dev/null", "--log-file=instructions"});
  }

  /// The number that the last run took.
  double counted() const {
    static const std::regex form(R"(I\s+refs:\s+([0-9,]+))");
    const std::string log = this->read("instructions");
    std::smatch parts;
    if (!std::regex_search(log, parts, form)) throw std::runtime_error(log);
    return std::stod(std::regex_replace(parts[1].str(), std::regex(","), ""));
  }
};

/// The largest power with which a cost may grow as its cause does.
constexpr double largestExponent = 1.1;

#endif
