#include "zrd/shortest_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace vantry::zrd {

namespace {

class ShortestNumbers : public std::num_put<char> {
 protected:
  iter_type do_put(iter_type out, std::ios_base&, char_type, double value) const override {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::copy(digits.data(), end, out);
  }
  using std::num_put<char>::do_put;
};

}  // namespace

std::locale withShortestNumbers() { return {std::locale::classic(), new ShortestNumbers}; }

}  // namespace vantry::zrd
